#pragma once

#include <QString>
#include <QVariant>
#include <cstdint>

namespace vantrel {

/// @file Numbers and booleans out of text and store values. Blanks at both ends and a sign are
/// allowed, decimals round half to even. Text that is no number fails with `TypeMismatch`, a number
/// that does not fit with `Overflow`, a null with `InvalidUseOfNull`.

/// @return whether `text` reads as a number (and only as one) with blanks and a sign allowed
bool IsNumeric(const QString& text);

std::int32_t ToLong(const QString& text);
std::int16_t ToInteger(const QString& text);
std::uint8_t ToByte(const QString& text);
double ToDouble(const QString& text);
/// These take digits only, with blanks at both ends and a sign: a fraction or an exponent fails
/// with `TypeMismatch`.
std::int32_t ToWholeLong(const QString& text);
std::int16_t ToWholeInteger(const QString& text);
/// "True" and "False" in any case, or a number, true if not 0.
bool ToBoolean(const QString& text);

std::int32_t ToLong(const QVariant& value);
std::int16_t ToInteger(const QVariant& value);
double ToDouble(const QVariant& value);
bool ToBoolean(const QVariant& value);
/// @return the value's text. Fails for a null; see `JoinedText` for the lenient reading
QString ToText(const QVariant& value);
/// @return the value's text as a join to the empty text gives it: a null is empty. Never fails
QString JoinedText(const QVariant& value);

/// Rounds half to even.
double RoundHalfToEven(double value);
std::int32_t RoundToLong(double value);

/// Reads a number from the left up to the first character that is no part of one (a leading blank
/// is passed over, an exponent and the prefixes "&H" and "&O" are read). 0 if there is none.
double Val(const QString& text);

/// @return a number as text: no grouping, no exponent up to 15 digits, no trailing zeros
QString NumberText(double value);
/// @return "True" or "False"
QString BooleanText(bool value);

} // namespace vantrel
