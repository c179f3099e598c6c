#include "desktop/controls/DesktopFrameAccess.h"
#include <QAction>
#include <QMainWindow>
#include <QMenu>

namespace vantrel {

FrameAccess::FrameAccess(QMainWindow* window, QAccessible::Role role)
    : QAccessibleWidget(window, role)
{}

QList<QMenu*> FrameAccess::OpenPopUps() const
{
    QList<QMenu*> open;
    for (QMenu* menu : widget()->findChildren<QMenu*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (menu->isVisible() && menu->menuAction()->associatedObjects().isEmpty())
            open.append(menu);
    }
    return open;
}

int FrameAccess::childCount() const
{
    return QAccessibleWidget::childCount() + static_cast<int>(OpenPopUps().size());
}

QAccessibleInterface* FrameAccess::child(int index) const
{
    const int own = QAccessibleWidget::childCount();
    if (index < own)
        return QAccessibleWidget::child(index);
    return QAccessible::queryAccessibleInterface(OpenPopUps().value(index - own));
}

int FrameAccess::indexOfChild(const QAccessibleInterface* child) const
{
    const auto popUp = OpenPopUps().indexOf(qobject_cast<QMenu*>(child->object()));
    return popUp < 0 ? QAccessibleWidget::indexOfChild(child)
                     : QAccessibleWidget::childCount() + static_cast<int>(popUp);
}

} // namespace vantrel
