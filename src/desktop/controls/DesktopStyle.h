#pragma once

#include <QProxyStyle>

namespace vantrel {

/// The style that comes with every desktop that has none of its own, with three things mended: on a
/// dark theme its empty check boxes and option buttons are dark on dark, and get an outline here;
/// rows of lists touch each other, and have one height with air here, whether a box or an icon
/// stands in them or not; and a row that has the focus is filled as a chosen one is, and has an
/// outline only here.
class DesktopStyle : public QProxyStyle
{
    Q_OBJECT

public:
    /// Takes this style for the program where the one it would have is the mended one.
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
