#include "app/DesktopControls.h"
#include "app/ScreenUnits.h"

namespace vantrel {

void CentreOver(QWidget& dialog, const QWidget* parent, double lift)
{
    if (parent == nullptr)
        return;
    const QPoint centre = parent->window()->frameGeometry().center();
    dialog.move(centre - dialog.rect().center() - QPoint(0, ScreenPixels(lift)));
}

} // namespace vantrel
