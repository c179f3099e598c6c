#include "station/layout/DesignSteps.h"
#include "card/ObjectExtras.h"
#include "station/layout/FieldApplication.h"
#include "station/layout/LoadLayout.h"
#include "station/layout/Navigation.h"
#include "station/layout/NewLayout.h"
#include "station/layout/Pages.h"
#include "station/layout/SaveLayout.h"
#include "support/Layouts.h"
#include "support/PageText.h"
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

/// A stored layout of two pages, with the first one open.
class DesignSteps : public ::testing::Test
{
protected:
    DesignSteps()
    {
        Station.WithDatabase();
        Session.Options.DesignTools = true;
        BeginLayout(Session, QStringLiteral("Badge"));
        AddText(Session, QStringLiteral("Visitor"));
        AddField(Session, 1);
        AddNumber(Session, 7);
        SavePage(Session);
        BeginPage(Session, 2);
        AddText(Session, QStringLiteral("Back"));
        SavePage(Session);
        OpenLayout(Session, QStringLiteral("Badge"));
        NoteDesign(Session);
    }

    CardObject& Object(Family family) { return *Session.Document.Find(family, 1); }
    void MoveText(float left)
    {
        NoteDesign(Session);
        Object(Family::lbl_TEXT).Left = left;
        NoteDesign(Session);
    }
    float TextLeft() { return Object(Family::lbl_TEXT).Left; }

    TestSession Station;
    vantrel::Session& Session = Station.Session;
};

TEST_F(DesignSteps, HoldTheSizeToWhichATextShrinks)
{
    const QString began = PageText(Session);
    SetShrinkTo(Object(Family::lbl_TEXT), 6);
    NoteDesign(Session);
    EXPECT_NE(PageText(Session), began);
    UndoDesign(Session);
    EXPECT_EQ(PageText(Session), began);
    RedoDesign(Session);
    EXPECT_EQ(ShrinkToOf(Object(Family::lbl_TEXT)), 6);
}

TEST_F(DesignSteps, GoBackAndForthOneByOne)
{
    const QString began = PageText(Session);
    MoveText(300);
    MoveText(400);
    const QString ended = PageText(Session);
    UndoDesign(Session);
    EXPECT_EQ(TextLeft(), 300);
    UndoDesign(Session);
    EXPECT_EQ(PageText(Session), began);
    EXPECT_FALSE(CanUndoDesign(Session));
    UndoDesign(Session);
    RedoDesign(Session);
    EXPECT_EQ(TextLeft(), 300);
    RedoDesign(Session);
    EXPECT_EQ(PageText(Session), ended);
    EXPECT_FALSE(CanRedoDesign(Session));
}

TEST_F(DesignSteps, AChangeForgetsWhatWasTakenBack)
{
    MoveText(300);
    MoveText(400);
    UndoDesign(Session);
    MoveText(500);
    EXPECT_FALSE(CanRedoDesign(Session));
    UndoDesign(Session);
    EXPECT_EQ(TextLeft(), 300);
}

TEST_F(DesignSteps, AreNotKeptWithoutTheOption)
{
    Session.Options.DesignTools = false;
    Object(Family::lbl_TEXT).Left = 900;
    NoteDesign(Session);
    UndoDesign(Session);
    EXPECT_EQ(TextLeft(), 900);
    EXPECT_FALSE(CanUndoDesign(Session));
    EXPECT_TRUE(MayLeavePage(Session));
    EXPECT_TRUE(Station.Operator.Questions.isEmpty());
}

TEST_F(DesignSteps, TwoHundredAreKept)
{
    for (int step = 1; step <= 250; ++step)
        MoveText(static_cast<float>(step));
    int taken = 0;
    for (; CanUndoDesign(Session); ++taken)
        UndoDesign(Session);
    EXPECT_EQ(taken, 200);
    EXPECT_EQ(TextLeft(), 50);
}

TEST_F(DesignSteps, ForgetTheOldestWhereTextsTakeTooMuchMemory)
{
    // Each of these texts takes four megabytes.
    for (int step = 0; step < 100; ++step) {
        Object(Family::lbl_TEXT).SetCaption(QString(2'000'000, QChar(u'a' + step % 26)));
        NoteDesign(Session);
    }
    int taken = 0;
    for (; CanUndoDesign(Session); ++taken)
        UndoDesign(Session);
    EXPECT_GE(taken, 5);
    EXPECT_LE(taken, 16);
}

TEST_F(DesignSteps, ARecordAndItsNumbersAreNone)
{
    MoveText(300);
    SetRecord(Session, {QStringLiteral("Anna")});
    ReapplyFieldValues(Session);
    Object(Family::lbl_AUTO).DataField = QStringLiteral("8");
    NoteDesign(Session);
    UndoDesign(Session);
    EXPECT_FALSE(CanUndoDesign(Session));
    EXPECT_EQ(Object(Family::lbl_DATA).Caption(), QStringLiteral("Anna"));
    EXPECT_EQ(Object(Family::lbl_AUTO).DataField, QStringLiteral("8"));
}

TEST_F(DesignSteps, AFieldThatComesBackShowsThePresentRecord)
{
    SetRecord(Session, {QStringLiteral("Anna")});
    ReapplyFieldValues(Session);
    NoteDesign(Session);
    Session.Document.Remove(Object(Family::lbl_DATA));
    NoteDesign(Session);
    SetRecord(Session, {QString(1'000'000, u'x')});
    ReapplyFieldValues(Session);
    UndoDesign(Session);
    EXPECT_EQ(Object(Family::lbl_DATA).Caption().size(), 1'000'000);
}

TEST_F(DesignSteps, ANumberThatComesBackGoesOnBehindItsHighest)
{
    MoveText(300);
    Object(Family::lbl_AUTO).DataField = QStringLiteral("41");
    NoteDesign(Session);
    Session.Document.Remove(Object(Family::lbl_AUTO));
    NoteDesign(Session);
    UndoDesign(Session);
    EXPECT_EQ(Object(Family::lbl_AUTO).DataField, QStringLiteral("41"));
    UndoDesign(Session);
    EXPECT_EQ(Object(Family::lbl_AUTO).DataField, QStringLiteral("41"));
}

TEST_F(DesignSteps, ANumberLoadedAgainInBetweenDoesNotGoBack)
{
    MoveText(300);
    // The record's page is the stored one, and its number rises.
    ASSERT_TRUE(LoadLayout(Session, QStringLiteral("Badge")));
    Object(Family::lbl_AUTO).DataField = QStringLiteral("9");
    NoteDesign(Session);
    EXPECT_EQ(TextLeft(), 200);
    RedoDesign(Session);
    UndoDesign(Session);
    RedoDesign(Session);
    EXPECT_EQ(TextLeft(), 300);
    EXPECT_EQ(Object(Family::lbl_AUTO).DataField, QStringLiteral("9"));
}

TEST_F(DesignSteps, AreTakenBackOnTheirOwnPage)
{
    MoveText(300);
    SavePage(Session);
    NextPage(Session);
    NoteDesign(Session);
    MoveText(700);
    SavePage(Session);
    UndoDesign(Session);
    EXPECT_EQ(Session.CurrentParams.PageIndex, 2);
    EXPECT_EQ(TextLeft(), 200);
    // The page as it is now is not stored.
    Station.Operator.BoxAnswers = {BoxAnswer::Cancel, BoxAnswer::Yes};
    UndoDesign(Session);
    EXPECT_EQ(Session.CurrentParams.PageIndex, 2);
    UndoDesign(Session);
    EXPECT_EQ(Session.CurrentParams.PageIndex, 1);
    EXPECT_EQ(TextLeft(), 200);
    EXPECT_EQ(Object(Family::lbl_TEXT).Caption(), QStringLiteral("Visitor"));
    Station.Operator.BoxAnswers = {BoxAnswer::No};
    RedoDesign(Session);
    EXPECT_EQ(TextLeft(), 300);
    RedoDesign(Session);
    EXPECT_EQ(Session.CurrentParams.PageIndex, 2);
    EXPECT_EQ(TextLeft(), 700);
    EXPECT_EQ(Station.Operator.Questions.size(), 2);
}

TEST_F(DesignSteps, OfALayoutThatWasNeverSavedGoAcrossItsPages)
{
    NewLayout(Session, QStringLiteral("Fresh"));
    NoteDesign(Session);
    EXPECT_FALSE(CanUndoDesign(Session));
    AddText(Session, QStringLiteral("One"));
    NoteDesign(Session);
    NewPage(Session);
    NoteDesign(Session);
    AddText(Session, QStringLiteral("Two"));
    NoteDesign(Session);
    UndoDesign(Session);
    UndoDesign(Session);
    EXPECT_EQ(Session.CurrentLayoutName, QStringLiteral("Fresh"));
    RedoDesign(Session);
    EXPECT_EQ(Object(Family::lbl_TEXT).Caption(), QStringLiteral("One"));
}

TEST_F(DesignSteps, AnotherLayoutForgetsThem)
{
    MoveText(300);
    NewLayout(Session, QStringLiteral("Other"));
    NoteDesign(Session);
    EXPECT_FALSE(CanUndoDesign(Session));
    OpenLayout(Session, QStringLiteral("Badge"));
    NoteDesign(Session);
    EXPECT_FALSE(CanUndoDesign(Session));
}

TEST_F(DesignSteps, AreTakenAlsoWhileARecordHasTheRoad)
{
    MoveText(300);
    const RoadHold hold(Session.Road);
    MoveText(800);
    UndoDesign(Session);
    EXPECT_EQ(TextLeft(), 300);
}

TEST_F(DesignSteps, APageThatIsTurnedToKeepsTheNamesOfItsFields)
{
    SetRecord(Session, {QStringLiteral("Anna")});
    NextPage(Session);
    PreviousPage(Session);
    EXPECT_EQ(Object(Family::lbl_DATA).Caption(), QStringLiteral("Data Field 1"));
    Session.Options.DesignTools = false;
    NextPage(Session);
    PreviousPage(Session);
    EXPECT_EQ(Object(Family::lbl_DATA).Caption(), QStringLiteral("Anna"));
}

TEST_F(DesignSteps, BehindASaveMakeThePageUnsavedAgain)
{
    EXPECT_FALSE(IsPageUnsaved(Session));
    MoveText(300);
    EXPECT_TRUE(IsPageUnsaved(Session));
    SavePage(Session);
    EXPECT_FALSE(IsPageUnsaved(Session));
    UndoDesign(Session);
    EXPECT_TRUE(IsPageUnsaved(Session));
    RedoDesign(Session);
    EXPECT_FALSE(IsPageUnsaved(Session));
    Session.CurrentParams.Track1 = QStringLiteral("~DAT1~");
    EXPECT_TRUE(IsPageUnsaved(Session));
    UndoDesign(Session);
    EXPECT_FALSE(IsPageUnsaved(Session));
}

TEST_F(DesignSteps, ASavedPageIsTheOneThatWasTakenBackTo)
{
    MoveText(300);
    SavePage(Session);
    UndoDesign(Session);
    SavePage(Session);
    ASSERT_TRUE(LoadLayout(Session, QStringLiteral("Badge")));
    EXPECT_EQ(TextLeft(), 200);
}

} // namespace
} // namespace vantrel::test
