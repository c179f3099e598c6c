#pragma once

#include <QProxyStyle>

namespace vantrel {

/// The style that comes with every desktop that has none of its own, with one thing mended: on a
/// dark theme its empty check boxes and option buttons are dark on dark, and get an outline here.
class DesktopStyle : public QProxyStyle
{
    Q_OBJECT

public:
    /// Takes this style for the program where the one it would have is the mended one.
    static void Install();

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
};

} // namespace vantrel
