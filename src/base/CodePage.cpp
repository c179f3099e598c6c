#include "base/CodePage.h"
#include <algorithm>
#include <array>

namespace vantrel {

namespace {

constexpr unsigned char firstMoved = 0x80;

/// The characters of codes 80 to 9F hexadecimal; every other code is the character of the same
/// number.
constexpr std::array<char16_t, 32> moved{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr char16_t CharacterOf(unsigned char code)
{
    const std::size_t place = static_cast<std::size_t>(code) - firstMoved;
    return code >= firstMoved && place < moved.size() ? moved[place] : char16_t{code};
}

char CodeOf(char16_t character)
{
    const bool isMoved = character >= firstMoved && character < firstMoved + moved.size();
    if (character <= 0xFF && !isMoved)
        return static_cast<char>(character);
    const auto* const found = std::find(moved.begin(), moved.end(), character);
    return found == moved.end() ? '?' : static_cast<char>(firstMoved + (found - moved.begin()));
}

} // namespace

QChar CharacterOfCode(unsigned char code)
{
    return QChar(CharacterOf(code));
}

QString FromCodePage(QByteArrayView bytes)
{
    QString text(bytes.size(), Qt::Uninitialized);
    std::transform(bytes.begin(), bytes.end(), text.begin(),
                   [](char byte) { return QChar(CharacterOf(static_cast<unsigned char>(byte))); });
    return text;
}

QByteArray ToCodePage(QStringView text)
{
    QByteArray bytes(text.size(), Qt::Uninitialized);
    std::transform(text.begin(), text.end(), bytes.begin(),
                   [](QChar character) { return CodeOf(character.unicode()); });
    return bytes;
}

} // namespace vantrel
