#include "station/print/Serializer.h"
#include "card/CardObject.h"
#include "store/Recordset.h"
#include "support/Layouts.h"
#include <gtest/gtest.h>

namespace vantrel::test {

namespace {

const QString Mailer = QStringLiteral("Mailer");

class Serializer : public ::testing::Test
{
protected:
    Serializer()
    {
        Test.WithDatabase();
        BeginLayout(Session, Mailer, PrinterTypeCode::Serialized);
    }

    void AddElement(const QVariant& type, const QVariant& data = QVariant(),
                    const QString& layoutName = Mailer)
    {
        Recordset rows(Session.LayoutDb);
        rows.Open(
            QStringLiteral("SELECT * FROM [Serializer] WHERE [LayoutName] = '%1'").arg(layoutName),
            CursorLock::Optimistic);
        rows.AddNew();
        rows.SetValue(QStringLiteral("LayoutName"), layoutName);
        rows.SetValue(QStringLiteral("ElementType"), type);
        rows.SetValue(QStringLiteral("ElementData"), data);
        rows.Update();
    }

    TestSession Test;
    vantrel::Session& Session = Test.Session;
};

TEST_F(Serializer, RendersThePatternWithTheFilteredValuesOfTheRecord)
{
    AddElement(3);
    AddElement(0, QStringLiteral("1"));
    AddElement(1, QStringLiteral("X"));
    AddElement(0, QStringLiteral("2"));
    AddElement(5);
    AddElement(4);
    SetRecord(Session, {QStringLiteral("12-3"), QStringLiteral("ab")});
    Session.CurrentParams.Filter = QStringLiteral("-");
    EXPECT_EQ(BuildSerializerPattern(Session), QStringLiteral(" <123Xab\r>"));
}

TEST_F(Serializer, WithoutElementsGivesOneBlank)
{
    AddElement(1, QStringLiteral("X"), QStringLiteral("Other"));
    EXPECT_EQ(BuildSerializerPattern(Session), QStringLiteral(" "));
}

TEST_F(Serializer, TheFilterTouchesOnlyValues)
{
    AddElement(1, QStringLiteral("a-b"));
    AddElement(0, QStringLiteral("1"));
    SetRecord(Session, {QStringLiteral("A-a.B")});
    Session.CurrentParams.Filter = QStringLiteral("-a<");
    EXPECT_EQ(BuildSerializerPattern(Session), QStringLiteral(" a-bA.B"));
}

TEST_F(Serializer, AMissingValueAddsNothingAndTheRestComesOut)
{
    SetRecord(Session, {QStringLiteral("one")});
    const QVariant positions[] = {QStringLiteral("0"), QStringLiteral("2"), QStringLiteral("-1"),
                                  QStringLiteral("first"), QVariant()};
    for (const QVariant& position : positions)
        AddElement(0, position);
    AddElement(0, QStringLiteral("1"));
    EXPECT_EQ(BuildSerializerPattern(Session), QStringLiteral(" one"));
}

TEST_F(Serializer, HexUnknownAndNullTypesRenderNothing)
{
    AddElement(2, QStringLiteral("41"));
    AddElement(6, QStringLiteral("x"));
    AddElement(-1, QStringLiteral("x"));
    AddElement(QVariant(), QStringLiteral("x"));
    AddElement(1);
    AddElement(4);
    EXPECT_EQ(BuildSerializerPattern(Session), QStringLiteral(" >"));
}

TEST_F(Serializer, PrefixCheckDigitAndTheObjectsFilterHaveNoEffect)
{
    CardObject& field = AddField(Session, 1);
    field.Tag = QStringLiteral("1");
    field.ToolTipText = QStringLiteral("P\rS");
    field.DataMember = QStringLiteral("MOD10");
    SetRecord(Session, {QStringLiteral("1234")});
    AddElement(0, QStringLiteral("1"));
    EXPECT_EQ(BuildSerializerPattern(Session), QStringLiteral(" 1234"));
}

TEST_F(Serializer, EveryNumberOfTheOpenPageRisesOncePerOutput)
{
    CardObject& first = AddNumber(Session, 1);
    CardObject& broken = AddNumber(Session, 5);
    broken.DataField = QStringLiteral("none");
    CardObject& last = AddNumber(Session, 10);
    CardObject& text = AddText(Session, QStringLiteral("7"));
    text.LinkItem = Marker::AutoNumber;
    text.DataField = QStringLiteral("7");
    BuildSerializerPattern(Session);
    EXPECT_EQ(first.Caption(), QStringLiteral("2"));
    EXPECT_EQ(broken.DataField, QStringLiteral("none"));
    EXPECT_EQ(last.Caption(), QStringLiteral("11"));
    // Whatever its mark says, only objects of the number family are raised.
    EXPECT_EQ(text.DataField, QStringLiteral("7"));
}

TEST_F(Serializer, WithTheStoreClosedNumbersStillRiseAndOneBlankComesOut)
{
    CardObject& number = AddNumber(Session, 1);
    Session.LayoutDb.Close();
    EXPECT_EQ(BuildSerializerPattern(Session), QStringLiteral(" "));
    EXPECT_EQ(number.Caption(), QStringLiteral("2"));
}

} // namespace

} // namespace vantrel::test
