#include "station/capture/Pipeline.h"
#include "station/commands/Commands.h"
#include "station/commands/InsertCommands.h"
#include "station/commands/LayoutWizard.h"
#include "station/compose/CardSequence.h"
#include "station/compose/DocumentGenerator.h"
#include "station/layout/DesignSteps.h"
#include "station/layout/Navigation.h"
#include "support/Layouts.h"
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

/// A stored layout of two pages with the first one open, and a stored second layout.
class UnsavedChanges : public ::testing::Test
{
protected:
    UnsavedChanges()
    {
        Station.WithDatabase();
        Session.Options.DesignTools = true;
        for (const char* name : {"Visitor", "Badge"}) {
            BeginLayout(Session, QLatin1StringView(name));
            AddText(Session, QStringLiteral("One"));
            SavePage(Session);
            BeginPage(Session, 2);
            AddText(Session, QStringLiteral("Two"));
            SavePage(Session);
        }
        OpenLayout(Session, QStringLiteral("Badge"));
        NoteDesign(Session);
        Station.Operator.Questions.clear();
    }

    CardObject& Text() { return *Session.Document.Find(Family::lbl_TEXT, 1); }
    void Change()
    {
        NoteDesign(Session);
        Text().Left += 20;
        NoteDesign(Session);
    }

    TestSession Station;
    vantrel::Session& Session = Station.Session;
};

using Way = std::function<void(Session&)>;

/// Everything that takes the place of the page, or prints it by hand.
const std::vector<Way> Ways = {
    NextPage,
    NewCommand,
    NewPageCommand,
    CloseCommand,
    PrintCommand,
    [](Session& session) { OpenLayout(session, QStringLiteral("Visitor")); },
    [](Session& session) { PrintOnLayouts(session, {}, {QStringLiteral("Badge")}); },
    [](Session& session) { RunSequence(session, {}, [](double, double) { return true; }); },
    [](Session& session) {
        WizardAnswers answers;
        answers.LayoutName = QStringLiteral("Fresh");
        BuildWizardLayout(session, answers);
    },
};

TEST_F(UnsavedChanges, AreAskedAboutAndCancelStays)
{
    for (const Way& way : Ways) {
        Change();
        const float left = Text().Left;
        Station.Operator.Questions.clear();
        Station.Operator.BoxAnswers = {BoxAnswer::Cancel};
        way(Session);
        ASSERT_EQ(Station.Operator.Questions.size(), 1);
        EXPECT_TRUE(Station.Operator.Questions.first().contains(QStringLiteral("(Badge)")));
        EXPECT_EQ(Session.CurrentLayoutName, QStringLiteral("Badge"));
        EXPECT_EQ(Text().Left, left);
    }
}

TEST_F(UnsavedChanges, AreStoredOnYesAndLostOnNo)
{
    float stored = Text().Left;
    for (const BoxAnswer answer : {BoxAnswer::Yes, BoxAnswer::No}) {
        Change();
        if (answer == BoxAnswer::Yes)
            stored = Text().Left;
        Station.Operator.BoxAnswers = {answer};
        NextPage(Session);
        EXPECT_EQ(Session.CurrentParams.PageIndex, 2);
        PreviousPage(Session);
        EXPECT_EQ(Text().Left, stored);
    }
    EXPECT_EQ(Station.Operator.Questions.size(), 2);
}

TEST_F(UnsavedChanges, AreNotAskedAboutWhereThereAreNone)
{
    SetRecord(Session, {QStringLiteral("Anna")});
    for (const Way& way : {Ways[0], Ways[2], Ways[4], Ways[3]}) {
        OpenLayout(Session, QStringLiteral("Badge"));
        way(Session);
    }
    EXPECT_EQ(Station.Operator.Questions, QStringList());
}

TEST_F(UnsavedChanges, AreAskedAboutBeforeTheStationEnds)
{
    int confirmed = 0;
    QObject::connect(&Session.Face, &StationFace::ExitConfirmed, [&] { ++confirmed; });
    Session.SessionNumber = 2;
    Change();
    Station.Operator.Answers = {true, true};
    Station.Operator.BoxAnswers = {BoxAnswer::Cancel, BoxAnswer::No};
    ExitCommand(Session);
    EXPECT_EQ(confirmed, 0);
    ExitCommand(Session);
    EXPECT_EQ(confirmed, 1);
}

TEST_F(UnsavedChanges, AreNotAskedAboutWithoutTheOption)
{
    Session.Options.DesignTools = false;
    Change();
    NextPage(Session);
    PrintCommand(Session);
    CloseCommand(Session);
    EXPECT_EQ(Station.Operator.Questions, QStringList());
}

TEST_F(UnsavedChanges, ANewLayoutPrintsItsRecordsOnceItIsSaved)
{
    for (const bool tools : {false, true}) {
        Session.Options.DesignTools = tools;
        CloseCommand(Session);
        Station.Operator.Inputs = {tools ? QStringLiteral("Fresh") : QStringLiteral("Plain")};
        NewCommand(Session);
        InsertText(Session);
        Session.CurrentParams.AutoSpool = true;
        SaveCommand(Session);
        Station.Printers.Operations.clear();
        ProcessStream(Session, QStringLiteral("Anna\r\n"));
        EXPECT_EQ(Station.Printers.Operations.contains(QStringLiteral("EndDoc")), tools);
    }
}

TEST_F(UnsavedChanges, APageWithoutObjectsIsNotSavedAndStaysWhereItIs)
{
    const QString told =
        QStringLiteral("No objects found|You must have at least one object on a page!");
    Session.Document.RemoveContent();
    NoteDesign(Session);
    SaveCommand(Session);
    EXPECT_EQ(Station.Operator.AppMessages, QStringList{told});
    EXPECT_EQ(Session.CurrentLayoutName, QStringLiteral("Badge"));
    EXPECT_EQ(Session.CurrentParams.PageIndex, 1);
    EXPECT_TRUE(IsPageUnsaved(Session));
    UndoDesign(Session);
    EXPECT_EQ(Text().Caption(), QStringLiteral("One"));
    OpenLayout(Session, QStringLiteral("Badge"));
    NoteDesign(Session);
    EXPECT_EQ(Text().Caption(), QStringLiteral("One"));
    // Yes cannot be done here, so the page is not left either.
    Session.Document.RemoveContent();
    NoteDesign(Session);
    Station.Operator.BoxAnswers = {BoxAnswer::Yes, BoxAnswer::No};
    NextPage(Session);
    EXPECT_EQ(Session.CurrentParams.PageIndex, 1);
    NextPage(Session);
    EXPECT_EQ(Session.CurrentParams.PageIndex, 2);
    PreviousPage(Session);
    EXPECT_EQ(Text().Caption(), QStringLiteral("One"));
}

TEST_F(UnsavedChanges, ANewLayoutThatIsSavedTooEarlyStaysOpen)
{
    WizardAnswers answers;
    answers.LayoutName = QStringLiteral("Club");
    BuildWizardLayout(Session, answers);
    SaveCommand(Session);
    ASSERT_FALSE(Station.Operator.AppMessages.isEmpty());
    EXPECT_EQ(Session.CurrentLayoutName, QStringLiteral("Club"));
    InsertText(Session);
    SaveCommand(Session);
    EXPECT_FALSE(IsPageUnsaved(Session));
    // Its records print from now on.
    EXPECT_TRUE(Session.Face.Caption().contains(QStringLiteral("(Club) printing to (")));
    OpenLayout(Session, QStringLiteral("Badge"));
    OpenLayout(Session, QStringLiteral("Club"));
    EXPECT_EQ(Text().Caption(), QStringLiteral("Static Text 1"));
}

} // namespace
} // namespace vantrel::test
