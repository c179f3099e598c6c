#include "card/ValueShaping.h"
#include "card/CardObject.h"
#include "card/FieldValues.h"
#include "support/Print.h"
#include <gtest/gtest.h>

using namespace vantrel;

namespace {

/// Shapes fields one after the other with the values of one record, as one pass over a page does.
class Shaping : public ::testing::Test
{
protected:
    QString Shape(const CardObject& field)
    {
        return ShapeDataField(field, Values, Separator, Carried);
    }

    static CardObject Field(int position, const QString& tag = {}, const QString& toolTipText = {},
                            const QString& dataMember = {})
    {
        CardObject field(Family::lbl_DATA, 1);
        field.DataField = QString::number(position);
        field.Tag = tag;
        field.ToolTipText = toolTipText;
        field.DataMember = dataMember;
        return field;
    }

    FieldValues Values;
    QChar Separator = QLatin1Char('.');
    CarriedValue Carried;
};

const QString ASuffixZ = QStringLiteral("A\rZ");

} // namespace

TEST_F(Shaping, CharactersOfTheTagAreDeletedFromTheValue)
{
    Values.Add(QStringLiteral("12-34"));
    EXPECT_EQ(Shape(Field(1, QStringLiteral("-"))), QStringLiteral("1234"));
}

TEST_F(Shaping, EmptyTagLeavesTheValue)
{
    Values.Add(QStringLiteral("12-34"));
    EXPECT_EQ(Shape(Field(1)), QStringLiteral("12-34"));
}

TEST_F(Shaping, BlankInTheTagIsAFilterCharacterToo)
{
    Values.Add(QStringLiteral("1 2-3"));
    EXPECT_EQ(Shape(Field(1, QStringLiteral("- "))), QStringLiteral("123"));
}

TEST_F(Shaping, CheckDigitStandsBetweenTheValueAndTheSuffix)
{
    Values.Add(QStringLiteral("12345"));
    EXPECT_EQ(Shape(Field(1, {}, ASuffixZ, QStringLiteral("MOD10"))), QStringLiteral("A123457Z"));
}

TEST_F(Shaping, CheckDigitCoversTheFilteredValue)
{
    Values.Add(QStringLiteral("1-2-3-4-5"));
    EXPECT_EQ(Shape(Field(1, QStringLiteral("-"), {}, QStringLiteral("MOD10"))),
              QStringLiteral("123457"));
}

TEST_F(Shaping, EachWordNamesItsScheme)
{
    struct Row
    {
        const char* Word;
        const char* Shaped;
    };
    constexpr Row Rows[] = {{"MOD10", "12342"}, {"CODABAR", "12344"}, {"EBT", "12346"},
                            {"mod10", "1234"},  {"False", "1234"},    {"", "1234"}};
    static_assert(std::size(Rows) == 6);
    Values.Add(QStringLiteral("1234"));
    for (const Row& row : Rows) {
        const CardObject field = Field(1, {}, {}, QString::fromLatin1(row.Word));
        EXPECT_EQ(Shape(field), QString::fromLatin1(row.Shaped)) << row.Word;
    }
}

TEST_F(Shaping, EbtDigitGoesByTheMachinesDecimalSeparator)
{
    Values.Add(QStringLiteral("1234"));
    Separator = QLatin1Char(',');
    EXPECT_EQ(Shape(Field(1, {}, {}, QStringLiteral("EBT"))), QStringLiteral("12349"));
    EXPECT_EQ(Shape(Field(1, {}, {}, QStringLiteral("MOD10"))), QStringLiteral("12342"));
}

TEST_F(Shaping, EbtDigitOfTenIsTwoCharacters)
{
    Values.Add(QStringLiteral("91"));
    EXPECT_EQ(Shape(Field(1, {}, {}, QStringLiteral("EBT"))), QStringLiteral("9110"));
}

TEST_F(Shaping, ValueOfFilterCharactersOnlyShowsThePlaceholderAlone)
{
    Values.Add(QStringLiteral("---"));
    EXPECT_EQ(Shape(Field(1, QStringLiteral("-"), ASuffixZ, QStringLiteral("MOD10"))),
              QStringLiteral("Data Field 1"));
}

TEST_F(Shaping, ZeroIsNotEmpty)
{
    Values.Add(QStringLiteral("0"));
    EXPECT_EQ(Shape(Field(1)), QStringLiteral("0"));
}

TEST_F(Shaping, FailingCheckDigitLeavesPrefixAndSuffixOnly)
{
    Values.Add(QStringLiteral("12A"));
    EXPECT_EQ(Shape(Field(1, {}, ASuffixZ, QStringLiteral("MOD10"))), QStringLiteral("AZ"));
    EXPECT_EQ(Shape(Field(1, {}, ASuffixZ, QStringLiteral("EBT"))), QStringLiteral("AZ"));
}

TEST_F(Shaping, CodabarTakesTheBlanksOfTheValueButNotOfTheCaption)
{
    Values.Add(QStringLiteral("7992 7398 71"));
    EXPECT_EQ(Shape(Field(1, {}, {}, QStringLiteral("CODABAR"))), QStringLiteral("7992 7398 713"));
    EXPECT_EQ(Carried.Value, QStringLiteral("7992739871"));
}

TEST_F(Shaping, ValueOfBlanksIsEmptyBehindCodabar)
{
    Values.Add(QStringLiteral("   "));
    EXPECT_EQ(Shape(Field(1, {}, {}, QStringLiteral("CODABAR"))), QStringLiteral("Data Field 1"));
    EXPECT_EQ(Shape(Field(1)), QStringLiteral("   "));
}

TEST_F(Shaping, MissingValueRepeatsTheLastOneWithItsOwnPrefixAndSuffix)
{
    Values.Add(QStringLiteral("A"));
    Values.Add(QStringLiteral("B"));
    EXPECT_EQ(Shape(Field(1)), QStringLiteral("A"));
    EXPECT_EQ(Shape(Field(2)), QStringLiteral("B"));
    EXPECT_EQ(Shape(Field(3, {}, QStringLiteral("(\r)"))), QStringLiteral("(B)"));
}

TEST_F(Shaping, RepeatedValueIsTheFilteredOneWithoutItsDigit)
{
    Values.Add(QStringLiteral("1-2"));
    EXPECT_EQ(Shape(Field(1, QStringLiteral("-"), {}, QStringLiteral("EBT"))),
              QStringLiteral("126"));
    EXPECT_EQ(Shape(Field(2)), QStringLiteral("12"));
    EXPECT_EQ(Shape(Field(3, QStringLiteral("1"))), QStringLiteral("2"));
    EXPECT_EQ(Shape(Field(4)), QStringLiteral("2"));
}

TEST_F(Shaping, FirstFieldWithoutAValueShowsThePlaceholder)
{
    EXPECT_EQ(Shape(Field(4, {}, ASuffixZ)), QStringLiteral("Data Field 4"));
    EXPECT_EQ(Shape(Field(2)), QStringLiteral("Data Field 2"));
}

TEST_F(Shaping, PositionsThatNoRecordHasRepeatTheLastValue)
{
    Values.Add(QStringLiteral("A"));
    CardObject unreadable = Field(1);
    unreadable.DataField = QStringLiteral("x");
    EXPECT_EQ(Shape(Field(1)), QStringLiteral("A"));
    EXPECT_EQ(Shape(Field(0)), QStringLiteral("A"));
    EXPECT_EQ(Shape(Field(-1)), QStringLiteral("A"));
    EXPECT_EQ(Shape(unreadable), QStringLiteral("A"));
}

TEST_F(Shaping, PrefixAndSuffixStayWhereTheTextIsEmpty)
{
    Values.Add(QStringLiteral("1"));
    EXPECT_EQ(Shape(Field(1, {}, ASuffixZ)), QStringLiteral("A1Z"));
    EXPECT_EQ(Shape(Field(1)), QStringLiteral("A1Z"));
}

TEST_F(Shaping, TextWithoutACarriageReturnKeepsTheSuffix)
{
    Values.Add(QStringLiteral("1"));
    EXPECT_EQ(Shape(Field(1, {}, ASuffixZ)), QStringLiteral("A1Z"));
    EXPECT_EQ(Shape(Field(1, {}, QStringLiteral("B"))), QStringLiteral("B1Z"));
}

TEST_F(Shaping, CarriageReturnAloneEmptiesPrefixAndSuffix)
{
    Values.Add(QStringLiteral("1"));
    EXPECT_EQ(Shape(Field(1, {}, ASuffixZ)), QStringLiteral("A1Z"));
    EXPECT_EQ(Shape(Field(1, {}, QStringLiteral("\r"))), QStringLiteral("1"));
}

TEST_F(Shaping, PlaceholderFieldStillHandsItsPrefixOn)
{
    Values.Add(QStringLiteral("-"));
    Values.Add(QStringLiteral("2"));
    EXPECT_EQ(Shape(Field(1, QStringLiteral("-"), ASuffixZ)), QStringLiteral("Data Field 1"));
    EXPECT_EQ(Shape(Field(2)), QStringLiteral("A2Z"));
}
