#include "card/TrackFormula.h"
#include "base/Convert.h"
#include "base/Failure.h"
#include "base/Text.h"
#include "card/CheckDigits.h"
#include "card/FieldValues.h"
#include "card/Padding.h"
#include "card/StripChars.h"
#include <QStringList>
#include <QStringTokenizer>

namespace vantrel {

namespace {

constexpr QLatin1Char TokenDelimiter('~');
constexpr QLatin1Char PartDelimiter('^');
constexpr QStringView DataFieldWord = u"DAT";
constexpr QStringView FormattedFieldWord = u"FD";

struct KindTest
{
    QStringView Word;
    TokenKind Kind;
};

/// The first of these words found anywhere in a token decides its kind; a token without any of them
/// is a literal.
constexpr KindTest KindTests[] = {
    {DataFieldWord, TokenKind::DataField},
    {u"MOD", TokenKind::Mod10},
    {u"CODABAR", TokenKind::Codabar},
    {u"EBT", TokenKind::Ebt},
    {u"AUTO", TokenKind::Auto},
    {u"SEP", TokenKind::Separator},
    {FormattedFieldWord, TokenKind::FormattedField},
};

TokenKind KindOf(const QString& token)
{
    for (const KindTest& test : KindTests) {
        if (token.contains(test.Word))
            return test.Kind;
    }
    return TokenKind::Literal;
}

QString Without(QString token, QStringView word)
{
    ReplaceText(token, word, {});
    return token;
}

/// The text of a formatted field. Its four parts follow "FD" in their stored order; further parts
/// are ignored.
QString FormattedFieldText(const QString& ref, const FieldValues& values)
{
    QStringList parts;
    for (const QStringView part : QStringTokenizer(ref, PartDelimiter)) {
        parts.append(part.toString());
        if (parts.size() == 4)
            break;
    }
    if (parts.size() < 4)
        throw Failure(FailureNumber::SubscriptOutOfRange, QStringLiteral("Subscript out of range"));
    const QString& padChars = parts[0];
    const std::int16_t padLen = ToWholeInteger(parts[1]);
    const std::int32_t padDirection = ToWholeLong(parts[2]);
    const std::int16_t padField = ToWholeInteger(parts[3]);
    return PadValue(values.Item(padField), padLen, padChars, padDirection);
}

/// Limits the characters that a formula reads and produces in total, so that many tokens over a
/// very long value fail like an unreadable formula.
class CharacterLimit
{
public:
    void Take(qsizetype characters)
    {
        m_left -= characters;
        if (m_left < 0)
            throw Failure(FailureNumber::Overflow, QStringLiteral("Overflow"));
    }

private:
    qsizetype m_left = LongestTrack;
};

/// @return the length of the value that a token reads; 0 if it reads none
qsizetype LengthOfRead(const TrackToken& token, const FieldValues& values)
{
    return token.TokenKind == TokenKind::DataField ? values.Item(token.TokenField).size() : 0;
}

/// @param covered  the value over which the check digit is computed
QString TextOf(const TrackToken& token, QString covered, const FieldValues& values,
               QChar decimalSeparator)
{
    switch (token.TokenKind) {
    case TokenKind::Mod10:
        return QString::number(Mod10CheckDigit(covered));
    case TokenKind::Codabar:
        return CodabarCheckDigit(covered);
    case TokenKind::Ebt:
        return QString::number(EbtCheckDigit(covered, decimalSeparator));
    case TokenKind::FormattedField:
        return FormattedFieldText(token.TokenRef, values);
    default:
        return token.TokenValue;
    }
}

} // namespace

QString CleanTrackData(const QString& value)
{
    const QString kept =
        StripChars(QStringLiteral("^:;~?><+-!@\"\r\n"), TrimBlanks(value).toString());
    return TrimBlanks(kept).toString();
}

TrackToken ParseTrackToken(const QString& token, const FieldValues& values)
{
    TrackToken read;
    read.TokenKind = KindOf(token);
    read.TokenRef = QStringLiteral("-1");
    switch (read.TokenKind) {
    case TokenKind::DataField:
        read.TokenField = ToWholeLong(Without(token, DataFieldWord));
        read.TokenRef = QString::number(read.TokenField);
        read.TokenValue = CleanTrackData(values.Item(read.TokenField));
        break;
    case TokenKind::FormattedField:
        read.TokenRef = Without(token, FormattedFieldWord);
        break;
    case TokenKind::Literal:
        read.TokenValue = token;
        break;
    default:
        break;
    }
    return read;
}

void EvaluateTrack(const QString& trackText, const FieldValues& values, QChar decimalSeparator,
                   const TrackSink& sink)
{
    if (trackText.isEmpty())
        return;
    // A check digit covers the value of the preceding token: it is empty after a separator, a
    // formatted field or another check digit. An empty token is skipped.
    QString covered;
    CharacterLimit limit;
    for (const QStringView part : QStringTokenizer(trackText, TokenDelimiter)) {
        const QString text = part.toString();
        const TrackToken token = ParseTrackToken(text, values);
        limit.Take(LengthOfRead(token, values));
        const QString given = TextOf(token, covered, values, decimalSeparator);
        limit.Take(given.size());
        sink(token.TokenKind, given);
        if (!text.isEmpty())
            covered = token.TokenValue;
    }
}

} // namespace vantrel
