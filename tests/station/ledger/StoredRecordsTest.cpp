#include "StationWithLedger.h"
#include "station/layout/SaveLayout.h"
#include "station/print/Reprint.h"

// What a station finds in its ledger at the start, and cards that are printed again.

namespace vantrel::test {

TEST_F(StationWithLedger, AnEntryThatWasReceivedOnlyIsPrintedAtTheStart)
{
    Arrive("<Ada>");
    Store().Change(QStringLiteral("UPDATE LedgerEntries SET State = 'received'"));
    Store().Change(QStringLiteral("DELETE FROM LedgerCards"));
    Station.Printers.Operations.clear();
    TakeStoredRecords(Session);
    EXPECT_EQ(Entry(1).State, LedgerState::Printed);
    EXPECT_EQ(Entry(1).Cards.at(0).Numbers, QStringList(QStringLiteral("1002")));
    EXPECT_THAT(Printed(), testing::Contains(QStringLiteral("Print(\"Ada\")")));
}

TEST_F(StationWithLedger, AReceivedEntryPrintsOnTheLayoutThatWasOpenWhenItCame)
{
    Arrive("<Ada>");
    Store().Change(QStringLiteral("UPDATE LedgerEntries SET State = 'received'"));
    Store().Change(QStringLiteral("DELETE FROM LedgerCards"));
    BeginLayout(Session, QStringLiteral("Other"));
    AddText(Session, QStringLiteral("Other text"));
    SavePage(Session);
    LoadFirstPage(Session, QStringLiteral("Other"));
    Station.Printers.Operations.clear();
    TakeStoredRecords(Session);
    EXPECT_EQ(Entry(1).Cards.at(0).Layout, Name);
    EXPECT_EQ(Session.CurrentLayoutName, QStringLiteral("Other"));
}

TEST_F(StationWithLedger, ACardThatWasBegunIsDoubtfulAtTheStartAndNotPrinted)
{
    Arrive("<Ada>");
    Store().Change(QStringLiteral("UPDATE LedgerEntries SET State = 'printing'"));
    Store().Change(QStringLiteral("UPDATE LedgerCards SET State = 'printing'"));
    Station.Printers.Operations.clear();
    FindDoubtfulCards(Session);
    TakeStoredRecords(Session);
    EXPECT_EQ(Entry(1).State, LedgerState::Doubtful);
    EXPECT_EQ(Entry(1).Cards.at(0).State, LedgerState::Doubtful);
    EXPECT_TRUE(Printed().isEmpty());
}

TEST_F(StationWithLedger, ADoubtfulRecordPrintsAgainWithThePagesAndCopiesThatWereNotBegun)
{
    BeginPage(Session, 2);
    AddNumber(Session, 7);
    Session.CurrentParams.PrinterCopies = 2;
    SavePage(Session);
    LoadFirstPage(Session, Name);
    Session.CurrentParams.PrinterCopies = 2;
    SavePage(Session);
    Arrive("<Ada>");
    ASSERT_EQ(Entry(1).Cards.size(), 4U);
    // The station ended while it printed the first page.
    Store().Change(QStringLiteral("DELETE FROM LedgerCards WHERE Page = 2 OR Copy = 2"));
    Store().Change(QStringLiteral("UPDATE LedgerEntries SET State = 'printing'"));
    Store().Change(QStringLiteral("UPDATE LedgerCards SET State = 'printing'"));
    FindDoubtfulCards(Session);
    const qlonglong id = AskReprint(Store(), 1, ReprintMode::Once);
    TakeStoredRecords(Session);
    QStringList cards;
    for (const LedgerCard& card : Entry(id).Cards)
        cards.append(
            QStringLiteral("%1/%2 %3").arg(card.Copy).arg(card.Page).arg(card.Numbers.join(u',')));
    EXPECT_THAT(cards, testing::ElementsAre(QStringLiteral("1/1 1001"), QStringLiteral("1/2 10"),
                                            QStringLiteral("2/1 1003"), QStringLiteral("2/2 11")));
    EXPECT_EQ(Entry(id).State, LedgerState::Printed);
}

TEST_F(StationWithLedger, AReprintShowsTheFirstNumbersAndRaisesNone)
{
    Arrive("<Ada>");
    Arrive("<Bea>");
    Station.Printers.Operations.clear();
    const qlonglong id = AskReprint(Store(), 1, ReprintMode::Once);
    TakeStoredRecords(Session);
    EXPECT_THAT(Printed(), testing::ElementsAre(QStringLiteral("Print(\"Ada\")"),
                                                QStringLiteral("Print(\"1001\")")));
    EXPECT_EQ(Entry(id).State, LedgerState::Printed);
    EXPECT_EQ(Entry(id).ReprintOf, 1);
    EXPECT_EQ(Entry(id).Cards.at(0).Numbers, QStringList(QStringLiteral("1001")));
    EXPECT_THAT(StoredNumbers(Session, Name), testing::ElementsAre(QStringLiteral("1002")));
}

TEST_F(StationWithLedger, AReprintOfACardWhosePageIsNotKnownFailsInsteadOfPrintingNothing)
{
    Arrive("<Ada>");
    Store().Change(QStringLiteral("DELETE FROM LedgerPages"));
    Station.Printers.Operations.clear();
    const qlonglong id = AskReprint(Store(), 1, ReprintMode::Once);
    TakeStoredRecords(Session);
    EXPECT_EQ(Entry(id).State, LedgerState::Failed);
    EXPECT_EQ(Entry(id).Reason, QStringLiteral("The page of the first print was not kept."));
    EXPECT_THAT(Station.Printers.Operations, testing::IsEmpty());
}

TEST_F(StationWithLedger, AReprintShowsThePageAsItWasWhenTheLayoutHasChanged)
{
    AddText(Session, QStringLiteral("Club"));
    SavePage(Session);
    Arrive("<Ada>");
    const QStringList first = Printed();
    EXPECT_FALSE(WasChangedSince(Session.LayoutDb, Entry(1)));
    BeginLayout(Session, Name);
    AddText(Session, QStringLiteral("Other"));
    SavePage(Session);
    EXPECT_TRUE(WasChangedSince(Session.LayoutDb, Entry(1)));
    Station.Printers.Operations.clear();
    AskReprint(Store(), 1, ReprintMode::Once);
    TakeStoredRecords(Session);
    EXPECT_EQ(Printed(), first);
}

TEST_F(StationWithLedger, TheSameBytesAreDrawnAgain)
{
    Arrive("<Ada>");
    QStringList first = Station.Printers.Operations;
    Station.Printers.Operations.clear();
    AskReprint(Store(), 1, ReprintMode::Once);
    TakeStoredRecords(Session);
    QStringList again = Station.Printers.Operations;
    const auto drawn = [](QStringList operations) {
        operations.removeIf([](const QString& operation) {
            return operation.startsWith(QStringLiteral("Printer =")) ||
                   operation.startsWith(QStringLiteral("Orientation"));
        });
        return operations;
    };
    EXPECT_EQ(drawn(again), drawn(first));
}

TEST_F(StationWithLedger, AVoidEntryIsNotPrintedAtTheStart)
{
    Arrive("<Ada>");
    Store().Change(QStringLiteral("UPDATE LedgerEntries SET State = 'received'"));
    Store().Change(QStringLiteral("DELETE FROM LedgerCards"));
    VoidEntry(Store(), 1);
    Station.Printers.Operations.clear();
    TakeStoredRecords(Session);
    EXPECT_TRUE(Printed().isEmpty());
}

TEST_F(StationWithLedger, ARecordThatIsDeclaredVoidOnItsRoadIsNotPrintedAndTakesNoNumber)
{
    Session.Options.LedgerMust = true;
    Station.Operator.WhileEventsRun = {[] {}, [this] { VoidEntry(Store(), 1); }};
    Arrive("<Ada>");
    EXPECT_TRUE(Printed().isEmpty());
    EXPECT_EQ(Entry(1).State, LedgerState::Void);
    EXPECT_TRUE(Entry(1).Cards.empty());
    EXPECT_THAT(StoredNumbers(Session, Name), testing::ElementsAre(QStringLiteral("1000")));
    EXPECT_THAT(Answers,
                testing::ElementsAre(QStringLiteral("ERR 1 The record was declared void.")));
}

TEST_F(StationWithLedger, AnotherSessionsEntriesAreLeftToIt)
{
    Arrive("<Ada>");
    Store().Change(
        QStringLiteral("UPDATE LedgerEntries SET State = 'received', SessionNumber = 2"));
    Station.Printers.Operations.clear();
    FindDoubtfulCards(Session);
    TakeStoredRecords(Session);
    EXPECT_TRUE(Printed().isEmpty());
}

TEST_F(StationWithLedger, AReprintIsFoundByItsValuesToo)
{
    Arrive("<Ada>");
    const qlonglong again = AskReprint(Store(), 1, ReprintMode::Once);
    TakeStoredRecords(Session);
    EXPECT_EQ(Entry(again).State, LedgerState::Printed);
    EXPECT_EQ(
        EntryNumbers(
            Store(),
            {.State = {}, .Text = QStringLiteral("aDA"), .Since = {}, .Until = {}, .Before = {}}),
        std::vector<qlonglong>({again, 1}));
}

} // namespace vantrel::test
