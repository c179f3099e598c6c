#pragma once

#include <QAccessibleWidget>

class QMainWindow;
class QMenu;

namespace vantrel {

/// The main window as it is told to who cannot see it. A pop-up menu that stands in no other menu,
/// as that of the workspace, is told below it while it is open; of itself it stands nowhere.
class FrameAccess : public QAccessibleWidget
{
public:
    FrameAccess(QMainWindow* window, QAccessible::Role role);

    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;

private:
    QList<QMenu*> OpenPopUps() const;
};

} // namespace vantrel
