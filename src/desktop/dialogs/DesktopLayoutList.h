#pragma once

#include <QListWidget>

namespace vantrel {

class Session;

/// All layouts of the store by name, each with a check box. A store that cannot be read gives an
/// empty list.
class DesktopLayoutList : public QListWidget
{
    Q_OBJECT

public:
    DesktopLayoutList(Session& session, QWidget* parent);

    /// The layouts that are marked, from the first row to the last.
    QStringList Marked() const;
    /// Marks these and no others. A name that is not in the list is passed over.
    void SetMarked(const QStringList& layouts);
};

} // namespace vantrel
