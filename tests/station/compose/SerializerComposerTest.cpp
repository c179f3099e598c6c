#include "station/compose/SerializerComposer.h"
#include "station/layout/LayoutParams.h"
#include "station/layout/LoadLayout.h"
#include "station/layout/StoreStatements.h"
#include "station/print/Serializer.h"
#include "store/Recordset.h"
#include "support/Layouts.h"
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

const QString Mailer = QStringLiteral("Mailer");

class SerializerComposer : public ::testing::Test
{
protected:
    SerializerComposer()
    {
        Test.WithDatabase();
        BeginLayout(Session, Mailer, PrinterTypeCode::Serialized);
        AddText(Session, QStringLiteral("Visitor"));
        SavePage(Session);
    }

    /// Saves a row made of these drops; a drop of "TEXT:x" gives the text element the text "x".
    void Save(const QStringList& drops, const QString& filter = QString())
    {
        vantrel::SerializerComposer composer(Session);
        composer.Clear();
        Drop(composer, drops);
        composer.SaveStreamElements(filter);
    }

    static void Drop(vantrel::SerializerComposer& composer, const QStringList& drops)
    {
        for (const QString& drop : drops) {
            composer.Drop(drop.section(QLatin1Char(':'), 0, 0));
            if (drop.contains(QLatin1Char(':')))
                composer.Find(static_cast<int>(composer.Row().size()) - 1)
                    ->SetText(drop.section(QLatin1Char(':'), 1));
        }
    }

    /// The stored row as "type=data", nulls as "null".
    QStringList Stored(const QString& layoutName = Mailer)
    {
        const auto told = [](const QVariant& value) {
            return value.isNull() ? QStringLiteral("null") : value.toString();
        };
        QStringList all;
        Recordset rows(Session.LayoutDb);
        for (rows.Open(StreamOfLayout(layoutName)); !rows.IsEof(); rows.MoveNext())
            all += told(rows.Value(QStringLiteral("ElementType"))) + QLatin1Char('=') +
                   told(rows.Value(QStringLiteral("ElementData")));
        return all;
    }

    QStringList Filters()
    {
        QStringList all;
        Recordset rows(Session.LayoutDb);
        for (rows.Open(FilterOfLayout(Mailer)); !rows.IsEof(); rows.MoveNext())
            all += rows.Value(QStringLiteral("Filter")).toString();
        return all;
    }

    QStringList Tags()
    {
        QStringList tags;
        const vantrel::SerializerComposer composer(Session);
        for (const StreamElement& element : composer.Row())
            tags += element.Tag;
        return tags;
    }

    TestSession Test;
    vantrel::Session& Session = Test.Session;
};

TEST_F(SerializerComposer, ARowIsStoredInItsOrderAndSentWithTheRecord)
{
    Save({QStringLiteral("START"), QStringLiteral("KEY=1"), QStringLiteral("TEXT:X"),
          QStringLiteral("KEY=2"), QStringLiteral("CR"), QStringLiteral("STOP")},
         QStringLiteral("-"));
    EXPECT_EQ(Stored(), (QStringList{QStringLiteral("3=null"), QStringLiteral("0=1"),
                                     QStringLiteral("1=X"), QStringLiteral("0=2"),
                                     QStringLiteral("5=null"), QStringLiteral("4=null")}));
    SetRecord(Session, {QStringLiteral("12-3"), QStringLiteral("ab")});
    EXPECT_EQ(BuildSerializerPattern(Session), QStringLiteral(" <123Xab\r>"));
    EXPECT_EQ(Tags(),
              (QStringList{QStringLiteral("START"), QStringLiteral("DAT1"), QStringLiteral("TEXT"),
                           QStringLiteral("DAT2"), QStringLiteral("CR"), QStringLiteral("STOP")}));
}

TEST_F(SerializerComposer, SavingReplacesTheRowOfThisLayoutOnly)
{
    Save({QStringLiteral("START"), QStringLiteral("CR")});
    Session.CurrentLayoutName = QStringLiteral("Other");
    Save({QStringLiteral("STOP")});
    Session.CurrentLayoutName = Mailer;
    Save({QStringLiteral("CR")});
    EXPECT_EQ(Stored(), QStringList{QStringLiteral("5=null")});
    EXPECT_EQ(Stored(QStringLiteral("Other")), QStringList{QStringLiteral("4=null")});
}

TEST_F(SerializerComposer, ATextIsStoredWithoutTheWordOfItsTag)
{
    Save({QStringLiteral("TEXT:MYTEXT"), QStringLiteral("TEXT")});
    EXPECT_EQ(Stored(), (QStringList{QStringLiteral("1=MY"), QStringLiteral("1=")}));
}

TEST_F(SerializerComposer, AFilterCodeIsStoredAndAppliedAsItsCharacter)
{
    Save({QStringLiteral("KEY=1")}, QStringLiteral("[2D]"));
    EXPECT_EQ(Filters(), QStringList{QStringLiteral("-")});
    EXPECT_EQ(Session.CurrentParams.Filter, QStringLiteral("-"));
    SetRecord(Session, {QStringLiteral("1-2")});
    EXPECT_EQ(BuildSerializerPattern(Session), QStringLiteral(" 12"));
    EXPECT_EQ(vantrel::SerializerComposer(Session).Filter(), QStringLiteral("-"));
}

TEST_F(SerializerComposer, OnlyTheFirstPageReceivesTheFilter)
{
    BeginPage(Session, 2);
    AddText(Session, QStringLiteral("Back"));
    SavePage(Session);
    Save({}, QStringLiteral("x"));
    EXPECT_EQ(Session.CurrentParams.PageIndex, 2);
    EXPECT_EQ(Session.CurrentParams.Filter, QStringLiteral("x"));
    EXPECT_EQ(Filters(), (QStringList{QStringLiteral("x"), QString()}));
    EXPECT_EQ(vantrel::SerializerComposer(Session).Filter(), QStringLiteral("x"));
    LoadLayoutParams(Session);
    EXPECT_EQ(Session.CurrentParams.Filter, QString());
}

TEST_F(SerializerComposer, ARowOfNoKindIsNotShownAndTheNextSaveDropsIt)
{
    Save({QStringLiteral("START"), QStringLiteral("AUTO=1"), QStringLiteral("STOP")});
    EXPECT_EQ(Stored(), (QStringList{QStringLiteral("3=null"), QStringLiteral("null=null"),
                                     QStringLiteral("4=null")}));
    EXPECT_EQ(BuildSerializerPattern(Session), QStringLiteral(" <>"));
    vantrel::SerializerComposer composer(Session);
    EXPECT_EQ(composer.Row().size(), 2U);
    composer.SaveStreamElements(QString());
    EXPECT_EQ(Stored(), (QStringList{QStringLiteral("3=null"), QStringLiteral("4=null")}));
}

TEST_F(SerializerComposer, ClearingStoresNothingUntilSaved)
{
    Save({QStringLiteral("START")});
    vantrel::SerializerComposer composer(Session);
    composer.Clear();
    EXPECT_EQ(Stored(), QStringList{QStringLiteral("3=null")});
    composer.SaveStreamElements(QString());
    EXPECT_TRUE(Stored().isEmpty());
}

TEST_F(SerializerComposer, TheRememberedElementIsRemovedOnce)
{
    Save({QStringLiteral("START"), QStringLiteral("CR"), QStringLiteral("STOP")});
    vantrel::SerializerComposer composer(Session);
    composer.RemoveRemembered();
    EXPECT_EQ(composer.Row().size(), 3U);
    composer.Remember(1);
    composer.RemoveRemembered();
    composer.RemoveRemembered();
    ASSERT_EQ(composer.Row().size(), 2U);
    EXPECT_EQ(composer.Row()[1].Tag, QStringLiteral("STOP"));
    composer.Remember(2);
    composer.RemoveRemembered();
    EXPECT_EQ(composer.Row().size(), 2U);
}

TEST_F(SerializerComposer, WithTheStoreClosedTheRowIsEmptyAndTheFilterStillReachesMemory)
{
    Save({QStringLiteral("START")}, QStringLiteral("x"));
    Session.LayoutDb.Close();
    vantrel::SerializerComposer composer(Session);
    EXPECT_TRUE(composer.Row().empty());
    EXPECT_EQ(composer.Filter(), QString());
    composer.SaveStreamElements(QStringLiteral("y"));
    EXPECT_EQ(Session.CurrentParams.Filter, QStringLiteral("y"));
}

TEST_F(SerializerComposer, ALayoutClosedMeanwhileStoresNoStreamWithoutALayout)
{
    vantrel::SerializerComposer composer(Session);
    composer.Drop(QStringLiteral("START"));
    CloseLayout(Session);
    composer.SaveStreamElements(QStringLiteral("x"));
    EXPECT_TRUE(Stored(QString()).isEmpty());
    EXPECT_EQ(Session.CurrentParams.Filter, QString());
}

TEST_F(SerializerComposer, ANullFilterReadsAsEmpty)
{
    EXPECT_EQ(vantrel::SerializerComposer(Session).Filter(), QString());
}

TEST_F(SerializerComposer, ThePreviewIsWhatWouldBeSentAndRaisesNoNumber)
{
    CardObject& number = AddNumber(Session, 5);
    SetRecord(Session, {QStringLiteral("1-2"), QStringLiteral("ab")});
    vantrel::SerializerComposer composer(Session);
    Drop(composer, {QStringLiteral("START"), QStringLiteral("KEY=1"), QStringLiteral("TEXT:MYTEXT"),
                    QStringLiteral("KEY=9"), QStringLiteral("HEX:41"), QStringLiteral("AUTO=1"),
                    QStringLiteral("KEY=2"), QStringLiteral("CR"), QStringLiteral("STOP")});
    const QString preview = composer.Preview(QStringLiteral("[2D]"));
    EXPECT_EQ(preview, QStringLiteral(" <12MYab\r>"));
    EXPECT_EQ(number.DataField, QStringLiteral("5"));
    EXPECT_EQ(Session.CurrentParams.Filter, QString());
    EXPECT_TRUE(Stored().isEmpty());
    composer.SaveStreamElements(QStringLiteral("[2D]"));
    EXPECT_EQ(BuildSerializerPattern(Session), preview);
}

} // namespace
} // namespace vantrel::test
