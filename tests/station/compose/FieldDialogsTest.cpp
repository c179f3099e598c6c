#include "station/compose/FieldDialogs.h"
#include "support/FailureOf.h"
#include "support/Layouts.h"
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

class FieldDialogsTest : public ::testing::Test
{
protected:
    FieldDialogsTest() { BeginLayout(Station.Session, QStringLiteral("Badge")); }

    void Select(CardObject& object)
    {
        CardDocument& document = Station.Session.Document;
        document.SelectedObject = &object;
        document.SelectedIndex = object.Index();
        document.SelectedFamily = FamilyName(object.Family());
    }

    TestSession Station;
};

TEST(PadRules, OpeningTheDialogKeepsTheFieldOnly)
{
    PadResult pad{QStringLiteral("0"), 8, 1, 2};
    BeginPad(pad);
    EXPECT_EQ(pad.PadChars, QString());
    EXPECT_EQ(pad.PadLen, 0);
    EXPECT_EQ(pad.PadDirection, 0);
    EXPECT_EQ(pad.PadField, 2);
}

TEST(PadRules, OneTextPerValueChoosesItsField)
{
    TestSession station;
    QStringList record;
    for (int number = 1; number <= 12; ++number)
        record.append(QString::number(number * number));
    SetRecord(station.Session, record);
    const QStringList texts = PadFieldTexts(station.Session.FieldValues);
    ASSERT_EQ(texts.size(), 12);
    EXPECT_EQ(texts.first(), QStringLiteral("Data Field 1"));
    PadResult pad;
    for (int number = 1; number <= 12; ++number) {
        ChoosePadField(pad, texts[number - 1]);
        EXPECT_EQ(pad.PadField, number);
    }
}

TEST(PadRules, ALengthBelowOneIsBypassed)
{
    EXPECT_EQ(PadLengthText(1), QStringLiteral("1"));
    EXPECT_EQ(PadLengthText(32767), QStringLiteral("32767"));
    EXPECT_EQ(PadLengthText(0), QStringLiteral("BYP"));
    EXPECT_EQ(PadLengthText(-1), QStringLiteral("BYP"));
}

TEST(PadRules, SavingTakesAllValuesOrFails)
{
    PadResult pad{QStringLiteral("x"), 3, 0, 2};
    EXPECT_EQ(FailureOf([&] { SavePad(pad, QStringLiteral("0"), QStringLiteral("BYP"), 1); }),
              FailureNumber::TypeMismatch);
    EXPECT_EQ(FailureOf([&] { SavePad(pad, QStringLiteral("0"), QStringLiteral("32768"), 1); }),
              FailureNumber::Overflow);
    EXPECT_EQ(pad.PadChars, QStringLiteral("x"));
    EXPECT_EQ(pad.PadLen, 3);
    SavePad(pad, QStringLiteral("0"), QStringLiteral("8"), 1);
    EXPECT_EQ(pad.PadChars, QStringLiteral("0"));
    EXPECT_EQ(pad.PadLen, 8);
    EXPECT_EQ(pad.PadDirection, 1);
    EXPECT_EQ(pad.PadField, 2);
}

TEST(PadRules, OnlyANumberOfSixteenBitsIsALength)
{
    EXPECT_TRUE(IsPadLength(QStringLiteral("8")));
    EXPECT_TRUE(IsPadLength(QStringLiteral("32767")));
    for (const char* text : {"", "BYP", "32768", "8 characters"})
        EXPECT_FALSE(IsPadLength(QLatin1StringView(text))) << text;
}

TEST_F(FieldDialogsTest, PrefixAndSuffixStandAroundACarriageReturn)
{
    AddField(Station.Session, 1);
    CardObject& field = AddField(Station.Session, 2);
    Select(field);
    EXPECT_EQ(SelectedPreSuffix(Station.Session.Document).Prefix, QString());
    SavePreSuffix(Station.Session.Document, {QStringLiteral("No. "), QStringLiteral(" !")});
    EXPECT_EQ(field.ToolTipText, QStringLiteral("No. \r !"));
    EXPECT_EQ(SelectedPreSuffix(Station.Session.Document).Prefix, QStringLiteral("No. "));
    EXPECT_EQ(SelectedPreSuffix(Station.Session.Document).Suffix, QStringLiteral(" !"));
    EXPECT_EQ(Station.Session.Document.Find(Family::lbl_DATA, 1)->ToolTipText, QString());
}

TEST_F(FieldDialogsTest, ATextWithoutACarriageReturnIsAPrefix)
{
    CardObject& field = AddField(Station.Session, 1);
    Select(field);
    field.ToolTipText = QStringLiteral("No. ");
    EXPECT_EQ(SelectedPreSuffix(Station.Session.Document).Prefix, QStringLiteral("No. "));
    EXPECT_EQ(SelectedPreSuffix(Station.Session.Document).Suffix, QString());
}

TEST_F(FieldDialogsTest, PrefixAndSuffixGoToTheDataFieldOfTheSelectedIndex)
{
    CardObject& field = AddField(Station.Session, 1);
    CardObject& text = AddText(Station.Session, QStringLiteral("Visitor"));
    Select(text);
    SavePreSuffix(Station.Session.Document, {QStringLiteral("A"), QStringLiteral("Z")});
    EXPECT_EQ(field.ToolTipText, QStringLiteral("A\rZ"));
    EXPECT_EQ(text.ToolTipText, QString());
    CardObject& second = AddText(Station.Session, QStringLiteral("Host"));
    Select(second);
    EXPECT_EQ(SelectedPreSuffix(Station.Session.Document).Prefix, QString());
    SavePreSuffix(Station.Session.Document, {QStringLiteral("B"), QString()});
    EXPECT_EQ(field.ToolTipText, QStringLiteral("A\rZ"));
}

TEST_F(FieldDialogsTest, FiltersAreTheTagOfTheSelectedObject)
{
    CardObject& field = AddField(Station.Session, 1);
    CardObject& number = AddNumber(Station.Session, 1);
    EXPECT_EQ(SelectedFilters(Station.Session.Document), QString());
    SaveFilters(Station.Session.Document, QStringLiteral("-"));
    EXPECT_EQ(field.Tag, QString());
    Select(number);
    SaveFilters(Station.Session.Document, QStringLiteral("- "));
    EXPECT_EQ(number.Tag, QStringLiteral("- "));
    EXPECT_EQ(SelectedFilters(Station.Session.Document), QStringLiteral("- "));
    EXPECT_EQ(field.Tag, QString());
}

} // namespace
} // namespace vantrel::test
