#include "card/TrackFormula.h"
#include "card/FieldValues.h"
#include "support/FailureOf.h"
#include "support/Print.h"
#include <array>
#include <gtest/gtest.h>

// How the formula of a magnetic track is read, token by token.

namespace vantrel::test {
namespace {

constexpr QChar Point = u'.';

FieldValues Record(const QStringList& values)
{
    FieldValues record;
    for (const QString& value : values)
        record.Add(value);
    return record;
}

/// What each token gives, in order.
QStringList Given(const QString& formula, const QStringList& values = {},
                  QChar decimalSeparator = Point)
{
    QStringList given;
    EvaluateTrack(formula, Record(values), decimalSeparator,
                  [&](TokenKind, const QString& text) { given.append(text); });
    return given;
}

int FailureIn(const QString& formula, const QStringList& values = {})
{
    return FailureOf([&] { Given(formula, values); });
}

struct TokenRow
{
    const char16_t* Token;
    TokenKind Kind;
    const char16_t* Ref;
    std::int32_t Field;
    const char16_t* Value;
};

// The record is "one", "-two-".
constexpr std::array TokenRows = {
    TokenRow{u"DAT2", TokenKind::DataField, u"2", 2, u"two"},
    TokenRow{u"ACME", TokenKind::Literal, u"-1", -1, u"ACME"},
    TokenRow{u"SEP", TokenKind::Separator, u"-1", -1, u""},
    TokenRow{u"MOD10", TokenKind::Mod10, u"-1", -1, u""},
    TokenRow{u"CODABAR", TokenKind::Codabar, u"-1", -1, u""},
    TokenRow{u"EBT", TokenKind::Ebt, u"-1", -1, u""},
    TokenRow{u"AUTO1", TokenKind::Auto, u"-1", -1, u""},
    TokenRow{u"FD0^8^0^2", TokenKind::FormattedField, u"0^8^0^2", -1, u""},
    // An element that was never filled in.
    TokenRow{u"TEXT", TokenKind::Literal, u"-1", -1, u"TEXT"},
    TokenRow{u"", TokenKind::Literal, u"-1", -1, u""},
    // The words are looked for anywhere, and case counts.
    TokenRow{u"MODEL", TokenKind::Mod10, u"-1", -1, u""},
    TokenRow{u"AUTOMATIC", TokenKind::Auto, u"-1", -1, u""},
    TokenRow{u"SEPTEMBER", TokenKind::Separator, u"-1", -1, u""},
    TokenRow{u"DEBT", TokenKind::Ebt, u"-1", -1, u""},
    TokenRow{u"xCODABARx", TokenKind::Codabar, u"-1", -1, u""},
    TokenRow{u"model", TokenKind::Literal, u"-1", -1, u"model"},
    TokenRow{u"Sep", TokenKind::Literal, u"-1", -1, u"Sep"},
    // The first word in the order of the search decides, wherever it stands.
    TokenRow{u"FDSEPAUTOEBTCODABARMOD", TokenKind::Mod10, u"-1", -1, u""},
    TokenRow{u"FDSEPAUTOEBTCODABAR", TokenKind::Codabar, u"-1", -1, u""},
    TokenRow{u"FDSEPAUTOEBT", TokenKind::Ebt, u"-1", -1, u""},
    TokenRow{u"FDSEPAUTO", TokenKind::Auto, u"-1", -1, u""},
    TokenRow{u"FDSEP", TokenKind::Separator, u"-1", -1, u""},
    // Every occurrence of the word goes, one inside the pad text too.
    TokenRow{u"1DATDAT", TokenKind::DataField, u"1", 1, u"one"},
    TokenRow{u"DAT DAT2 ", TokenKind::DataField, u"2", 2, u"two"},
    TokenRow{u"DAT+002", TokenKind::DataField, u"2", 2, u"two"},
    TokenRow{u"FDaFDb^4^1^1", TokenKind::FormattedField, u"ab^4^1^1", -1, u""},
};

} // namespace

TEST(ParseTrackToken, EveryRowIsReadAsItsKind)
{
    const FieldValues record = Record({QStringLiteral("one"), QStringLiteral("-two-")});
    int rows = 0;
    for (const TokenRow& row : TokenRows) {
        const QString text = QString::fromUtf16(row.Token);
        const TrackToken token = ParseTrackToken(text, record);
        EXPECT_EQ(token.TokenKind, row.Kind) << text.toStdString();
        EXPECT_EQ(token.TokenRef, QString::fromUtf16(row.Ref)) << text.toStdString();
        EXPECT_EQ(token.TokenField, row.Field) << text.toStdString();
        EXPECT_EQ(token.TokenValue, QString::fromUtf16(row.Value)) << text.toStdString();
        ++rows;
    }
    EXPECT_EQ(rows, 26);
    // A data field too, but one without a number.
    EXPECT_EQ(FailureIn(QStringLiteral("FDSEPAUTOEBTCODABARMODDAT1")), FailureNumber::TypeMismatch);
}

TEST(ParseTrackToken, KindsHaveTheNumbersOfStoredLayouts)
{
    const std::array kinds = {TokenKind::DataField, TokenKind::Literal,       TokenKind::Separator,
                              TokenKind::Mod10,     TokenKind::Codabar,       TokenKind::Ebt,
                              TokenKind::Auto,      TokenKind::FormattedField};
    for (std::size_t i = 0; i < kinds.size(); ++i)
        EXPECT_EQ(static_cast<std::size_t>(kinds[i]), i);
}

TEST(ParseTrackToken, ANumberThatIsNotWholeOrDoesNotFitFails)
{
    const QStringList mismatched = {QStringLiteral("DAT"),    QStringLiteral("DATA"),
                                    QStringLiteral("UPDATE"), QStringLiteral("DAT1.0"),
                                    QStringLiteral("DAT1E0"), QStringLiteral("DAT1 1"),
                                    QStringLiteral("DAT&H1"), QStringLiteral("DAT-"),
                                    QStringLiteral("DAT\t1"), QStringLiteral("DAT١")};
    for (const QString& token : mismatched)
        EXPECT_EQ(FailureIn(token, {QStringLiteral("x")}), FailureNumber::TypeMismatch)
            << token.toStdString();
    EXPECT_EQ(FailureIn(QStringLiteral("DAT2147483648"), {QStringLiteral("x")}),
              FailureNumber::Overflow);
    EXPECT_EQ(FailureIn(QStringLiteral("DAT") + QString(1000, u'9')), FailureNumber::Overflow);
}

TEST(ParseTrackToken, AFieldTheRecordDoesNotHoldFails)
{
    for (const char16_t* token : {u"DAT0", u"DAT-1", u"DAT3", u"DAT2147483647"})
        EXPECT_EQ(FailureIn(QString::fromUtf16(token), {QStringLiteral("a"), QStringLiteral("b")}),
                  FailureNumber::SubscriptOutOfRange);
    EXPECT_EQ(FailureIn(QStringLiteral("DAT1")), FailureNumber::SubscriptOutOfRange);
}

TEST(CleanTrackData, ControlCharactersOfTheStripeGo)
{
    EXPECT_EQ(CleanTrackData(QStringLiteral("A-1:2;3")), QStringLiteral("A123"));
    EXPECT_EQ(CleanTrackData(QStringLiteral("1^2:3;4~5?6>7<8+9-0!1@2\"3\r4\n5")),
              QStringLiteral("123456789012345"));
}

TEST(CleanTrackData, EqualsPercentAndInnerBlanksStay)
{
    EXPECT_EQ(CleanTrackData(QStringLiteral(" a = b % c ")), QStringLiteral("a = b % c"));
}

TEST(CleanTrackData, BlanksAreTrimmedBeforeAndAfterTheDeletion)
{
    EXPECT_EQ(CleanTrackData(QStringLiteral("  - a -  ")), QStringLiteral("a"));
    EXPECT_EQ(CleanTrackData(QStringLiteral("\ta\t")), QStringLiteral("\ta\t"));
    EXPECT_EQ(CleanTrackData(QStringLiteral(" ?? ")), QString());
}

TEST(EvaluateTrack, AnEmptyFormulaHasNoTokens)
{
    EXPECT_EQ(Given(QString()), QStringList());
    EXPECT_EQ(Given(QStringLiteral("")), QStringList());
}

TEST(EvaluateTrack, AnEmptyTokenIsAnEmptyLiteral)
{
    QList<TokenKind> kinds;
    EvaluateTrack(QStringLiteral("~"), {}, Point, [&](TokenKind kind, const QString& text) {
        kinds.append(kind);
        EXPECT_EQ(text, QString());
    });
    EXPECT_EQ(kinds, QList<TokenKind>({TokenKind::Literal, TokenKind::Literal}));
    EXPECT_EQ(Given(QStringLiteral("A~~B")).join(QString()), QStringLiteral("AB"));
}

TEST(EvaluateTrack, ACheckDigitFollowsTheFieldItCovers)
{
    EXPECT_EQ(Given(QStringLiteral("DAT1~MOD10"), {QStringLiteral("4000")}),
              QStringList({QStringLiteral("4000"), QStringLiteral("8")}));
    EXPECT_EQ(Given(QStringLiteral("DAT1~CODABAR"), {QStringLiteral("7992739871")}),
              QStringList({QStringLiteral("7992739871"), QStringLiteral("3")}));
    EXPECT_EQ(Given(QStringLiteral("DAT1~EBT"), {QStringLiteral("91")}),
              QStringList({QStringLiteral("91"), QStringLiteral("10")}));
}

TEST(EvaluateTrack, AnEbtDigitGoesByTheMachinesDecimalSeparator)
{
    EXPECT_EQ(Given(QStringLiteral("DAT1~EBT"), {QStringLiteral("1234")}),
              QStringList({QStringLiteral("1234"), QStringLiteral("6")}));
    EXPECT_EQ(Given(QStringLiteral("DAT1~EBT"), {QStringLiteral("1234")}, u','),
              QStringList({QStringLiteral("1234"), QStringLiteral("9")}));
}

TEST(EvaluateTrack, ACheckDigitCoversTheCleanedValue)
{
    EXPECT_EQ(Given(QStringLiteral("DAT1~MOD10"), {QStringLiteral("1-2-3-4-5")}),
              QStringList({QStringLiteral("12345"), QStringLiteral("7")}));
}

TEST(EvaluateTrack, ACheckDigitCoversALiteral)
{
    EXPECT_EQ(Given(QStringLiteral("12345~MOD10")).constLast(), QStringLiteral("7"));
}

TEST(EvaluateTrack, ACheckDigitCoversOnlyTheTokenBeforeIt)
{
    EXPECT_EQ(Given(QStringLiteral("999~DAT1~MOD10"), {QStringLiteral("12345")}).constLast(),
              QStringLiteral("7"));
}

TEST(EvaluateTrack, ACheckDigitBehindATokenWithoutValueCoversTheEmptyText)
{
    // At the beginning, and behind a separator, an automatic number, a formatted field and a check
    // digit.
    constexpr std::array before = {u"", u"SEP~", u"AUTO1~", u"FD0^8^0^1~", u"DAT1~MOD10~"};
    int rows = 0;
    for (const char16_t* row : before) {
        const QString formula = QString::fromUtf16(row);
        const QStringList values = {QStringLiteral("12345")};
        EXPECT_EQ(Given(formula + QStringLiteral("MOD10"), values).constLast(),
                  QStringLiteral("0"));
        EXPECT_EQ(Given(formula + QStringLiteral("CODABAR"), values).constLast(),
                  QStringLiteral("0"));
        EXPECT_EQ(Given(formula + QStringLiteral("EBT"), values).constLast(), QStringLiteral("10"));
        ++rows;
    }
    EXPECT_EQ(rows, 5);
    EXPECT_EQ(Given(QStringLiteral("SEP~MOD10")), QStringList({QString(), QStringLiteral("0")}));
}

TEST(EvaluateTrack, BehindEmptyTokensACheckDigitCoversTheLastThatWasNotEmpty)
{
    const QStringList values = {QStringLiteral("12345")};
    EXPECT_EQ(Given(QStringLiteral("DAT1~~MOD10"), values).constLast(), QStringLiteral("7"));
    EXPECT_EQ(Given(QStringLiteral("DAT1~~~~MOD10"), values).constLast(), QStringLiteral("7"));
    EXPECT_EQ(Given(QStringLiteral("DAT1~SEP~~MOD10"), values).constLast(), QStringLiteral("0"));
    EXPECT_EQ(Given(QStringLiteral("~MOD10"), values).constLast(), QStringLiteral("0"));
}

TEST(EvaluateTrack, ACodabarDigitLeavesTheBlanksOfTheTokenBefore)
{
    EXPECT_EQ(Given(QStringLiteral("DAT1~CODABAR"), {QStringLiteral("7992 7398 71")}),
              QStringList({QStringLiteral("7992 7398 71"), QStringLiteral("3")}));
}

TEST(EvaluateTrack, ACheckDigitOverATextItsSchemeCannotReadFails)
{
    for (const char16_t* word : {u"MOD10", u"EBT"}) {
        const QString formula = QStringLiteral("DAT1~") + QString::fromUtf16(word);
        EXPECT_EQ(FailureIn(formula, {QStringLiteral("12A")}), FailureNumber::TypeMismatch);
    }
    EXPECT_EQ(FailureIn(QStringLiteral("DAT1~CODABAR"), {QStringLiteral("12A")}), 0);
}

TEST(EvaluateTrack, AnAutomaticNumberGivesNothing)
{
    EXPECT_EQ(Given(QStringLiteral("AUTO1")), QStringList(QString()));
}

TEST(EvaluateTrack, AFormattedFieldIsPaddedToItsLength)
{
    const QString left = QStringLiteral("FD0^8^0^2");
    EXPECT_EQ(Given(left, {QString(), QStringLiteral("1234")}),
              QStringList(QStringLiteral("00001234")));
    EXPECT_EQ(Given(QStringLiteral("FD ^5^1^1"), {QStringLiteral("AB")}),
              QStringList(QStringLiteral("AB   ")));
}

TEST(EvaluateTrack, AFormattedFieldThatHasItsLengthVanishes)
{
    const QString left = QStringLiteral("FD0^8^0^2");
    for (const char16_t* value : {u"12345678", u"123456789"})
        EXPECT_EQ(Given(left, {QString(), QString::fromUtf16(value)}), QStringList(QString()));
    EXPECT_EQ(Given(QStringLiteral("FD0^-1^0^1"), {QString()}), QStringList(QString()));
}

TEST(EvaluateTrack, AFormattedFieldKeepsAllItsCharacters)
{
    EXPECT_EQ(Given(QStringLiteral("FD0^9^0^1"), {QStringLiteral(" A-1:2;3")}),
              QStringList(QStringLiteral("0 A-1:2;3")));
}

TEST(EvaluateTrack, AFormattedFieldOfAnotherDirectionStaysAsItIs)
{
    EXPECT_EQ(Given(QStringLiteral("FD0^8^2^1"), {QStringLiteral("12")}),
              QStringList(QStringLiteral("12")));
}

TEST(EvaluateTrack, APadTextLosesTheWordOfItsToken)
{
    EXPECT_EQ(Given(QStringLiteral("FDxFDy^4^0^1"), {QStringLiteral("ab")}),
              QStringList(QStringLiteral("xyxyab")));
}

TEST(EvaluateTrack, OnlyTheFirstFourPartsOfAFormattedFieldCount)
{
    EXPECT_EQ(Given(QStringLiteral("FD0^4^0^1^9^x"), {QStringLiteral("12")}),
              QStringList(QStringLiteral("0012")));
    // A pad text that holds the delimiter shifts the parts.
    EXPECT_EQ(FailureIn(QStringLiteral("FD^^8^0^1"), {QStringLiteral("12")}),
              FailureNumber::TypeMismatch);
}

TEST(EvaluateTrack, AnIncompleteFormattedFieldFails)
{
    struct Row
    {
        const char16_t* Token;
        int Failure;
    };
    constexpr std::array rows = {
        Row{u"FD", FailureNumber::SubscriptOutOfRange},
        Row{u"FD0^8^0", FailureNumber::SubscriptOutOfRange},
        Row{u"FD0^x^0^1", FailureNumber::TypeMismatch},
        Row{u"FD0^8.0^0^1", FailureNumber::TypeMismatch},
        Row{u"FD0^8^^1", FailureNumber::TypeMismatch},
        Row{u"FD0^8^0^", FailureNumber::TypeMismatch},
        Row{u"FD0^32768^0^1", FailureNumber::Overflow},
        Row{u"FD0^8^2147483648^1", FailureNumber::Overflow},
        Row{u"FD0^8^0^65537", FailureNumber::Overflow},
        Row{u"FD0^8^0^0", FailureNumber::SubscriptOutOfRange},
        Row{u"FD0^8^0^2", FailureNumber::SubscriptOutOfRange},
    };
    int walked = 0;
    for (const Row& row : rows) {
        EXPECT_EQ(FailureIn(QString::fromUtf16(row.Token), {QStringLiteral("12")}), row.Failure);
        ++walked;
    }
    EXPECT_EQ(walked, 11);
}

TEST(EvaluateTrack, TheTokensBeforeAFailureHaveBeenHandedOn)
{
    QStringList given;
    const auto sink = [&](TokenKind, const QString& text) { given.append(text); };
    EXPECT_EQ(FailureOf([&] { EvaluateTrack(QStringLiteral("A~B~DAT~C"), {}, Point, sink); }),
              FailureNumber::TypeMismatch);
    EXPECT_EQ(given, QStringList({QStringLiteral("A"), QStringLiteral("B")}));
}

TEST(EvaluateTrack, EmptyFieldsGiveALoneSeparator)
{
    QString separators;
    EvaluateTrack(QStringLiteral("DAT1~SEP~DAT2"), Record({QString(), QString()}), Point,
                  [&](TokenKind kind, const QString& text) {
                      separators += text;
                      if (kind == TokenKind::Separator)
                          separators += u'^';
                  });
    EXPECT_EQ(separators, QStringLiteral("^"));
}

TEST(EvaluateTrack, AFormulaThatWouldFillTheMemoryFails)
{
    // Each token puts its pad text on the track 32,000 times.
    const QString padText(1'000'000, QLatin1Char('x'));
    EXPECT_EQ(FailureIn(QStringLiteral("FD") + padText + QStringLiteral("^32000^0^1"),
                        {QStringLiteral("1")}),
              FailureNumber::Overflow);
    const QStringList padded(20'000, QStringLiteral("FD0^32000^0^1"));
    qsizetype given = 0;
    EXPECT_EQ(FailureOf([&] {
                  EvaluateTrack(padded.join(QLatin1Char('~')), Record({QStringLiteral("1")}), Point,
                                [&](TokenKind, const QString& text) { given += text.size(); });
              }),
              FailureNumber::Overflow);
    EXPECT_LE(given, LongestTrack);
}

TEST(EvaluateTrack, AFormulaReadsALongValueALimitedNumberOfTimes)
{
    // Nothing of the value is left on the track, so only the limit on what is read can end the
    // formula.
    const QString cleanedAway(1'000'000, QLatin1Char('?'));
    const QStringList reads(100'000, QStringLiteral("DAT1"));
    qsizetype tokens = 0;
    EXPECT_EQ(FailureOf([&] {
                  EvaluateTrack(reads.join(QLatin1Char('~')), Record({cleanedAway}), Point,
                                [&](TokenKind, const QString&) { ++tokens; });
              }),
              FailureNumber::Overflow);
    EXPECT_EQ(tokens, LongestTrack / cleanedAway.size());
}

TEST(EvaluateTrack, ALongFormulaIsEvaluatedToItsEnd)
{
    // 10,000 tokens, 100,000 characters.
    const QString formula =
        QStringLiteral("literal12~").repeated(9999) + QStringLiteral("literal123");
    ASSERT_EQ(formula.size(), 100'000);
    const QStringList given = Given(formula);
    EXPECT_EQ(given.size(), 10'000);
    EXPECT_EQ(given.constLast(), QStringLiteral("literal123"));
    // One token of that length, with a word at its end.
    EXPECT_EQ(Given(QString(99'997, u'x') + QStringLiteral("SEP")), QStringList(QString()));
    EXPECT_EQ(FailureIn(QStringLiteral("DAT").repeated(33'333)), FailureNumber::TypeMismatch);
}

} // namespace vantrel::test
