#include "StationWithLedger.h"
#include "station/commands/Commands.h"
#include "station/compose/CardSequence.h"
#include "station/compose/DocumentGenerator.h"

// A record's entry and its answer.

namespace vantrel::test {

TEST_F(StationWithLedger, APrintedRecordIsAnEntryWithItsCard)
{
    ASSERT_TRUE(Arrive("<Ada+Lovelace>"));
    const LedgerEntry entry = Entry(1);
    EXPECT_EQ(entry.State, LedgerState::Printed);
    EXPECT_EQ(entry.Source, QStringLiteral("192.0.2.7:5000"));
    EXPECT_EQ(entry.Layout, Name);
    EXPECT_EQ(entry.Raw, QByteArray("<Ada+Lovelace>"));
    EXPECT_EQ(entry.Length, 14);
    EXPECT_EQ(entry.Values, QStringList({QStringLiteral("Ada"), QStringLiteral("Lovelace")}));
    ASSERT_EQ(entry.Cards.size(), 1U);
    const LedgerCard& card = entry.Cards.front();
    EXPECT_EQ(card.State, LedgerState::Printed);
    EXPECT_EQ(card.Layout, Name);
    EXPECT_EQ(card.Page, 1);
    EXPECT_EQ(card.Copy, 1);
    EXPECT_EQ(card.Printer, QStringLiteral("Card Printer"));
    EXPECT_EQ(card.Numbers, QStringList(QStringLiteral("1001")));
    EXPECT_THAT(Answers, testing::ElementsAre(QStringLiteral("OK 1 1")));
}

TEST_F(StationWithLedger, ARecordIsNotWrittenBeforeItsValuesAreKnown)
{
    Station.Operator.WhileEventsRun = {[this] {
        // As when a job or a file of another record ends meanwhile.
        WriteLedger(Session);
        EXPECT_FALSE(FindEntry(Store(), 1));
    }};
    ASSERT_TRUE(Arrive("<Ada+Lovelace>"));
    EXPECT_EQ(Entry(1).Values, QStringList({QStringLiteral("Ada"), QStringLiteral("Lovelace")}));
    EXPECT_EQ(Entry(1).State, LedgerState::Printed);
}

TEST_F(StationWithLedger, EveryPageAndCopyIsACard)
{
    BeginPage(Session, 2);
    AddNumber(Session, 7);
    SavePage(Session);
    LoadFirstPage(Session, Name);
    Session.CurrentParams.PrinterCopies = 2;
    ASSERT_TRUE(Arrive("<Ada>"));
    const LedgerEntry entry = Entry(1);
    QStringList cards;
    for (const LedgerCard& card : entry.Cards)
        cards.append(
            QStringLiteral("%1/%2 %3").arg(card.Copy).arg(card.Page).arg(card.Numbers.join(u',')));
    EXPECT_THAT(cards, testing::ElementsAre(QStringLiteral("1/1 1001"), QStringLiteral("1/2 8"),
                                            QStringLiteral("2/1 1002"), QStringLiteral("2/2 9")));
    EXPECT_THAT(Answers, testing::ElementsAre(QStringLiteral("OK 1 4")));
}

TEST_F(StationWithLedger, AJobThatFailsWhileItsRecordIsOnItsRoadFailsTheRecord)
{
    RecordingPrinter& printer = Station.Printers.Get(QStringLiteral("Card Printer"));
    for (const int job : {4, 5})
        printer.Outcomes.append({.HandedOver = true, .JobId = job, .File = {}, .Reason = {}});
    Session.CurrentParams.PrinterCopies = 2;
    SavePage(Session);
    LoadFirstPage(Session, Name);
    Session.Settings.MainVisible = true;
    Station.Operator.WhileEventsRun = {
        [] {}, [] {},
        [this] { NoteJobEnd(Session, 4, JobState::Failed, QStringLiteral("The ribbon is torn")); }};
    ASSERT_TRUE(Arrive("<Ada>"));
    NoteJobEnd(Session, 5, JobState::Done, {});
    const LedgerEntry entry = Entry(1);
    EXPECT_EQ(entry.Cards.at(0).State, LedgerState::Failed);
    EXPECT_EQ(entry.Cards.at(1).State, LedgerState::Done);
    EXPECT_EQ(entry.State, LedgerState::Failed);
    EXPECT_EQ(entry.Reason, QStringLiteral("The ribbon is torn"));
}

TEST_F(StationWithLedger, WithoutAnOpenLayoutTheRecordFails)
{
    CloseLayout(Session);
    ASSERT_TRUE(Arrive("<Ada>"));
    EXPECT_EQ(Entry(1).State, LedgerState::Failed);
    EXPECT_THAT(Answers, testing::ElementsAre(QStringLiteral("ERR 1 No layout is open.")));
}

TEST_F(StationWithLedger, ALayoutThatDoesNotPrintAutomaticallyIsToldByName)
{
    Session.CurrentParams.AutoSpool = false;
    ASSERT_TRUE(Arrive("<Ada>"));
    EXPECT_THAT(Answers, testing::ElementsAre(QStringLiteral(
                             "ERR 1 The layout Badge does not print automatically.")));
    EXPECT_TRUE(Printed().isEmpty());
}

TEST_F(StationWithLedger, AMissingPrinterPrintsNothingAndTakesNoNumber)
{
    Station.Printers.Install({QStringLiteral("Other")});
    ASSERT_TRUE(Arrive("<Ada>"));
    EXPECT_THAT(Answers,
                testing::ElementsAre(QStringLiteral("ERR 1 The printer Card Printer is missing.")));
    EXPECT_TRUE(Printed().isEmpty());
    EXPECT_THAT(StoredNumbers(Session, Name), testing::ElementsAre(QStringLiteral("1000")));
    EXPECT_EQ(Entry(1).Cards.at(0).State, LedgerState::Failed);
}

TEST_F(StationWithLedger, AFailedJobFailsItsCardAndItsNumberIsNotGivenAgain)
{
    Station.Printers.Get(QStringLiteral("Card Printer")).Failing = {QStringLiteral("EndDoc")};
    ASSERT_TRUE(Arrive("<Ada>"));
    Station.Printers.Get(QStringLiteral("Card Printer")).Failing.clear();
    ASSERT_TRUE(Arrive("<Bea>"));
    EXPECT_EQ(Entry(1).State, LedgerState::Failed);
    EXPECT_FALSE(Entry(1).Reason.isEmpty());
    EXPECT_EQ(Entry(1).Cards.at(0).Numbers, QStringList(QStringLiteral("1001")));
    EXPECT_EQ(Entry(2).Cards.at(0).Numbers, QStringList(QStringLiteral("1002")));
    ASSERT_EQ(Answers.size(), 2);
    EXPECT_TRUE(Answers.at(0).startsWith(QStringLiteral("ERR 1 ")));
    EXPECT_EQ(Answers.at(1), QStringLiteral("OK 2 1"));
}

TEST_F(StationWithLedger, WithoutALedgerAnswersCountFromOne)
{
    Session.Options.Ledger = false;
    OpenLedger(Session);
    Arrive("<Ada>");
    Arrive("<Bea>");
    EXPECT_THAT(Answers, testing::ElementsAre(QStringLiteral("OK 1 1"), QStringLiteral("OK 2 1")));
}

TEST_F(StationWithLedger, ValuesThatMayNotBeKeptLeaveOnlyTheirHash)
{
    Session.Options.LedgerValues = false;
    OpenLedger(Session);
    Arrive("<Ada+Lovelace>");
    const LedgerEntry entry = Entry(1);
    EXPECT_FALSE(entry.HasValues);
    EXPECT_TRUE(entry.Raw.isEmpty());
    EXPECT_TRUE(entry.Values.isEmpty());
    EXPECT_EQ(entry.Length, 14);
    EXPECT_EQ(entry.ValueCount, 2);
    EXPECT_EQ(entry.Hash.size(), 64);
    if (!StoresAreOnServer()) {
        QFile store(Session.PathInFolder(QLatin1StringView(LayoutDatabaseName)) +
                    QStringLiteral("-wal"));
        ASSERT_TRUE(store.open(QIODevice::ReadOnly));
        EXPECT_FALSE(store.readAll().contains("Lovelace"));
    }
    EXPECT_EQ(QFile::permissions(Session.PathInFolder(QStringLiteral("Ledger.key"))) &
                  (QFile::ReadGroup | QFile::ReadOther),
              QFile::Permissions());
}

TEST_F(StationWithLedger, SequencesAndTheDocumentGeneratorAndTheOperatorHaveEntriesToo)
{
    SequenceOrder order;
    order.Start = QStringLiteral("1");
    order.End = QStringLiteral("3");
    RunSequence(Session, order, [](double, double) { return true; });
    PrintOnLayouts(Session, QStringLiteral("<Ada>"), {Name});
    LoadFirstPage(Session, Name);
    PrintCommand(Session);
    QStringList entries;
    ReadEntries(Store(), {}, [&](const LedgerEntry& entry) {
        entries.prepend(entry.Source + u' ' + entry.Values.join(u',') + u' ' +
                        entry.Cards.at(0).Numbers.join(u','));
    });
    EXPECT_THAT(entries, testing::ElementsAre(QStringLiteral("Card sequence 1 1001"),
                                              QStringLiteral("Card sequence 2 1002"),
                                              QStringLiteral("Document generator Ada 1003"),
                                              QStringLiteral("Operator Ada 1004")));
}

TEST_F(StationWithLedger, AnOlderStationGoesOnWithTheSameStore)
{
    Arrive("<Ada>");
    TestOperator nobody;
    RecordingPrinters printers;
    vantrel::Session older(Session.ProgramFolder, nobody, printers);
    older.LayoutDb.Open(StoreAt(Session.PathInFolder(QLatin1StringView(LayoutDatabaseName))));
    older.Settings.Framing = Session.Settings.Framing;
    LoadFirstPage(older, Name);
    TakeRecord(older, QStringLiteral("<Bea>"), {});
    EXPECT_THAT(printers.Only({QStringLiteral("Print(")}),
                testing::Contains(QStringLiteral("Print(\"1002\")")));
    EXPECT_EQ(CountEntries(Store(), {}), 1);
}

TEST_F(StationWithLedger, WithNothingSwitchedOnTheStoreHasNoLedger)
{
    TestSession other;
    other.WithDatabase();
    other.Session.Settings.Framing = Session.Settings.Framing;
    OpenLedger(other.Session);
    BeginLayout(other.Session, Name);
    AddNumber(other.Session, 1000);
    SavePage(other.Session);
    TakeRecord(other.Session, QStringLiteral("<Ada>"), {});
    EXPECT_FALSE(HasLedger(other.Session.LayoutDb.Database()));
    EXPECT_TRUE(other.Session.Ledger.Runs().empty());
}

} // namespace vantrel::test
