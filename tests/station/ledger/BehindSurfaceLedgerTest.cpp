#include "StationWithLedger.h"
#include "station/layout/DeleteLayout.h"
#include "station/layout/DesignSteps.h"
#include "station/layout/NewLayout.h"
#include "station/layout/SaveLayout.h"
#include "support/PageText.h"
#include "support/WarningGuard.h"

// Records of a station with a ledger and design tools: what is unsaved on the surface stays there.

namespace vantrel::test {
namespace {

class BehindSurfaceLedger : public StationWithLedger
{
protected:
    BehindSurfaceLedger()
    {
        Session.Options.DesignTools = true;
        NoteDesign(Session);
        Draft();
    }

    void Draft()
    {
        AddText(Session, QStringLiteral("Draft"));
        NoteDesign(Session);
        Drafted = Page();
    }

    /// The page without its number, which follows the cards.
    QString Page()
    {
        const CardObject* number = Session.Document.Find(Family::lbl_AUTO, 1);
        QString text = PageText(Session) + Session.CurrentLayoutName;
        return number == nullptr ? text : text.remove(u'[' + number->DataField + u']');
    }

    void MakeReceived()
    {
        Store().Change(QStringLiteral("UPDATE LedgerEntries SET State = 'received'"));
        Store().Change(QStringLiteral("DELETE FROM LedgerCards"));
        Station.Printers.Operations.clear();
    }

    QString Drafted;
};

const auto Ada = QStringLiteral("Print(\"Ada\")");

TEST_F(BehindSurfaceLedger, AReprintLeavesItAsItIs)
{
    Arrive("<Ada>");
    Station.Printers.Operations.clear();
    const qlonglong id = AskReprint(Store(), 1, ReprintMode::Once);
    TakeStoredRecords(Session);
    EXPECT_THAT(Printed(), testing::ElementsAre(Ada, QStringLiteral("Print(\"1001\")")));
    EXPECT_EQ(Entry(id).State, LedgerState::Printed);
    EXPECT_EQ(Page(), Drafted);
    EXPECT_TRUE(IsPageUnsaved(Session));
}

TEST_F(BehindSurfaceLedger, AnEntryThatIsResumedLeavesItAsItIs)
{
    Arrive("<Ada>");
    MakeReceived();
    TakeStoredRecords(Session);
    EXPECT_THAT(Printed(), testing::ElementsAre(Ada, QStringLiteral("Print(\"1002\")")));
    EXPECT_EQ(Page(), Drafted);
}

TEST_F(BehindSurfaceLedger, AnEntryThatIsResumedPrintsOnItsOwnLayout)
{
    Arrive("<Ada>");
    MakeReceived();
    SavePage(Session);
    BeginLayout(Session, QStringLiteral("Other"));
    AddText(Session, QStringLiteral("Other text"));
    SavePage(Session);
    LoadFirstPage(Session, QStringLiteral("Other"));
    NoteDesign(Session);
    Draft();
    TakeStoredRecords(Session);
    EXPECT_EQ(Entry(1).Cards.at(0).Layout, Name);
    EXPECT_THAT(Printed(), testing::Contains(Ada));
    EXPECT_EQ(Page(), Drafted);
}

TEST_F(BehindSurfaceLedger, CardsThatWereNotBegunAreMadeBehindIt)
{
    SavePage(Session);
    BeginPage(Session, 2);
    AddText(Session, QStringLiteral("Back"));
    SavePage(Session);
    LoadFirstPage(Session, Name);
    NoteDesign(Session);
    Draft();
    Arrive("<Ada>");
    ASSERT_EQ(Entry(1).Cards.size(), 2U);
    Store().Change(QStringLiteral("DELETE FROM LedgerCards WHERE Page = 2"));
    Store().Change(QStringLiteral("UPDATE LedgerEntries SET State = 'printing'"));
    Store().Change(QStringLiteral("UPDATE LedgerCards SET State = 'printing'"));
    FindDoubtfulCards(Session);
    const qlonglong id = AskReprint(Store(), 1, ReprintMode::Once);
    TakeStoredRecords(Session);
    ASSERT_EQ(Entry(id).Cards.size(), 2U);
    EXPECT_EQ(Entry(id).State, LedgerState::Printed);
    EXPECT_EQ(Page(), Drafted);
}

TEST_F(BehindSurfaceLedger, ALayoutThatWasNeverSavedFailsItsRecordsWithAReason)
{
    NewLayout(Session, QStringLiteral("Fresh"));
    Draft();
    AnnounceWarning(QStringLiteral("not saved yet"));
    Arrive("<Ada>");
    EXPECT_EQ(Entry(1).State, LedgerState::Failed);
    EXPECT_EQ(Entry(1).Reason, QStringLiteral("The layout Fresh is not in the database: it was not "
                                              "saved yet, or was deleted."));
    EXPECT_EQ(Entry(1).Layout, QStringLiteral("Fresh"));
    EXPECT_TRUE(Answers.value(0).startsWith(QStringLiteral("ERR 1 ")));
    EXPECT_EQ(Page(), Drafted);
}

TEST_F(BehindSurfaceLedger, APageThatIsDeletedInTheMiddleOfACardIsAccountedFor)
{
    SavePage(Session);
    BeginPage(Session, 2);
    AddText(Session, QStringLiteral("Back"));
    SavePage(Session);
    LoadFirstPage(Session, Name);
    Session.Settings.MainVisible = true;
    Station.Operator.WhileEventsRun = {[] {}, [] {}, [&] { DeleteLayoutRows(Session, Name); }};
    Arrive("<Ada>");
    ASSERT_EQ(Entry(1).Cards.size(), 2U);
    EXPECT_EQ(Entry(1).Cards.at(0).State, LedgerState::Printed);
    EXPECT_EQ(Entry(1).Cards.at(1).State, LedgerState::Failed);
    EXPECT_EQ(Entry(1).Cards.at(1).Reason,
              QStringLiteral("Page 2 of the layout Badge was deleted before it was printed."));
    EXPECT_EQ(Entry(1).State, LedgerState::Failed);
}

TEST_F(BehindSurfaceLedger, NumbersOfEntriesAreThoseOfTheCards)
{
    QStringList numbers;
    for (int card = 1; card <= 30; ++card) {
        if (card % 5 == 0)
            SavePage(Session);
        Session.Document.Find(Family::lbl_TEXT, 1)->Left += 10;
        NoteDesign(Session);
        Arrive("<Ada>");
        numbers += Entry(card).Cards.at(0).Numbers;
    }
    for (int card = 1; card <= 30; ++card)
        EXPECT_EQ(numbers.at(card - 1), QString::number(1000 + card));
}

} // namespace
} // namespace vantrel::test
