#pragma once

#include <QByteArray>
#include <QString>

namespace vantrel {

/// @file Conversion between bytes and characters: one byte is one character of Windows code page
/// 1252. The five codes that it leaves undefined (81, 8D, 8F, 90, 9D hexadecimal) become the
/// control characters of the same number, so every byte survives a round trip. Nothing here fails.

/// @return the character of a code, 0 to 255
QChar CharacterOfCode(unsigned char code);
/// @return one character for each byte
QString FromCodePage(QByteArrayView bytes);
/// @return one byte for each character; characters that the code page lacks become "?"
QByteArray ToCodePage(QStringView text);

} // namespace vantrel
