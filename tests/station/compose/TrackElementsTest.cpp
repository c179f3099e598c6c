#include "station/compose/TrackElements.h"
#include "card/FieldValues.h"
#include "support/Print.h"
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

QString Rewritten(const QString& formula)
{
    return WriteTrackElements(ReadTrackElements(formula));
}

TrackElement ElementOf(const QString& token)
{
    const TrackElements elements = ReadTrackElements(token);
    EXPECT_EQ(elements.size(), 1U) << token.toStdString();
    return elements.front();
}

TEST(TrackElements, EveryTokenIsReadAndWrittenAsItsKindSays)
{
    const struct
    {
        const char16_t* Token;
        TokenKind Kind;
        const char16_t* LinkItem;
        const char16_t* Written;
    } rows[] = {
        {u"DAT3", TokenKind::DataField, u"DAT3", u"DAT3"},
        {u"ACME", TokenKind::Literal, u"ACME", u"ACME"},
        {u"TEXT", TokenKind::Literal, u"TEXT", u"TEXT"},
        {u"SEP", TokenKind::Separator, u"SEP", u"SEP"},
        {u"MOD10", TokenKind::Mod10, u"MOD10", u""},
        {u"CODABAR", TokenKind::Codabar, u"CODABAR", u""},
        {u"EBT", TokenKind::Ebt, u"EBT", u""},
        {u"AUTO2", TokenKind::Auto, u"AUTO2", u""},
        {u"FD0^8^0^2", TokenKind::FormattedField, u"0^8^0^2", u"FD0^8^0^2"},
        {u"FDFD", TokenKind::FormattedField, u"", u"FD"},
        // Words are looked for anywhere in a token.
        {u"UPDATE", TokenKind::DataField, u"UPDATE", u"UPDATE"},
        {u"MODEL", TokenKind::Mod10, u"MOD10", u""},
        {u"SEPARATE", TokenKind::Separator, u"SEP", u"SEP"},
        {u"AUTOMATIC", TokenKind::Auto, u"AUTOMATIC", u""},
        {u"xCODABARx", TokenKind::Codabar, u"CODABAR", u""},
        {u"DEBT", TokenKind::Ebt, u"EBT", u""},
        {u"FDxFDy", TokenKind::FormattedField, u"xy", u"FDxy"},
        {u"dat1", TokenKind::Literal, u"dat1", u"dat1"},
    };
    EXPECT_EQ(std::size(rows), 18U);
    for (const auto& row : rows) {
        const QString token = QString::fromUtf16(row.Token);
        SCOPED_TRACE(token.toStdString());
        const TrackElement element = ElementOf(token);
        EXPECT_EQ(element.Kind, row.Kind);
        EXPECT_EQ(element.LinkItem, QString::fromUtf16(row.LinkItem));
        EXPECT_EQ(Rewritten(token), QString::fromUtf16(row.Written));
    }
}

TEST(TrackElements, ATokenWithSeparatorAndCheckDigitIsASeparatorHereAndACheckDigitOnTheStripe)
{
    EXPECT_EQ(ElementOf(QStringLiteral("SEPMOD")).Kind, TokenKind::Separator);
    EXPECT_EQ(ParseTrackToken(QStringLiteral("SEPMOD"), {}).TokenKind, TokenKind::Mod10);
}

TEST(TrackElements, AnEmptyFormulaHasNoElement)
{
    EXPECT_TRUE(ReadTrackElements(QString()).empty());
    EXPECT_EQ(WriteTrackElements({}), QString());
}

TEST(TrackElements, EmptyTokensStayEmptyLiterals)
{
    const TrackElements elements = ReadTrackElements(QStringLiteral("DAT1~~SEP~"));
    ASSERT_EQ(elements.size(), 4U);
    EXPECT_EQ(elements[1].Kind, TokenKind::Literal);
    EXPECT_EQ(elements[1].ToolTipText, QString());
    EXPECT_EQ(WriteTrackElements(elements), QStringLiteral("DAT1~~SEP~"));
}

TEST(TrackElements, CheckDigitsAndNumbersAreLeftOutBetweenTheOthers)
{
    EXPECT_EQ(Rewritten(QStringLiteral("DAT1~SEP~MOD10~AUTO1~EBT~CODABAR~DAT2")),
              QStringLiteral("DAT1~SEP~DAT2"));
}

TEST(TrackElements, ALiteralIsWrittenAsTypedAndItsDelimiterSplitsIt)
{
    TrackElement text = MakeTrackElement(TokenKind::Literal, QStringLiteral("TEXT"));
    SetStaticText(text, QStringLiteral("A~SEP"));
    EXPECT_EQ(WriteTrackElements({text}), QStringLiteral("A~SEP"));
    EXPECT_EQ(ReadTrackElements(WriteTrackElements({text})).size(), 2U);
}

TEST(TrackElements, TheToolTipShowsTheText)
{
    EXPECT_EQ(ElementOf(QStringLiteral("TEXT")).ToolTipText,
              QStringLiteral("Current Text Value Is   :   Empty"));
    EXPECT_EQ(ElementOf(QStringLiteral("ACME")).ToolTipText, QStringLiteral("ACME"));
    EXPECT_EQ(ElementOf(QStringLiteral("MODEL")).ToolTipText, QStringLiteral("MOD10"));
    EXPECT_EQ(ElementOf(QStringLiteral("FD")).ToolTipText, QString());
}

TEST(TrackElements, AnAnswerBecomesTheTextAndAnEmptyOneChangesNothing)
{
    TrackElement text = MakeTrackElement(TokenKind::Literal, QStringLiteral("TEXT"));
    SetStaticText(text, QString());
    EXPECT_EQ(text.LinkItem, QStringLiteral("TEXT"));
    EXPECT_EQ(text.ToolTipText, QStringLiteral("Current Text Value Is   :   Empty"));
    SetStaticText(text, QStringLiteral("ACME"));
    EXPECT_EQ(text.LinkItem, QStringLiteral("ACME"));
    EXPECT_EQ(text.ToolTipText, QStringLiteral("Current Text Value Is   :   ACME"));
}

TEST(TrackElements, ADropIsRecognisedByItsKey)
{
    const struct
    {
        const char16_t* Key;
        TokenKind Kind;
        const char16_t* LinkItem;
    } rows[] = {
        {u"SEP", TokenKind::Separator, u"SEP"},
        {u"TEXT", TokenKind::Literal, u"TEXT"},
        {u"MOD10", TokenKind::Mod10, u"MOD10"},
        {u"CODABAR", TokenKind::Codabar, u"CODABAR"},
        {u"EBT", TokenKind::Ebt, u"EBT"},
        {u"FD", TokenKind::FormattedField, u"FD"},
        {u"KEY=12", TokenKind::DataField, u"DAT12"},
        {u"ANUM=3", TokenKind::Auto, u"AUTO3"},
    };
    EXPECT_EQ(std::size(rows), 8U);
    for (const auto& row : rows) {
        const QString key = QString::fromUtf16(row.Key);
        SCOPED_TRACE(key.toStdString());
        const auto element = TrackElementOfKey(key);
        ASSERT_TRUE(element.has_value());
        EXPECT_EQ(element->Kind, row.Kind);
        EXPECT_EQ(element->LinkItem, QString::fromUtf16(row.LinkItem));
    }
    for (const char16_t* other : {u"", u"sep", u"MOD", u"AUTO1", u"START", u"Data Field 1"})
        EXPECT_FALSE(TrackElementOfKey(QString::fromUtf16(other)).has_value());
}

TEST(TrackElements, TheTreeOffersKindsThenValuesThenNumbers)
{
    QStringList told;
    for (const ElementNode& node : TrackElementNodes(2, 1))
        told += node.Text + QLatin1Char('|') + node.Key;
    EXPECT_EQ(told, (QStringList{
                        QStringLiteral("Seperator|SEP"), QStringLiteral("Static Text|TEXT"),
                        QStringLiteral("Mod10 Check Digit|MOD10"),
                        QStringLiteral("CodaBar Check Digit|CODABAR"),
                        QStringLiteral("Formatted Data Field|FD"),
                        QStringLiteral("Data Field 1|KEY=1"), QStringLiteral("Data Field 2|KEY=2"),
                        QStringLiteral("AutoNumber Field 1|ANUM=1")}));
}

TEST(TrackElements, EachKindHasItsColoursAndCaption)
{
    const struct
    {
        const char16_t* Token;
        const char16_t* Caption;
        const char16_t* Mark;
        ColorValue BackColor;
    } rows[] = {
        {u"DAT7", u"", u"7", 15566376},     {u"ACME", u"ST", u"", 12883333},
        {u"SEP", u"", u"|", 15566376},      {u"MOD10", u"CD", u"", 12883333},
        {u"CODABAR", u"CD", u"", 12883333}, {u"EBT", u"CD", u"", 12883333},
        {u"AUTO2", u"", u"++2", 15566376},  {u"FD0^8^0^2", u"F", u"", 12883333},
    };
    EXPECT_EQ(std::size(rows), 8U);
    for (const auto& row : rows) {
        const QString token = QString::fromUtf16(row.Token);
        SCOPED_TRACE(token.toStdString());
        const ElementLook look = LookOf(ElementOf(token));
        EXPECT_EQ(look.Caption, QString::fromUtf16(row.Caption));
        EXPECT_EQ(look.Mark, QString::fromUtf16(row.Mark));
        EXPECT_EQ(look.BackColor, row.BackColor);
        EXPECT_FALSE(look.Name.isEmpty());
    }
}

TEST(TrackElements, AFormattedFieldIsReadForItsDialogPartByPart)
{
    const struct
    {
        const char16_t* LinkItem;
        const char16_t* PadChars;
        int PadLen;
        int PadDirection;
    } rows[] = {
        {u"0^8^1^2", u"0", 8, 1},
        {u"FD", u"FD", 0, 0},
        {u"", u"", 0, 0},
        {u"ab^5", u"ab", 5, 0},
        {u"x^long^right^2", u"x", 0, 0},
        {u"x^99999^1^2", u"x", 0, 1},
    };
    EXPECT_EQ(std::size(rows), 6U);
    for (const auto& row : rows) {
        const QString linkItem = QString::fromUtf16(row.LinkItem);
        SCOPED_TRACE(linkItem.toStdString());
        const PadResult form = ReadPad(linkItem);
        EXPECT_EQ(form.PadChars, QString::fromUtf16(row.PadChars));
        EXPECT_EQ(form.PadLen, row.PadLen);
        EXPECT_EQ(form.PadDirection, row.PadDirection);
    }
    EXPECT_EQ(PadText({QStringLiteral("0"), 8, 1, 2}), QStringLiteral("0^8^1^2"));
    EXPECT_EQ(PadText({QString(), 0, 0, 4}), QStringLiteral("^0^0^4"));
}

} // namespace
} // namespace vantrel::test
