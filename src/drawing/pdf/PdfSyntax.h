#pragma once

#include <QByteArray>
#include <QString>
#include <cstdint>

namespace vantrel {

/// @file Basic elements of PDF syntax. Nothing here fails.

/// Appends a number with as many decimals as needed, at most four, which is finer than any printer.
void AppendNumber(QByteArray& out, double number);
/// Appends numbers, each followed by a blank.
template <typename... Numbers>
void AppendNumbers(QByteArray& out, Numbers... numbers)
{
    ((AppendNumber(out, static_cast<double>(numbers)), out.append(' ')), ...);
}
/// Appends four hexadecimal digits.
void AppendHex(QByteArray& out, std::uint16_t code);
/// Appends four hexadecimal digits for each UTF-16 unit of the text.
void AppendHex(QByteArray& out, QStringView text);
/// @return a reference to the object of that number
QByteArray PdfReference(int object);
/// Compresses bytes for the filter `FlateDecode`.
QByteArray PackBytes(QByteArrayView bytes);

} // namespace vantrel
