#pragma once

#include <QByteArray>
#include <QString>

namespace vantrel {

/// @file One byte is one character, of Windows code page 1252. Its five undefined codes (81, 8D,
/// 8F, 90, 9D hexadecimal) are the control characters of the same number, so that every byte comes
/// back as it went in.

QChar CharacterOfCode(unsigned char code);
QString FromCodePage(QByteArrayView bytes);
/// Characters the code page lacks become "?".
QByteArray ToCodePage(QStringView text);

} // namespace vantrel
