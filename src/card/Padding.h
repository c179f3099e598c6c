#pragma once

#include <QString>
#include <QtGlobal>
#include <cstdint>

namespace vantrel {

/// In characters; a track holds about a hundred.
inline constexpr qint64 LongestPadding = 1 << 24;

/// Pads a value for a track: the pad text is put before (direction 0) or behind (1) it once for
/// each missing character, so that a longer pad text overshoots; any other direction leaves the
/// value. A value that has the length already, or more, vanishes: the result is the empty text.
/// Fails with `Overflow` where it would put more than `LongestPadding` to the value.
/// @param length  final length in characters
QString PadValue(const QString& value, std::int16_t length, const QString& padText,
                 std::int32_t direction);

} // namespace vantrel
