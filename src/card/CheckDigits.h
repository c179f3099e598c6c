#pragma once

#include <QString>
#include <cstdint>

namespace vantrel {

/// @file The three check digit schemes. They differ on purpose in what they do with blanks, with
/// other characters, and with a sum that is a multiple of ten.

/// The words by which an object or a track names a scheme.
inline constexpr QLatin1StringView WordMod10{"MOD10"};
inline constexpr QLatin1StringView WordCodabar{"CODABAR"};
inline constexpr QLatin1StringView WordEbt{"EBT"};

/// Weights 3 and 1 from the left. Blanks at both ends are trimmed; any other non-digit fails with
/// `TypeMismatch`. @return 0 to 9
std::int32_t Mod10CheckDigit(const QString& text);
/// Luhn, from the right. Removes every blank from the caller's text; never fails on a non-digit.
/// @return "0" to "9"
QString CodabarCheckDigit(QString& text);
/// Doubling from the left; nothing is trimmed, a non-digit fails with `TypeMismatch`.
/// @param decimalSeparator  that of the machine's number format; where it is not ".", the digit is
/// the complement of the first digit of the quotient
/// @return 1 to 10
std::int16_t EbtCheckDigit(const QString& text, QChar decimalSeparator);

} // namespace vantrel
