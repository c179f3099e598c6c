#include "station/compose/TrackComposer.h"
#include "base/Failure.h"
#include "station/compose/FieldDialogs.h"
#include "station/layout/LayoutParams.h"
#include "support/FailureOf.h"
#include "support/Layouts.h"
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

class TrackComposer : public ::testing::Test
{
protected:
    TrackComposer()
    {
        Test.WithDatabase();
        BeginLayout(Session, QStringLiteral("Badge"), PrinterTypeCode::Fargo);
        AddText(Session, QStringLiteral("Visitor"));
        SavePage(Session);
    }

    /// The formula that the store holds for a track after these drops are saved.
    QString Saved(const QStringList& keys)
    {
        vantrel::TrackComposer composer(Session);
        for (const QString& key : keys)
            composer.Drop(1, key);
        composer.Save();
        Session.CurrentParams.Track1 = QStringLiteral("not read");
        LoadLayoutParams(Session);
        return Session.CurrentParams.Track1;
    }

    /// The preview of track 2 with these drops.
    TrackPreview PreviewOf(const QStringList& keys)
    {
        vantrel::TrackComposer composer(Session);
        for (const QString& key : keys)
            composer.Drop(2, key);
        return composer.Preview(2);
    }

    TestSession Test;
    vantrel::Session& Session = Test.Session;
};

TEST_F(TrackComposer, ARowWithOnlyACheckDigitSavesAnEmptyTrack)
{
    EXPECT_EQ(Saved({QStringLiteral("MOD10")}), QString());
}

TEST_F(TrackComposer, ACheckDigitIsLeftOutBetweenFields)
{
    EXPECT_EQ(Saved({QStringLiteral("KEY=1"), QStringLiteral("SEP"), QStringLiteral("MOD10"),
                     QStringLiteral("KEY=2")}),
              QStringLiteral("DAT1~SEP~DAT2"));
}

TEST_F(TrackComposer, AFormattedFieldNeverOpenedIsSavedWithoutPaddingAndThenLosesItsWord)
{
    EXPECT_EQ(Saved({QStringLiteral("FD")}), QStringLiteral("FDFD"));
    vantrel::TrackComposer again(Session);
    ASSERT_EQ(again.Row(1).size(), 1U);
    EXPECT_EQ(again.Row(1).front().LinkItem, QString());
    EXPECT_EQ(again.Ostrand_Encode(1), QStringLiteral("FD"));
}

TEST_F(TrackComposer, AStoredFormattedFieldSavesUnchanged)
{
    Session.CurrentParams.Track1 = QStringLiteral("FD0^8^0^2");
    EXPECT_EQ(Saved({}), QStringLiteral("FD0^8^0^2"));
}

TEST_F(TrackComposer, AnUneditedStaticTextIsSavedAsItsWord)
{
    EXPECT_EQ(Saved({QStringLiteral("TEXT")}), QStringLiteral("TEXT"));
    EXPECT_EQ(ParseTrackToken(Session.CurrentParams.Track1, {}).TokenValue, QStringLiteral("TEXT"));
}

TEST_F(TrackComposer, ACancelledPaddingKeepsOnlyTheFieldLastClicked)
{
    Session.CurrentParams.Track1 = QStringLiteral("FD0^8^1^2");
    vantrel::TrackComposer composer(Session);
    Session.Pad = {QStringLiteral("left"), 9, 1, 5};
    BeginPad(Session.Pad);
    composer.TakePad(1, 0);
    EXPECT_EQ(composer.Ostrand_Encode(1), QStringLiteral("FD^0^0^5"));
}

TEST_F(TrackComposer, AFormattedFieldTakesTheDialogsValuesAndKeepsOnlyTheField)
{
    vantrel::TrackComposer composer(Session);
    composer.Drop(1, QStringLiteral("FD"));
    Session.Pad = {QStringLiteral("0"), 8, 1, 2};
    composer.TakePad(1, 0);
    EXPECT_EQ(composer.Ostrand_Encode(1), QStringLiteral("FD0^8^1^2"));
    EXPECT_EQ(PadText(Session.Pad), QStringLiteral("^0^0^2"));
    composer.TakePad(1, 7);
    EXPECT_EQ(composer.Row(1).size(), 1U);
}

TEST_F(TrackComposer, EachRowIsWrittenToItsOwnTrack)
{
    vantrel::TrackComposer composer(Session);
    composer.Drop(1, QStringLiteral("KEY=1"));
    composer.Drop(2, QStringLiteral("KEY=2"));
    composer.Drop(3, QStringLiteral("KEY=3"));
    EXPECT_EQ(Session.CurrentParams.Track2, QString());
    EXPECT_EQ(composer.Ostrand_Encode(2), QStringLiteral("DAT2"));
    EXPECT_EQ(Session.CurrentParams.Track1, QString());
    EXPECT_EQ(Session.CurrentParams.Track2, QStringLiteral("DAT2"));
    composer.Save();
    EXPECT_EQ(Session.CurrentParams.Track1, QStringLiteral("DAT1"));
    EXPECT_EQ(Session.CurrentParams.Track3, QStringLiteral("DAT3"));
}

TEST_F(TrackComposer, SavingReachesTheRowOfAPageThatHasNoneYet)
{
    BeginPage(Session, 2);
    vantrel::TrackComposer composer(Session);
    composer.Drop(1, QStringLiteral("KEY=1"));
    composer.Save();
    Session.CurrentParams.Track1.clear();
    LoadLayoutParams(Session);
    EXPECT_EQ(Session.CurrentParams.Track1, QStringLiteral("DAT1"));
    EXPECT_EQ(Session.CurrentParams.PageIndex, 2);
}

TEST_F(TrackComposer, SavingFailsWhereTheStoreIsClosed)
{
    vantrel::TrackComposer composer(Session);
    Session.LayoutDb.Close();
    EXPECT_EQ(FailureOf([&] { composer.Save(); }), FailureNumber::ObjectClosed);
}

TEST_F(TrackComposer, ADropSelectsItsRowEvenIfItsKeyMakesNoElement)
{
    vantrel::TrackComposer composer(Session);
    EXPECT_EQ(composer.SelectedTrack(), 0);
    composer.Drop(3, QStringLiteral("nothing"));
    EXPECT_EQ(composer.SelectedTrack(), 3);
    EXPECT_TRUE(composer.Row(3).empty());
}

TEST_F(TrackComposer, ClearingEmptiesTheSelectedRowOnly)
{
    Session.CurrentParams.Track1 = QStringLiteral("DAT1");
    Session.CurrentParams.Track2 = QStringLiteral("DAT2~SEP");
    vantrel::TrackComposer composer(Session);
    composer.Select(2);
    composer.ClearTrack();
    EXPECT_EQ(composer.Row(1).size(), 1U);
    EXPECT_TRUE(composer.Row(2).empty());
    EXPECT_TRUE(Test.Operator.Boxes.isEmpty());
}

TEST_F(TrackComposer, ClearingWithoutASelectedRowAsksToSelectOne)
{
    Session.CurrentParams.Track1 = QStringLiteral("DAT1");
    vantrel::TrackComposer composer(Session);
    composer.ClearTrack();
    EXPECT_EQ(
        Test.Operator.Boxes,
        (QStringList{QStringLiteral("Select a Track|You must select a track to clear first! ")}));
    EXPECT_EQ(Test.Operator.Icons, (std::vector{BoxIcon::Information}));
    EXPECT_EQ(composer.Row(1).size(), 1U);
}

TEST_F(TrackComposer, ThereIsNoFourthTrack)
{
    vantrel::TrackComposer composer(Session);
    for (const std::int16_t track : std::initializer_list<std::int16_t>{0, 4, -1})
        EXPECT_EQ(FailureOf([&] { composer.Ostrand_Encode(track); }),
                  FailureNumber::SubscriptOutOfRange);
}

TEST_F(TrackComposer, TheTreeHoldsTheLastRecordAndTheNumbersOfThePage)
{
    SetRecord(Session, {QStringLiteral("a"), QStringLiteral("b")});
    AddNumber(Session, 1);
    const auto nodes = vantrel::TrackComposer(Session).Nodes();
    ASSERT_EQ(nodes.size(), 8U);
    EXPECT_EQ(nodes[6].Key, QStringLiteral("KEY=2"));
    EXPECT_EQ(nodes[7].Text, QStringLiteral("AutoNumber Field 1"));
}

TEST_F(TrackComposer, ThePreviewIsWhatThePrinterWouldEncode)
{
    SetRecord(Session, {QStringLiteral("ab-c"), QStringLiteral("12")});
    const QStringList keys = {QStringLiteral("KEY=1"), QStringLiteral("SEP"),
                              QStringLiteral("TEXT"), QStringLiteral("MOD10")};
    Test.Printers.Operations.clear();
    EXPECT_EQ(PreviewOf(keys).Text, QStringLiteral("ABC=TEXT"));
    Session.CurrentParams.PrinterType = PrinterTypeCode::Nisca;
    EXPECT_EQ(PreviewOf(keys).Text, QStringLiteral("ABC="));
    Session.CurrentParams.PrinterType = PrinterTypeCode::Plain;
    EXPECT_EQ(PreviewOf(keys).Text, QStringLiteral("ABC=TEXT"));
    EXPECT_TRUE(Test.Printers.Operations.isEmpty());
}

TEST_F(TrackComposer, ThePreviewNamesTheTokenThatCannotBeRead)
{
    SetRecord(Session, {QStringLiteral("one")});
    const TrackPreview missing =
        PreviewOf({QStringLiteral("KEY=1"), QStringLiteral("KEY=2"), QStringLiteral("TEXT")});
    EXPECT_EQ(missing.Text, QString());
    EXPECT_EQ(missing.Remark, QStringLiteral("\"DAT2\" cannot be read with the last record"));
    EXPECT_EQ(PreviewOf({QStringLiteral("FD")}).Remark,
              QStringLiteral("\"FDFD\" cannot be read with the last record"));
    EXPECT_EQ(PreviewOf({QStringLiteral("KEY=1")}).Remark, QString());
    EXPECT_EQ(PreviewOf({QStringLiteral("MOD10")}).Remark,
              QStringLiteral("Nothing goes onto this track"));
}

TEST_F(TrackComposer, ThePreviewChangesNothing)
{
    SetRecord(Session, {QStringLiteral("one")});
    CardObject& number = AddNumber(Session, 5);
    vantrel::TrackComposer composer(Session);
    composer.Drop(1, QStringLiteral("KEY=1"));
    composer.Drop(1, QStringLiteral("ANUM=1"));
    EXPECT_EQ(composer.Preview(1).Text, QStringLiteral("ONE"));
    EXPECT_EQ(Session.CurrentParams.Track1, QString());
    EXPECT_EQ(number.DataField, QStringLiteral("5"));
    EXPECT_EQ(composer.Row(1).size(), 2U);
}

} // namespace
} // namespace vantrel::test
