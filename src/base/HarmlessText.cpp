#include "base/HarmlessText.h"
#include <algorithm>

namespace vantrel {

namespace {

bool TurnsDirection(char16_t c)
{
    return (c >= 0x202A && c <= 0x202E) || (c >= 0x2066 && c <= 0x2069);
}

QChar HarmlessCharacter(QChar character)
{
    constexpr char16_t picturesOfControls = 0x2400;
    constexpr char16_t pictureOfDelete = 0x2421;
    constexpr char16_t space = 0x20;
    constexpr char16_t del = 0x7F;
    constexpr char16_t endOfControls = 0xA0;
    const char16_t c = character.unicode();
    if (c < space)
        return QChar(static_cast<char16_t>(picturesOfControls + c));
    if (c == del)
        return QChar(pictureOfDelete);
    const bool isSeparator = c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
    if ((c > del && c < endOfControls) || isSeparator || TurnsDirection(c))
        return QChar::ReplacementCharacter;
    return character;
}

} // namespace

QString HarmlessText(QStringView text)
{
    QString harmless = text.toString();
    std::transform(harmless.begin(), harmless.end(), harmless.begin(), HarmlessCharacter);
    return harmless;
}

} // namespace vantrel
