#include "base/HexCodes.h"
#include "base/CodePage.h"
#include "base/Text.h"

namespace vantrel {

QString DecodeHexCodes(const QString& text)
{
    constexpr QLatin1Char open('[');
    constexpr QLatin1Char close(']');
    // Every record decodes three settings, and most of them contain no code.
    if (!text.contains(open) || !text.contains(close))
        return text;

    QString decoded = text;
    for (int code = 1; code <= 255; ++code) {
        const QString written = open + QString::number(code, 16).toUpper() + close;
        const QChar character = CharacterOfCode(static_cast<unsigned char>(code));
        ReplaceText(decoded, written, QStringView(&character, 1));
    }
    return decoded;
}

} // namespace vantrel
