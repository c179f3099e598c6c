#pragma once

#include <QString>

namespace vantrel {

/// The font in which a page opens, and to which a magnetic font gives way again.
inline constexpr QLatin1StringView OpeningFontName{"Arial"};
/// In points.
inline constexpr double OpeningFontSize = 8.75;

} // namespace vantrel
