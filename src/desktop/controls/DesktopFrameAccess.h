#pragma once

#include <QAccessibleWidget>

class QMainWindow;
class QMenu;

namespace vantrel {

/// The main window as screen readers see it. A pop-up menu that is in no other menu, such as that
/// of the workspace, is reported as a child of the window while it is open; Qt reports it nowhere.
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
