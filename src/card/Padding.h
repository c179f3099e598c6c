#pragma once

#include <QString>
#include <QtGlobal>
#include <cstdint>

namespace vantrel {

/// The most characters that padding may add; a track holds about a hundred.
inline constexpr qint64 LongestPadding = 1 << 24;

/// Pads a value for a track. The pad text is added before it (direction 0) or after it (1) once for
/// each missing character, so a pad text of several characters exceeds the length. Any other
/// direction leaves the value unchanged. If the value already has the length or more, the result is
/// the empty text. Fails with `Overflow` if more than `LongestPadding` characters would be added.
/// @param length  wanted length in characters
QString PadValue(const QString& value, std::int16_t length, const QString& padText,
                 std::int32_t direction);

} // namespace vantrel
