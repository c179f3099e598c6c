#pragma once

#include <QString>
#include <cstdint>

namespace vantrel {

/// @file The three check digit schemes. They deliberately differ in how they treat blanks, other
/// characters, and a sum that is a multiple of ten.

/// The words by which an object or a track names a scheme.
inline constexpr QLatin1StringView WordMod10{"MOD10"};
inline constexpr QLatin1StringView WordCodabar{"CODABAR"};
inline constexpr QLatin1StringView WordEbt{"EBT"};

/// Modulo 10 with weights 3 and 1 from the left. Blanks at both ends are ignored; any other
/// character that is not a digit fails with `TypeMismatch`. @return 0 to 9
std::int32_t Mod10CheckDigit(const QString& text);
/// Luhn, from the right. Removes all blanks from `text`; other characters that are not digits count
/// as 0.
/// @return "0" to "9"
QString CodabarCheckDigit(QString& text);
/// Doubles every second digit from the left. Nothing is trimmed; any character that is not a digit
/// fails with `TypeMismatch`.
/// @param decimalSeparator  the machine's; if it is not ".", the digit is the complement of the
/// first digit of the quotient
/// @return 1 to 10
std::int16_t EbtCheckDigit(const QString& text, QChar decimalSeparator);

} // namespace vantrel
