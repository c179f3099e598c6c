#include "app/DesktopControls.h"
#include "app/ScreenUnits.h"

namespace vantrel {

QString ShownLine(const QString& value)
{
    constexpr qsizetype longest = 1000;
    return value.left(longest);
}

void CentreOver(QWidget& dialog, const QWidget* parent, double lift)
{
    if (parent == nullptr)
        return;
    const QPoint centre = parent->window()->frameGeometry().center();
    dialog.move(centre - dialog.rect().center() - QPoint(0, ScreenPixels(lift)));
}

void PlaceBySizeOf(QWidget& dialog, const QWidget* parent, double lift)
{
    if (parent == nullptr)
        return;
    dialog.adjustSize();
    const QSize room = parent->window()->frameSize() - dialog.size();
    dialog.move(room.width() / 2, room.height() / 2 - ScreenPixels(lift));
}

} // namespace vantrel
