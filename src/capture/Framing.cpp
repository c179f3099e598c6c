#include "capture/Framing.h"
#include "capture/HexCodes.h"
#include "platform/Text.h"
#include <bitset>
#include <limits>

namespace vantrel {

namespace {

/// A flag and what it does to a value.
struct FilterRow
{
    bool Filters::*Flag;
    QLatin1StringView Wanted;
    QLatin1StringView Replacement;
};

/// In the order in which they act. A pair of blanks is looked for once: three blanks become two.
constexpr FilterRow filterTable[] = {
    {&Filters::Cr, QLatin1StringView("\r"), {}},
    {&Filters::Lf, QLatin1StringView("\n"), {}},
    {&Filters::Tab, QLatin1StringView("\t"), QLatin1StringView(" ")},
    {&Filters::Space, QLatin1StringView("  "), QLatin1StringView(" ")},
    {&Filters::Esc, QLatin1StringView("\x1B"), {}},
    {&Filters::NewPage, QLatin1StringView("\f"), {}},
};

/// Which characters separate, looked up in one step.
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

QString FilterValue(const QString& value, const Filters& filters)
{
    QString filtered = value;
    for (const FilterRow& row : filterTable) {
        if (filters.*row.Flag)
            filtered = ReplaceText(filtered, row.Wanted, row.Replacement);
    }
    return TrimBlanks(filtered).toString();
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
    // The texts as they were set: a delimiter written as a code stays in the first value.
    text = ReplaceText(text, delimiters.DataStart, {});
    text = ReplaceText(text, delimiters.DataEnd, {});
    QStringList values = SplitOnChars(text, DecodeHexCodes(delimiters.DataSeperator));
    for (QString& value : values)
        value = FilterValue(value, filters);
    return values;
}

} // namespace vantrel
