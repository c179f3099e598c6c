#include "drawing/pdf/PdfSyntax.h"
#include <charconv>

namespace vantrel {

void AppendNumber(QByteArray& out, double number)
{
    constexpr int decimals = 4;
    char digits[64];
    const auto end = std::to_chars(std::begin(digits), std::end(digits), number,
                                   std::chars_format::fixed, decimals);
    QByteArrayView told(std::begin(digits), end.ptr);
    while (told.endsWith('0'))
        told.chop(1);
    if (told.endsWith('.'))
        told.chop(1);
    out.append(told == "-0" ? QByteArrayView("0") : told);
}

void AppendHex(QByteArray& out, std::uint16_t code)
{
    constexpr char digits[] = "0123456789ABCDEF";
    for (unsigned int shift = 16; shift > 0; shift -= 4)
        out.append(digits[(code >> (shift - 4)) & 0xFU]);
}

void AppendHex(QByteArray& out, QStringView text)
{
    for (const QChar unit : text)
        AppendHex(out, unit.unicode());
}

QByteArray PdfReference(int object)
{
    return QByteArray::number(object) + " 0 R";
}

QByteArray PackBytes(QByteArrayView bytes)
{
    // qCompress() prepends the length in four bytes.
    return qCompress(reinterpret_cast<const uchar*>(bytes.data()), bytes.size()).sliced(4);
}

} // namespace vantrel
