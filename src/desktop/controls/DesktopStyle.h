#pragma once

#include <QProxyStyle>

namespace vantrel {

/// Qt's own style, used on desktops without one, with three corrections. Empty check boxes and
/// option buttons, which are dark on dark with a dark theme, get an outline. Rows of lists, which
/// touch each other, get some space and the same height with and without a box or an icon. A row
/// that has the focus without being chosen, which is filled like a chosen one, gets only an
/// outline.
class DesktopStyle : public QProxyStyle
{
    Q_OBJECT

public:
    /// Sets this style for the program if the program would otherwise use the style that is
    /// corrected here.
    static void Install();

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget) const override;

private:
    static void DrawBoxOutline(PrimitiveElement element, const QStyleOption& option,
                               QPainter& painter);
    static void DrawRowFocus(const QStyleOption& option, QPainter& painter);
};

} // namespace vantrel
