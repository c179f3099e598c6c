#pragma once

#include <QString>

namespace vantrel {

/// The font set when a page is opened, and again after a magnetic font was used.
inline constexpr QLatin1StringView OpeningFontName{"Arial"};
/// In points.
inline constexpr double OpeningFontSize = 8.75;

} // namespace vantrel
