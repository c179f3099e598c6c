#pragma once

#include <QFileIconProvider>

namespace vantrel {

/// Icons and kinds of the files in a file dialog. It goes by the names of files and reads none.
/// Whoever opens the database's file and closes it again gives up the locks of its connection,
/// since the machine counts them by process; another program then takes the database for unused and
/// removes the log with the latest saves.
class KindByName : public QFileIconProvider
{
public:
    using QFileIconProvider::icon;
    QIcon icon(const QFileInfo& file) const override;
    QString type(const QFileInfo& file) const override;
};

} // namespace vantrel
