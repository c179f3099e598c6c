#include "desktop/controls/Contrast.h"
#include <algorithm>
#include <cmath>

namespace vantrel {

namespace {

constexpr double LeastContrastOfLines = 3;

/// Linear light of one channel of an sRGB colour; the constants are those of the standard.
double LinearLight(double part)
{
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double Luminance(const QColor& color)
{
    const QColor rgb = color.toRgb();
    return 0.2126 * LinearLight(static_cast<double>(rgb.redF())) +
           0.7152 * LinearLight(static_cast<double>(rgb.greenF())) +
           0.0722 * LinearLight(static_cast<double>(rgb.blueF()));
}

int Part(int first, int second, double share)
{
    return static_cast<int>(std::lround(first * share + second * (1 - share)));
}

} // namespace

double Contrast(const QColor& one, const QColor& other)
{
    constexpr double glare = 0.05;
    const auto [darker, lighter] = std::minmax({Luminance(one), Luminance(other)});
    return (lighter + glare) / (darker + glare);
}

QColor InkOn(const QColor& ground, const QColor& wanted)
{
    if (Contrast(ground, wanted) >= LeastContrastOfLines)
        return wanted;
    return Contrast(ground, Qt::black) > Contrast(ground, Qt::white) ? Qt::black : Qt::white;
}

QColor Between(const QColor& first, const QColor& second, double share)
{
    return {Part(first.red(), second.red(), share), Part(first.green(), second.green(), share),
            Part(first.blue(), second.blue(), share)};
}

} // namespace vantrel
