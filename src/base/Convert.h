#pragma once

#include <QString>
#include <QVariant>
#include <cstdint>

namespace vantrel {

/// @file Conversions of text and store values to numbers and booleans. Blanks at both ends and a
/// sign are allowed; a fraction is rounded half to even where the result is a whole number. Text
/// that is not a number fails with `TypeMismatch`, a number that does not fit the result with
/// `Overflow`, a null with `InvalidUseOfNull`.

/// @return whether the whole of `text` is a number; blanks at both ends and a sign are allowed.
/// Never fails
bool IsNumeric(const QString& text);

/// Convert a text to a 32-bit, 16-bit or unsigned 8-bit whole number, or to a real.
std::int32_t ToLong(const QString& text);
std::int16_t ToInteger(const QString& text);
std::uint8_t ToByte(const QString& text);
double ToDouble(const QString& text);
/// Convert a text that holds digits only, apart from a sign and blanks at both ends: a fraction or
/// an exponent fails with `TypeMismatch`.
std::int32_t ToWholeLong(const QString& text);
std::int16_t ToWholeInteger(const QString& text);
/// Accepts "True" and "False" in any case, or a number, which is true if it is not 0.
bool ToBoolean(const QString& text);

/// Convert a store value like the text functions above. True counts as -1.
std::int32_t ToLong(const QVariant& value);
std::int16_t ToInteger(const QVariant& value);
double ToDouble(const QVariant& value);
bool ToBoolean(const QVariant& value);
/// @return the value as text. Fails for a null; `JoinedText` does not
QString ToText(const QVariant& value);
/// @return the value as text, the empty text for a null. Never fails
QString JoinedText(const QVariant& value);

/// Rounds to the nearest whole number, half to even. Never fails.
double RoundHalfToEven(double value);
/// The same as a 32-bit number. Fails with `Overflow` if it does not fit.
std::int32_t RoundToLong(double value);

/// Reads the number at the start of a text and ignores what follows it. Leading blanks are skipped;
/// an exponent and the prefixes "&H" (hexadecimal) and "&O" (octal) are understood. @return 0 if
/// the text does not start with a number
double Val(const QString& text);

/// @return a number as text: no grouping, no exponent up to 15 digits, no trailing zeros
QString NumberText(double value);
/// @return "True" or "False"
QString BooleanText(bool value);

} // namespace vantrel
