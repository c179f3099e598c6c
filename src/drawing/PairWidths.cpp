#include "drawing/PairWidths.h"
#include "drawing/TextShaper.h"
#include <algorithm>
#include <limits>

namespace vantrel {

namespace {

constexpr char16_t Bytes = 256;
constexpr float Unknown = std::numeric_limits<float>::lowest();
constexpr std::size_t OthersKept = 65'536;

struct CodeRange
{
    char16_t First;
    char16_t Last;
};

/// Latin, Greek, Cyrillic and Armenian, Hebrew letters, dashes and quotes, currencies.
constexpr CodeRange PlainRanges[] = {
    {0x0020, 0x024F}, {0x0370, 0x0482}, {0x048A, 0x058F}, {0x05D0, 0x05EA},
    {0x2010, 0x2027}, {0x2030, 0x205E}, {0x20A0, 0x20BF}, {0x2122, 0x2122},
};

} // namespace

PairWidths::PairWidths(const Font& font)
    : m_font(font), m_byBytes(std::size_t{Bytes} * Bytes, Unknown)
{}

bool PairWidths::IsPlain(QChar character)
{
    const char16_t code = character.unicode();
    return std::any_of(std::begin(PlainRanges), std::end(PlainRanges), [code](CodeRange range) {
        return code >= range.First && code <= range.Last;
    });
}

double PairWidths::Advance(QChar character, QChar next, bool isRightToLeft)
{
    const char16_t code = character.unicode();
    const char16_t following = next.unicode();
    if (code < Bytes && following < Bytes && !isRightToLeft) {
        float& kept = m_byBytes[std::size_t{code} * Bytes + following];
        if (kept == Unknown)
            kept = Measure(character, next, isRightToLeft);
        return static_cast<double>(kept);
    }
    if (m_others.size() >= OthersKept)
        m_others.clear();
    const std::uint64_t key = std::uint64_t{code} << 32 | std::uint64_t{following} << 1 |
                              static_cast<std::uint64_t>(isRightToLeft);
    const auto [kept, isNew] = m_others.try_emplace(key, 0.0F);
    if (isNew)
        kept->second = Measure(character, next, isRightToLeft);
    return static_cast<double>(kept->second);
}

/// If both are drawn as a ligature, the first gets the width of the ligature less that of the
/// second.
float PairWidths::Measure(QChar character, QChar next, bool isRightToLeft) const
{
    const QChar both[] = {character, next};
    const qsizetype count = next.isNull() ? 1 : 2;
    TextShaper& shaper = TextShaper::Get();
    double width = shaper.Stretch(QStringView(both, count), m_font, isRightToLeft)->Width;
    if (count == 2)
        width -= shaper.Stretch(QStringView(both + 1, 1), m_font, isRightToLeft)->Width;
    return static_cast<float>(width);
}

} // namespace vantrel
