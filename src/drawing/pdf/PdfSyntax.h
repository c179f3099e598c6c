#pragma once

#include <QByteArray>
#include <QString>
#include <cstdint>

namespace vantrel {

/// @file What the parts of a PDF are spelled with.

/// A number with as many decimals as it needs, at most four: a hundredth of a printer's dot.
void AppendNumber(QByteArray& out, double number);
/// Numbers, each with a blank behind it.
template <typename... Numbers>
void AppendNumbers(QByteArray& out, Numbers... numbers)
{
    ((AppendNumber(out, static_cast<double>(numbers)), out.append(' ')), ...);
}
/// Four hexadecimal digits.
void AppendHex(QByteArray& out, std::uint16_t code);
/// Four for each unit of the text in UTF-16.
void AppendHex(QByteArray& out, QStringView text);
/// A reference to an object by its number.
QByteArray PdfReference(int object);
/// As the filter `FlateDecode` unpacks it.
QByteArray PackBytes(QByteArrayView bytes);

} // namespace vantrel
