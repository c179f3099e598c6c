#include "station/commands/CheckCommands.h"
#include "card/ObjectExtras.h"
#include "station/commands/ShrinkCommands.h"
#include "station/layout/DesignSteps.h"
#include "station/layout/LoadLayout.h"
#include "support/Layouts.h"
#include <gtest/gtest.h>

// The check of the open layout, and what the operator does about its findings.

namespace vantrel::test {
namespace {

const QString LongName = QStringLiteral("Bartholomew Featherstone");

/// A stored layout with a small field on each of its two pages, the first of them open.
class CheckOfOpenLayout : public ::testing::Test
{
protected:
    CheckOfOpenLayout()
    {
        Station.WithDatabase();
        Session.Options.DesignTools = true;
        BeginLayout(Session, QStringLiteral("Badge"));
        AddField(Session, 1).SetFont(Letters);
        SavePage(Session);
        BeginPage(Session, 2);
        AddText(Session, QStringLiteral("Back")).SetFont(Letters);
        AddField(Session, 1, {800, 200, 300, 1500}).SetFont(Letters);
        SavePage(Session);
        LoadFirstPage(Session, QStringLiteral("Badge"));
        NoteDesign(Session);
    }

    Finding FindingOnPage(std::int16_t page)
    {
        SetRecord(Session, {LongName});
        for (const Finding& finding : CheckOpenLayout(Session)) {
            if (finding.Page == page)
                return finding;
        }
        ADD_FAILURE() << "nothing found on page " << page;
        return {};
    }

    const Font Letters{.Name = QStringLiteral("Liberation Sans"), .Size = 10};
    TestSession Station;
    vantrel::Session& Session = Station.Session;
};

} // namespace

TEST_F(CheckOfOpenLayout, GoesByTheLastRecord)
{
    EXPECT_TRUE(CheckOpenLayout(Session).empty());
    SetRecord(Session, {LongName});
    EXPECT_EQ(CheckOpenLayout(Session).size(), 2U);
}

TEST_F(CheckOfOpenLayout, SeesWhatIsUnsaved)
{
    SetRecord(Session, {LongName});
    CardObject& field = *Session.Document.Find(Family::lbl_DATA, 1);
    field.Left = 0;
    field.Width = 4860;
    SetShrinkTo(field, 2);
    const Findings found = CheckOpenLayout(Session);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found.front().Page, 2);
}

TEST_F(CheckOfOpenLayout, FindsNothingWithoutALayout)
{
    SetRecord(Session, {LongName});
    CloseLayout(Session);
    EXPECT_TRUE(CheckOpenLayout(Session).empty());
}

TEST_F(CheckOfOpenLayout, ShowsAnObjectOfTheOpenPage)
{
    const Finding finding = FindingOnPage(1);
    EXPECT_TRUE(ShowFinding(Session, finding));
    EXPECT_EQ(Session.Document.SelectedObject, Session.Document.Find(Family::lbl_DATA, 1));
    EXPECT_EQ(Session.CurrentParams.PageIndex, 1);
    EXPECT_TRUE(Session.Document.HandlesShown);
}

TEST_F(CheckOfOpenLayout, OpensThePageOfAFinding)
{
    const Finding finding = FindingOnPage(2);
    EXPECT_TRUE(ShowFinding(Session, finding));
    EXPECT_EQ(Session.CurrentParams.PageIndex, 2);
    EXPECT_EQ(Session.Document.SelectedObject, Session.Document.Find(Family::lbl_DATA, 1));
    EXPECT_TRUE(Station.Operator.Questions.isEmpty());
}

TEST_F(CheckOfOpenLayout, AsksBeforeItLeavesAnUnsavedPage)
{
    const Finding finding = FindingOnPage(2);
    Session.Document.Find(Family::lbl_DATA, 1)->Left = 100;
    NoteDesign(Session);
    Station.Operator.BoxAnswers = {BoxAnswer::Cancel};
    EXPECT_FALSE(ShowFinding(Session, finding));
    EXPECT_EQ(Session.CurrentParams.PageIndex, 1);
    EXPECT_EQ(Session.Document.Find(Family::lbl_DATA, 1)->Left, 100);
    Station.Operator.BoxAnswers = {BoxAnswer::Yes};
    EXPECT_TRUE(ShowFinding(Session, finding));
    EXPECT_EQ(Session.CurrentParams.PageIndex, 2);
    EXPECT_EQ(Station.Operator.Questions.size(), 2);
}

TEST_F(CheckOfOpenLayout, DoesNotShowAnObjectThatHasGone)
{
    const Finding finding = FindingOnPage(1);
    Session.Document.Remove(*Session.Document.Find(Family::lbl_DATA, 1));
    EXPECT_FALSE(ShowFinding(Session, finding));
    EXPECT_EQ(Session.Document.SelectedObject, nullptr);
}

TEST_F(CheckOfOpenLayout, LeavesAPageAloneThatARecordPrintsOn)
{
    const Finding finding = FindingOnPage(2);
    const RoadHold hold(Session.Road);
    EXPECT_FALSE(ShowFinding(Session, finding));
    EXPECT_EQ(Session.CurrentParams.PageIndex, 1);
}

TEST_F(CheckOfOpenLayout, SelectedTextsShrinkTogether)
{
    CardObject& field = *Session.Document.Find(Family::lbl_DATA, 1);
    CardObject& code = AddText(Session, QStringLiteral("4711"));
    code.SetFont({.Name = QStringLiteral("Barcode QR Code")});
    CardObject& other = AddText(Session, QStringLiteral("other"));
    CardObject& image = AddImage(Session, QString());
    Session.Document.SelectedObject = &field;
    Session.Document.AlsoSelected = {&code, &image};
    ShrinkSelected(Session, &other, 5);
    EXPECT_EQ(ShrinkToOf(field), 0) << "another object was asked for";
    ShrinkSelected(Session, &field, 5);
    EXPECT_EQ(ShrinkToOf(field), 5);
    for (const CardObject* object : {&code, &image, &other})
        EXPECT_TRUE(object->Extras.isEmpty());
    ShrinkSelected(Session, &field, 0);
    EXPECT_EQ(ShrinkToOf(field), 0);
}

} // namespace vantrel::test
