#pragma once

#include "base/Twips.h"
#include <QRect>
#include <QSize>
#include <cmath>

namespace vantrel {

/// @file Windows are placed in twips and drawn in pixels of 96 to the inch, whatever the density of
/// the screen: Qt scales these pixels. One of them is 15 twips.

inline constexpr double ScreenPixelsPerInch = 96.0;

inline int ScreenPixels(double twips)
{
    return static_cast<int>(std::lround(PixelsOfTwips(twips, ScreenPixelsPerInch)));
}

inline int ScreenTwips(int pixels)
{
    return static_cast<int>(std::lround(TwipsOfPixels(pixels, ScreenPixelsPerInch)));
}

inline QRect ScreenRect(double left, double top, double width, double height)
{
    return {ScreenPixels(left), ScreenPixels(top), ScreenPixels(width), ScreenPixels(height)};
}

} // namespace vantrel
