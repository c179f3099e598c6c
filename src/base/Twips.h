#pragma once

namespace vantrel {

/// @file All conversions of lengths. The store, the card objects and the printer interface use
/// twips (1440 to the inch), PDF uses points (72 to the inch), pictures and printer media use
/// hundredths of a millimetre. Pixels are used only during a drag and inside windows. Nothing here
/// fails.

inline constexpr double TwipsPerInch = 1440.0;
inline constexpr double PointsPerInch = 72.0;
inline constexpr double HundredthsPerInch = 2540.0;
inline constexpr double TwipsPerPoint = TwipsPerInch / PointsPerInch;
static_assert(TwipsPerPoint == 20.0);

constexpr double PointsOfTwips(double twips)
{
    return twips / TwipsPerPoint;
}
constexpr double TwipsOfPoints(double points)
{
    return points * TwipsPerPoint;
}
constexpr double TwipsOfHundredths(double hundredths)
{
    return hundredths * TwipsPerInch / HundredthsPerInch;
}
constexpr double HundredthsOfTwips(double twips)
{
    return twips * HundredthsPerInch / TwipsPerInch;
}
constexpr double TwipsOfPixels(double pixels, double pixelsPerInch)
{
    return pixels * TwipsPerInch / pixelsPerInch;
}
constexpr double PixelsOfTwips(double twips, double pixelsPerInch)
{
    return twips * pixelsPerInch / TwipsPerInch;
}
static_assert(HundredthsOfTwips(7200) == 12700.0);

} // namespace vantrel
