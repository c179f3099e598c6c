#pragma once

#include <QString>

namespace vantrel {

/// Replaces "[HH]" codes by the characters of the code page: for each code from 1 to 255 in rising
/// order every bracketed upper-case hexadecimal number without leading zero. A character made early
/// can take part in a later code.
QString DecodeHexCodes(const QString& text);

} // namespace vantrel
