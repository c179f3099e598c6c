#pragma once

namespace vantrel {

/// How large the card is shown; 1 is its size at 96 pixels to the inch.
namespace CardZoom {
inline constexpr double Least = 0.25;
inline constexpr double Actual = 1;
inline constexpr double Most = 8;

/// The steps of the zoom commands and of the wheel.
inline constexpr double Steps[] = {0.25, 0.33, 0.5, 0.67, 0.75, 1, 1.25, 1.5, 2, 3, 4, 6, 8};

/// The next step above or below a zoom, which may lie between two; the last step at the ends.
double Next(double zoom, int direction);
/// The zoom itself, or the nearest one that is allowed; `Actual` for what is no number.
double Allowed(double zoom);
} // namespace CardZoom

} // namespace vantrel
