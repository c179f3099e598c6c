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
    /// Marks these and no others. A name that is not in the list is passed over, or has a row of
    /// its own until the next call, see `ShowGone`.
    void SetMarked(const QStringList& layouts);
    /// From now on a marked layout that is not in the store is listed as such.
    void ShowGone() { m_showsGone = true; }

private:
    void RemoveGone();
    void AddGone(const QString& layout);

    bool m_showsGone = false;
};

} // namespace vantrel
