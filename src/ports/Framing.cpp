#include "ports/Framing.h"
#include "base/HexCodes.h"
#include "base/Text.h"
#include "ports/FilterTable.h"
#include "ports/FramedValues.h"
#include <bitset>
#include <limits>

namespace vantrel {

namespace {

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

void ForEachToken(const QString& text, const QString& delimiters, const ValueSink& take)
{
    const CharacterSet separators(delimiters);
    qsizetype begin = 0;
    for (qsizetype i = 0; i <= text.size(); ++i) {
        if (i < text.size() && !separators.Has(text[i]))
            continue;
        if (i > begin)
            take(text.sliced(begin, i - begin));
        begin = i + 1;
    }
}

} // namespace

QStringList SplitOnChars(const QString& text, const QString& delimiters)
{
    QStringList tokens;
    ForEachToken(text, delimiters, [&](QString token) { tokens.append(std::move(token)); });
    return tokens;
}

QString FilterValue(QString value, const Filters& filters)
{
    for (const FilterRow& row : FilterReplacements) {
        if (filters.*row.Flag)
            ReplaceText(value, row.Wanted, row.Replacement);
    }
    const QStringView trimmed = TrimBlanks(value);
    return trimmed.size() == value.size() ? value : trimmed.toString();
}

void ParseDataStream(QString& buffer, const Delimiters& delimiters, const Filters& filters,
                     const ValueSink& take)
{
    const qsizetype start = InStr(1, buffer, DecodeHexCodes(delimiters.DataStart));
    const qsizetype end = InStr(start + 1, buffer, DecodeHexCodes(delimiters.DataEnd));
    buffer = Mid(buffer, start, end - start);
    ParseWithoutCut(buffer, delimiters, filters, take);
}

void ParseWithoutCut(QString& text, const Delimiters& delimiters, const Filters& filters,
                     const ValueSink& take)
{
    // The undecoded delimiters are removed, so a delimiter that is set as a code stays in the first
    // value.
    ReplaceText(text, delimiters.DataStart, {});
    ReplaceText(text, delimiters.DataEnd, {});
    ForEachToken(text, DecodeHexCodes(delimiters.DataSeperator),
                 [&](QString value) { take(FilterValue(std::move(value), filters)); });
}

QStringList ParseDataStream(QString& buffer, const Delimiters& delimiters, const Filters& filters)
{
    QStringList values;
    ParseDataStream(buffer, delimiters, filters,
                    [&](QString value) { values.append(std::move(value)); });
    return values;
}

QStringList ParseWithoutCut(QString& text, const Delimiters& delimiters, const Filters& filters)
{
    QStringList values;
    ParseWithoutCut(text, delimiters, filters,
                    [&](QString value) { values.append(std::move(value)); });
    return values;
}

} // namespace vantrel
