#include "station/commands/NumberCommands.h"
#include "station/commands/InsertCommands.h"
#include "station/layout/DesignSteps.h"
#include "station/layout/LoadLayout.h"
#include "station/layout/SaveLayout.h"
#include "station/layout/SetNumber.h"
#include "store/Schema.h"
#include "support/Layouts.h"
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

const QString Badge = QStringLiteral("Badge");

/// A saved page with a text and an automatic number that has given 1041 numbers.
class SetNumber : public ::testing::Test
{
protected:
    SetNumber()
    {
        Station.Session.Options.DesignTools = true;
        Station.WithDatabase();
        BeginLayout(Station.Session, Badge);
        AddText(Station.Session, QStringLiteral("Visitor"));
        AddNumber(Station.Session, 1041);
        SavePage(Station.Session);
        EXPECT_TRUE(LoadLayout(Station.Session, Badge));
        NoteDesign(Station.Session);
    }
    void Set(const char* typed)
    {
        Station.Operator.Inputs.push_back(QString::fromUtf8(typed));
        SetNumberCommand(Station.Session);
    }
    QStringList Stored() { return StoredNumbers(Station.Session, Badge); }
    CardObject& Number() { return *Station.Session.Document.Find(Family::lbl_AUTO, 1); }
    /// Another session of the same folder, with the layout open.
    struct Other
    {
        explicit Other(TestSession& station)
            : Session(station.Session.ProgramFolder, Operator, Printers)
        {
            Session.Options.DesignTools = true;
            Session.LayoutDb.Open(
                station.Session.PathInFolder(QLatin1StringView(LayoutDatabaseName)));
            Session.CurrentParams.PageIndex = 1;
            EXPECT_TRUE(LoadLayout(Session, Badge));
        }
        TestOperator Operator;
        RecordingPrinters Printers;
        vantrel::Session Session;
    };

    TestSession Station;
};

TEST_F(SetNumber, StoresTheNumberBeforeTheOneThatTheNextCardGets)
{
    Set("2000");
    EXPECT_EQ(Station.Operator.InputBoxes,
              QStringList{QStringLiteral("Set Number|The next card gets the number 1042.\nNumber "
                                         "of the next card:|1042")});
    EXPECT_EQ(Stored(), QStringList{QStringLiteral("1999")});
    EXPECT_EQ(Number().DataField, QStringLiteral("1999"));
    EXPECT_EQ(Number().Caption(), QStringLiteral("1999"));
    EXPECT_TRUE(Station.Operator.AppMessages.isEmpty());
    EXPECT_TRUE(Station.Operator.Boxes.isEmpty());
}

TEST_F(SetNumber, AsksBeforeNumbersAreGivenASecondTimeAndNoIsTheDefault)
{
    Set("500");
    ASSERT_EQ(Station.Operator.AppMessages.size(), 1);
    EXPECT_TRUE(Station.Operator.AppMessages.first().contains(
        QStringLiteral("Numbers up to 1041 were given already.")));
    EXPECT_EQ(Station.Operator.MessageButtons, std::vector{AppMessageButtons::NoYes});
    EXPECT_EQ(Stored(), QStringList{QStringLiteral("1041")});
    Station.Operator.Answers = {true};
    Set("500");
    EXPECT_EQ(Stored(), QStringList{QStringLiteral("499")});
    EXPECT_EQ(Number().Caption(), QStringLiteral("499"));
}

TEST_F(SetNumber, SaysWhatIsNoNumberAndAsksAgain)
{
    for (const char* bad : {"twelve", "-4", "1.5", "0", "1234567890123456"})
        Station.Operator.Inputs.emplace_back(QLatin1StringView(bad));
    Set("999999999999999");
    EXPECT_EQ(Station.Operator.Boxes.size(), 5);
    EXPECT_TRUE(Station.Operator.Boxes.first().contains(QStringLiteral("\"twelve\" is no number")));
    EXPECT_EQ(Stored(), QStringList{QStringLiteral("999999999999998")});
}

TEST_F(SetNumber, SaysThatZerosBeforeANumberDoNotPrint)
{
    Set(" 002000 ");
    EXPECT_EQ(Stored(), QStringList{QStringLiteral("1999")});
    ASSERT_EQ(Station.Operator.Boxes.size(), 1);
    EXPECT_TRUE(Station.Operator.Boxes.first().contains(QStringLiteral("gets the number 2000")));
}

TEST_F(SetNumber, CancelChangesNothing)
{
    SetNumberCommand(Station.Session);
    EXPECT_EQ(Stored(), QStringList{QStringLiteral("1041")});
    EXPECT_EQ(Number().DataField, QStringLiteral("1041"));
}

TEST_F(SetNumber, IsNeitherLostNorPutBackByWhatIsUnsaved)
{
    AddText(Station.Session, QStringLiteral("Not saved"));
    Set("2000");
    EXPECT_EQ(Stored(), QStringList{QStringLiteral("1999")});
    Station.Operator.Answers = {true};
    Set("500");
    SavePage(Station.Session);
    EXPECT_EQ(Stored(), QStringList{QStringLiteral("499")});
}

TEST_F(SetNumber, IsNotPutBackByAStepOfTheDesigner)
{
    Station.Operator.Answers = {true};
    Set("500");
    NoteDesign(Station.Session);
    Station.Session.Document.Remove(Number());
    NoteDesign(Station.Session);
    UndoDesign(Station.Session);
    EXPECT_EQ(Number().DataField, QStringLiteral("499"));
    SavePage(Station.Session);
    EXPECT_EQ(Stored(), QStringList{QStringLiteral("499")});
}

TEST_F(SetNumber, IsNotPutBackByAnotherSessionThatHadThePageOpen)
{
    Other other(Station);
    AddText(other.Session, QStringLiteral("Theirs"));
    Set("2000");
    SavePage(other.Session);
    EXPECT_EQ(Stored(), QStringList{QStringLiteral("1999")});
}

TEST_F(SetNumber, ToALowerOneGivesWayToAPageThatKnowsOfHigherNumbers)
{
    Other other(Station);
    AddText(other.Session, QStringLiteral("Theirs"));
    Station.Operator.Answers = {true};
    Set("500");
    SavePage(other.Session);
    EXPECT_EQ(Stored(), QStringList{QStringLiteral("1041")});
}

TEST_F(SetNumber, OfANumberThatRoseMeanwhileIsAskedAgain)
{
    int asked = 0;
    Station.Operator.WhileAsked = [&] {
        // A card of another session, while the operator types.
        if (++asked > 1)
            return;
        Other other(Station);
        EXPECT_TRUE(SetNextNumber(other.Session, *other.Session.Document.Find(Family::lbl_AUTO, 1),
                                  3001, false));
    };
    Station.Operator.Inputs = {QStringLiteral("2000"), QString()};
    SetNumberCommand(Station.Session);
    ASSERT_EQ(Station.Operator.InputBoxes.size(), 2);
    EXPECT_TRUE(Station.Operator.InputBoxes.last().contains(QStringLiteral("3001")));
    EXPECT_EQ(Stored(), QStringList{QStringLiteral("3000")});
}

TEST_F(SetNumber, TellsWhereTheStoreCannotBeWritten)
{
    Station.Operator.WhileAsked = [&] { Station.Session.LayoutDb.Close(); };
    Set("2000");
    ASSERT_EQ(Station.Operator.CriticalBoxes.size(), 1);
    EXPECT_TRUE(
        Station.Operator.CriticalBoxes.first().contains(QStringLiteral("could not be stored")));
    EXPECT_EQ(Number().DataField, QStringLiteral("1041"));
}

TEST_F(SetNumber, OfANewNumberIsStoredWithItsPage)
{
    InsertAutoNumber(Station.Session);
    CardObject& made = *Station.Session.Document.SelectedObject;
    Set("100");
    EXPECT_EQ(made.DataField, QStringLiteral("99"));
    EXPECT_EQ(Stored(), QStringList{QStringLiteral("1041")});
    SavePage(Station.Session);
    EXPECT_EQ(Stored(), QStringList({QStringLiteral("1041"), QStringLiteral("99")}));
}

TEST_F(SetNumber, IsThatOfTheSelectedNumberOrOfTheOnlyOne)
{
    EXPECT_EQ(NumberAtHand(Station.Session.Document), &Number());
    CardObject& second = AddNumber(Station.Session, 7);
    EXPECT_EQ(NumberAtHand(Station.Session.Document), nullptr);
    SetNumberCommand(Station.Session);
    EXPECT_EQ(Station.Operator.Boxes,
              QStringList{QStringLiteral("Set Number|Select an automatic number on the card "
                                         "first.")});
    Station.Session.Document.SelectedObject = &second;
    EXPECT_EQ(NumberAtHand(Station.Session.Document), &second);
    Station.Session.Document.SelectedObject = Station.Session.Document.Find(Family::lbl_TEXT, 1);
    EXPECT_EQ(NumberAtHand(Station.Session.Document), nullptr);
}

TEST_F(SetNumber, IsDroppedWhenItsPageHasGone)
{
    Station.Operator.WhileAsked = [&] { CloseLayout(Station.Session); };
    Set("2000");
    EXPECT_EQ(Stored(), QStringList{QStringLiteral("1041")});
}

} // namespace
} // namespace vantrel::test
