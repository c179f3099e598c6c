#include "desktop/controls/DesktopOwner.h"
#include <QApplication>
#include <QDialog>
#include <QWindow>

namespace vantrel {

QWidget* WindowInUse()
{
    QWidget* const active = QApplication::activeWindow();
    return active != nullptr ? active : QApplication::activeModalWidget();
}

void BelongTo(QDialog& box, const QWidget* window)
{
    if (window == nullptr || window->window()->windowHandle() == nullptr)
        return;
    box.winId();
    box.windowHandle()->setTransientParent(window->window()->windowHandle());
}

} // namespace vantrel
