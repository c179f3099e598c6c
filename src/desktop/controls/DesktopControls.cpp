#include "desktop/controls/DesktopControls.h"
#include "desktop/controls/ScreenUnits.h"
#include <QApplication>
#include <QLayout>

namespace vantrel {

QString ShownLine(const QString& value)
{
    constexpr qsizetype longest = 1000;
    return value.left(longest);
}

namespace {

/// The size of a dialog with its frame. Before it is shown, only the frame of its parent is known;
/// the desktop draws both frames alike.
QSize FrameSizeOf(QWidget& dialog, const QWidget& parent)
{
    // A layout that fixes the size of the dialog has not been applied yet.
    if (dialog.layout() != nullptr && dialog.layout()->sizeConstraint() == QLayout::SetFixedSize)
        dialog.adjustSize();
    return dialog.size() + parent.window()->frameSize() - parent.window()->size();
}

} // namespace

int WidthForTitle(const QString& title)
{
    // The desktop adds to a title, as a rule, an icon and three buttons.
    constexpr int besideTitle = 112;
    QFont font = QApplication::font("QMdiSubWindowTitleBar");
    font.setBold(true);
    return QFontMetrics(font).horizontalAdvance(title) + besideTitle;
}

QString ShownTitle(const QString& title)
{
    return title.isEmpty() ? QStringLiteral(" ") : title;
}

void CentreOver(QWidget& dialog, const QWidget* parent, double lift)
{
    if (parent == nullptr)
        return;
    QRect place({0, 0}, FrameSizeOf(dialog, *parent));
    place.moveCenter(parent->window()->frameGeometry().center());
    dialog.move(place.topLeft() - QPoint(0, ScreenPixels(lift)));
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
