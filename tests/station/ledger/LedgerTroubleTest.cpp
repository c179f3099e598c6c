#include "StationWithLedger.h"
#include "station/capture/Listener.h"
#include "station/capture/Ports.h"
#include "support/Events.h"
#include "support/Host.h"
#include "support/StoreFaults.h"
#include "support/WarningGuard.h"
#include <optional>

// A ledger that cannot be written.

namespace vantrel::test {

namespace {

/// Makes every change of one kind fail until it is destroyed.
class LedgerOutOfOrder
{
public:
    explicit LedgerOutOfOrder(StoreDatabase& store, const char* change = "INSERT ON LedgerEntries")
        : m_store(store), m_table(QString(QLatin1StringView(change)).section(u' ', -1))
    {
        const QString trigger =
            QStringLiteral("CREATE TRIGGER Broken BEFORE ") + QLatin1StringView(change);
        if (StoresAreOnServer())
            m_store.Execute(
                QStringLiteral("CREATE OR REPLACE FUNCTION broken() RETURNS trigger AS $$ BEGIN "
                               "RAISE EXCEPTION 'out of order'; END $$ LANGUAGE plpgsql; ") +
                trigger + QStringLiteral(" FOR EACH ROW EXECUTE FUNCTION broken()"));
        else
            m_store.Execute(trigger +
                            QStringLiteral(" BEGIN SELECT RAISE(ABORT, 'out of order'); END"));
    }
    LedgerOutOfOrder(const LedgerOutOfOrder&) = delete;
    LedgerOutOfOrder& operator=(const LedgerOutOfOrder&) = delete;
    ~LedgerOutOfOrder()
    {
        m_store.Execute(QStringLiteral("DROP TRIGGER Broken") +
                        (StoresAreOnServer() ? QStringLiteral(" ON ") + m_table : QString()));
    }

private:
    StoreDatabase& m_store;
    QString m_table;
};

} // namespace

TEST_F(StationWithLedger, ALedgerThatCannotBeWrittenStopsNothing)
{
    AnnounceWarning(QStringLiteral("The ledger cannot be written"));
    AnnounceWarning(QStringLiteral("The ledger can be written again"));
    {
        const LedgerOutOfOrder fault(Store());
        ASSERT_TRUE(Arrive("<Ada>"));
        EXPECT_THAT(Printed(), testing::ElementsAre(QStringLiteral("Print(\"Ada\")"),
                                                    QStringLiteral("Print(\"1001\")")));
        EXPECT_THAT(Answers, testing::ElementsAre(QStringLiteral("OK 0 1")));
        EXPECT_EQ(Session.Face.StatusPanel(3).Text, QStringLiteral("Ledger cannot be written"));
    }
    ASSERT_TRUE(Arrive("<Bea>"));
    EXPECT_EQ(Answers.size(), 2);
    // What could not be written is written now.
    EXPECT_EQ(Entry(1).Values, QStringList(QStringLiteral("Ada")));
    EXPECT_EQ(Entry(1).State, LedgerState::Printed);
    EXPECT_EQ(Entry(2).Cards.at(0).Numbers, QStringList(QStringLiteral("1002")));
}

TEST_F(StationWithLedger, WhereTheLedgerMustBeKeptNoRecordIsTakenWithoutIt)
{
    Session.Options.LedgerMust = true;
    AnnounceWarning(QStringLiteral("The ledger cannot be written"));
    AnnounceWarning(QStringLiteral("The ledger can be written again"));
    {
        const LedgerOutOfOrder fault(Store());
        EXPECT_FALSE(Arrive("<Ada>"));
        EXPECT_TRUE(Printed().isEmpty());
        EXPECT_TRUE(Answers.isEmpty());
    }
    EXPECT_TRUE(Arrive("<Ada>"));
    EXPECT_THAT(Answers, testing::ElementsAre(QStringLiteral("OK 1 1")));
}

TEST_F(StationWithLedger, ARecordThatWasNotTakenStaysInTheInputUntilTheLedgerCanBeWritten)
{
    Session.Options.LedgerMust = true;
    AnnounceWarning(QStringLiteral("The ledger cannot be written"));
    AnnounceWarning(QStringLiteral("The ledger can be written again"));
    {
        const LedgerOutOfOrder fault(Store());
        TakeArrival(Session, QStringLiteral("<Ada>"), {});
        ASSERT_TRUE(Session.OfferAgain);
        Session.OfferAgain();
        EXPECT_TRUE(Printed().isEmpty());
    }
    ASSERT_TRUE(Session.OfferAgain);
    Session.OfferAgain();
    EXPECT_THAT(Printed(), testing::Contains(QStringLiteral("Print(\"Ada\")")));
    EXPECT_EQ(Entry(1).Values, QStringList(QStringLiteral("Ada")));
}

TEST_F(StationWithLedger, RecordsWithAnInputOfTheirOwnWaitInOrderUntilTheLedgerCanBeWritten)
{
    Session.Options.LedgerMust = true;
    Session.Options.KeepEveryRecord = true;
    Session.Settings.UseIP = true;
    ConnectSockets(Session);
    SwitchPorts(Session, SwitchMode::Network);
    AnnounceWarning(QStringLiteral("The ledger cannot be written"));
    AnnounceWarning(QStringLiteral("The ledger can be written again"));
    std::optional<LedgerOutOfOrder> fault(Store());
    const Host host(Session.Sock.LocalPort());
    host.Send("<Ada><Bea>");
    ASSERT_TRUE(EventsUntil([&] { return Session.LedgerTroubleTold; }));
    EXPECT_TRUE(Printed().isEmpty());
    fault.reset();
    ASSERT_TRUE(EventsUntil([&] { return Printed().size() == 4; }));
    EXPECT_EQ(Printed().at(0), QStringLiteral("Print(\"Ada\")"));
    EXPECT_EQ(Printed().at(2), QStringLiteral("Print(\"Bea\")"));
    EXPECT_EQ(Entry(1).Values, QStringList(QStringLiteral("Ada")));
}

TEST_F(StationWithLedger, WithoutRoomForItsNumberACardFails)
{
    Session.Options.Ledger = false;
    OpenLedger(Session);
    EmptyLog(StoreAt(Session.PathInFolder(QLatin1StringView(LayoutDatabaseName))));
    {
        const FilesMayNotGrow full(100);
        ASSERT_TRUE(Arrive("<Ada>"));
    }
    EXPECT_TRUE(Printed().isEmpty());
    ASSERT_EQ(Answers.size(), 1);
    EXPECT_TRUE(Answers.at(0).startsWith(QStringLiteral("ERR 1 The number could not be taken")));
    Arrive("<Bea>");
    EXPECT_EQ(Answers.at(1), QStringLiteral("OK 2 1"));
    EXPECT_THAT(Printed(), testing::Contains(QStringLiteral("Print(\"1001\")")));
}

TEST_F(StationWithLedger, ACardWhoseNumberCouldNotBeTakenBearsNone)
{
    {
        const LedgerOutOfOrder fault(Store(), "UPDATE ON Controls");
        ASSERT_TRUE(Arrive("<Ada>"));
    }
    ASSERT_TRUE(Arrive("<Bea>"));
    EXPECT_EQ(Entry(1).State, LedgerState::Failed);
    EXPECT_EQ(Entry(1).Cards.at(0).Numbers, QStringList());
    EXPECT_EQ(Entry(2).Cards.at(0).Numbers, QStringList(QStringLiteral("1001")));
}

TEST_F(StationWithLedger, ACardThatIsNotPrintedForWantOfTheLedgerBearsNoNumber)
{
    Session.Options.LedgerMust = true;
    AnnounceWarning(QStringLiteral("The ledger cannot be written"));
    AnnounceWarning(QStringLiteral("The ledger can be written again"));
    {
        const LedgerOutOfOrder fault(Store(), "INSERT ON LedgerCards");
        ASSERT_TRUE(Arrive("<Ada>"));
    }
    ASSERT_TRUE(Arrive("<Bea>"));
    EXPECT_EQ(Entry(1).State, LedgerState::Failed);
    EXPECT_EQ(Entry(1).Cards.at(0).Numbers, QStringList());
    EXPECT_EQ(Entry(2).Cards.at(0).Numbers, QStringList(QStringLiteral("1001")));
    EXPECT_THAT(Printed(), testing::ElementsAre(QStringLiteral("Print(\"Bea\")"),
                                                QStringLiteral("Print(\"1001\")")));
}

TEST_F(StationWithLedger, EveryRecordIsAnsweredHoweverLongTheLedgerIsOutOfOrder)
{
    constexpr int records = 10'010;
    AnnounceWarning(QStringLiteral("The ledger cannot be written"));
    AnnounceWarning(QStringLiteral("could not be written are not kept"));
    const LedgerOutOfOrder fault(Store());
    Session.CurrentParams.AutoSpool = false;
    for (int record = 0; record < records; ++record)
        ASSERT_TRUE(Arrive("<Ada>"));
    EXPECT_EQ(Answers.size(), records);
}

TEST_F(StationWithLedger, AStoredRecordWaitsUntilItsCardCanBeWrittenIntoTheLedger)
{
    Arrive("<Ada>");
    Store().Change(QStringLiteral("UPDATE LedgerEntries SET State = 'received'"));
    Store().Change(QStringLiteral("DELETE FROM LedgerCards"));
    Station.Printers.Operations.clear();
    AnnounceWarning(QStringLiteral("The ledger cannot be written"));
    AnnounceWarning(QStringLiteral("The ledger can be written again"));
    {
        const LedgerOutOfOrder fault(Store(), "INSERT ON LedgerCards");
        TakeStoredRecords(Session);
        EXPECT_TRUE(Printed().isEmpty());
        EXPECT_EQ(Entry(1).State, LedgerState::Received);
    }
    TakeStoredRecords(Session);
    EXPECT_EQ(Entry(1).State, LedgerState::Printed);
    EXPECT_EQ(Entry(1).Cards.size(), 1U);
    EXPECT_THAT(Printed(), testing::Contains(QStringLiteral("Print(\"Ada\")")));
}

TEST_F(StationWithLedger, AReprintWaitsUntilItsCardCanBeWrittenIntoTheLedger)
{
    Arrive("<Ada>");
    const qlonglong id = AskReprint(Store(), 1, ReprintMode::Once);
    Station.Printers.Operations.clear();
    AnnounceWarning(QStringLiteral("The ledger cannot be written"));
    AnnounceWarning(QStringLiteral("The ledger can be written again"));
    {
        const LedgerOutOfOrder fault(Store(), "INSERT ON LedgerCards");
        TakeStoredRecords(Session);
        EXPECT_TRUE(Printed().isEmpty());
    }
    TakeStoredRecords(Session);
    EXPECT_EQ(Entry(id).State, LedgerState::Printed);
    EXPECT_EQ(Entry(id).Cards.size(), 1U);
}

TEST_F(StationWithLedger, TablesThatAreGoneAreMadeAgain)
{
    AnnounceWarning(QStringLiteral("The ledger cannot be written"));
    AnnounceWarning(QStringLiteral("The ledger can be written again"));
    Arrive("<Ada>");
    for (const char* table : {"LedgerEntries", "LedgerRecords", "LedgerCards", "LedgerPages"})
        Store().Execute(QStringLiteral("DROP TABLE ") + QLatin1StringView(table));
    Arrive("<Bea>");
    Arrive("<Cid>");
    EXPECT_EQ(Entry(1).Values, QStringList(QStringLiteral("Bea")));
    EXPECT_EQ(Entry(2).Values, QStringList(QStringLiteral("Cid")));
    EXPECT_EQ(Answers.size(), 3);
}

TEST_F(StationWithLedger, AnswersOfOneHostComeInTheOrderOfItsRecords)
{
    auto& printer = static_cast<RecordingPrinter&>(Session.Printers.Current());
    printer.TellsLater = true;
    Arrive("<Ada>");
    Session.CurrentParams.AutoSpool = false;
    Arrive("<Bea>");
    EXPECT_TRUE(Answers.isEmpty());
    printer.TellOutcomes();
    ASSERT_EQ(Answers.size(), 2);
    EXPECT_EQ(Answers[0], QStringLiteral("OK 1 1"));
    EXPECT_TRUE(Answers[1].startsWith(QStringLiteral("ERR 2 "))) << qPrintable(Answers[1]);
}

} // namespace vantrel::test
