#include "desktop/controls/DesktopPanel.h"
#include "desktop/controls/DesktopControls.h"
#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

namespace vantrel {

DesktopPanel::DesktopPanel(QWidget* parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setFrameStyle(static_cast<int>(QFrame::StyledPanel) | static_cast<int>(QFrame::Sunken));
    setContentsMargins(4, 1, 4, 1);
    // A long text does not widen the window.
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

QRect DesktopPanel::TextRect() const
{
    const int indent = fontMetrics().horizontalAdvance(QLatin1Char('x')) / 2;
    return contentsRect().adjusted(indent, 0, 0, 0);
}

QString DesktopPanel::Elided() const
{
    return fontMetrics().elidedText(ShownLine(text()), Qt::ElideRight, TextRect().width());
}

bool DesktopPanel::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip || !toolTip().isEmpty() || Elided() == text())
        return QLabel::event(event);
    // The name of a layout must not be read as markup.
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(),
                       Qt::convertFromPlainText(ShownLine(text())), this);
    return true;
}

void DesktopPanel::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    drawFrame(&painter);
    style()->drawItemText(&painter, TextRect(),
                          static_cast<int>(Qt::AlignLeft) | static_cast<int>(Qt::AlignVCenter) |
                              static_cast<int>(Qt::TextSingleLine),
                          palette(), isEnabled(), Elided(), foregroundRole());
}

} // namespace vantrel
