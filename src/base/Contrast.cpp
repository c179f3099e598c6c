#include "base/Contrast.h"
#include <algorithm>
#include <cmath>

namespace vantrel {

namespace {

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

} // namespace

double Contrast(const QColor& one, const QColor& other)
{
    constexpr double glare = 0.05;
    const auto [darker, lighter] = std::minmax({Luminance(one), Luminance(other)});
    return (lighter + glare) / (darker + glare);
}

} // namespace vantrel
