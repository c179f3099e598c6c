#pragma once

#include <QString>

namespace vantrel {

/// Replaces each "[HH]" code by its character of the code page. HH is an upper-case hexadecimal
/// number from 1 to FF without a leading zero. The codes are replaced one after the other in
/// ascending order, so a character that an earlier code produced can become part of a later one.
/// Never fails.
QString DecodeHexCodes(const QString& text);

} // namespace vantrel
