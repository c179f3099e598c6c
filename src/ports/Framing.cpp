#include "ports/Framing.h"
#include "base/HexCodes.h"
#include "base/Text.h"
#include <bitset>
#include <limits>

namespace vantrel {

namespace {

/// A filter flag and the replacement it makes in a value.
struct FilterRow
{
    bool Filters::*Flag;
    QStringView Wanted;
    QStringView Replacement;
};

/// In the order of application. Pairs of blanks are replaced in a single pass, so three blanks
/// become two.
constexpr FilterRow filterTable[] = {
    {&Filters::Cr, u"\r", {}},      {&Filters::Lf, u"\n", {}},    {&Filters::Tab, u"\t", u" "},
    {&Filters::Space, u"  ", u" "}, {&Filters::Esc, u"\x1B", {}}, {&Filters::NewPage, u"\f", {}},
};

/// A set of separator characters with constant-time lookup.
class CharacterSet
{
public:
    explicit CharacterSet(const QString& characters)
    {
        for (const QChar character : characters)
            m_has.set(character.unicode());
    }
    bool Has(QChar character) const { return m_has.test(character.unicode()); }

private:
    std::bitset<std::size_t{std::numeric_limits<char16_t>::max()} + 1> m_has;
};

} // namespace

QStringList SplitOnChars(const QString& text, const QString& delimiters)
{
    const CharacterSet separators(delimiters);
    QStringList tokens;
    qsizetype begin = 0;
    for (qsizetype i = 0; i <= text.size(); ++i) {
        if (i < text.size() && !separators.Has(text[i]))
            continue;
        if (i > begin)
            tokens.append(text.sliced(begin, i - begin));
        begin = i + 1;
    }
    return tokens;
}

QString FilterValue(QString value, const Filters& filters)
{
    for (const FilterRow& row : filterTable) {
        if (filters.*row.Flag)
            ReplaceText(value, row.Wanted, row.Replacement);
    }
    const QStringView trimmed = TrimBlanks(value);
    return trimmed.size() == value.size() ? value : trimmed.toString();
}

QStringList ParseDataStream(QString& buffer, const Delimiters& delimiters, const Filters& filters)
{
    const qsizetype start = InStr(1, buffer, DecodeHexCodes(delimiters.DataStart));
    const qsizetype end = InStr(start + 1, buffer, DecodeHexCodes(delimiters.DataEnd));
    buffer = Mid(buffer, start, end - start);
    return ParseWithoutCut(buffer, delimiters, filters);
}

QStringList ParseWithoutCut(QString& text, const Delimiters& delimiters, const Filters& filters)
{
    // The undecoded delimiters are removed, so a delimiter that is set as a code stays in the first
    // value.
    ReplaceText(text, delimiters.DataStart, {});
    ReplaceText(text, delimiters.DataEnd, {});
    QStringList values = SplitOnChars(text, DecodeHexCodes(delimiters.DataSeperator));
    for (QString& value : values)
        value = FilterValue(std::move(value), filters);
    return values;
}

} // namespace vantrel
