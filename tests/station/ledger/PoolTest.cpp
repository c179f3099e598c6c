#include "StationWithLedger.h"
#include "station/capture/Ports.h"
#include "station/commands/HistoryCommands.h"
#include "support/WarningGuard.h"

// Stations that share the records of their hosts.

namespace vantrel::test {

namespace {

class StationInPool : public StationWithLedger
{
protected:
    StationInPool() { Work(PoolWork::Take); }

    void Work(PoolWork work) { Session.Options.Pool = {QStringLiteral("cards"), work}; }
    qlonglong Count()
    {
        return Store().Execute(QStringLiteral("SELECT COUNT(*) FROM LedgerEntries")).toLongLong();
    }
};

TEST_F(StationInPool, ARecordThatIsTakenWaitsAndItsHostIsToldAtOnce)
{
    EXPECT_TRUE(Arrive("<Ada>"));
    EXPECT_EQ(Answers, QStringList(QStringLiteral("OK 1 0")));
    const LedgerEntry entry = Entry(1);
    EXPECT_EQ(entry.State, LedgerState::Received);
    EXPECT_EQ(entry.Session, NoSession);
    EXPECT_EQ(entry.Layout, Name);
    EXPECT_EQ(entry.Values, QStringList(QStringLiteral("Ada")));
    EXPECT_TRUE(entry.Cards.empty());
    EXPECT_TRUE(Printed().isEmpty());
    TakeStoredRecords(Session);
    EXPECT_TRUE(Printed().isEmpty());
}

TEST_F(StationInPool, ARecordThatWouldGiveNoCardFailsAtOnce)
{
    Session.CurrentParams.AutoSpool = false;
    SavePage(Session);
    EXPECT_TRUE(Arrive("<Ada>"));
    EXPECT_EQ(Entry(1).State, LedgerState::Failed);
    EXPECT_EQ(Entry(1).Session, 1);
    ASSERT_EQ(Answers.size(), 1);
    EXPECT_EQ(Answers.at(0),
              QStringLiteral("ERR 1 The layout Badge does not print automatically."));
    Work(PoolWork::Print);
    TakeStoredRecords(Session);
    EXPECT_EQ(Entry(1).State, LedgerState::Failed);
}

TEST_F(StationInPool, AMemberThatPrintsPrintsWhatOthersTookInItsOrder)
{
    Arrive("<Ada>");
    Arrive("<Bob>");
    Work(PoolWork::Print);
    Session.SessionNumber = 7;
    TakeStoredRecords(Session);
    for (const qlonglong id : {1, 2}) {
        const LedgerEntry entry = Entry(id);
        EXPECT_EQ(entry.State, LedgerState::Printed);
        EXPECT_EQ(entry.Session, 7);
        EXPECT_EQ(entry.Cards.at(0).Numbers, QStringList(QString::number(1000 + id)));
    }
    const QStringList printed = Printed();
    EXPECT_LT(printed.indexOf(QStringLiteral("Print(\"Ada\")")),
              printed.indexOf(QStringLiteral("Print(\"Bob\")")));
    EXPECT_EQ(Answers.size(), 2);
}

TEST_F(StationInPool, AnotherLayoutThatIsOpenAtTheMemberStaysOpen)
{
    Arrive("<Ada>");
    BeginLayout(Session, QStringLiteral("Other"));
    AddText(Session, QStringLiteral("Other text"));
    SavePage(Session);
    LoadFirstPage(Session, QStringLiteral("Other"));
    Work(PoolWork::Print);
    TakeStoredRecords(Session);
    EXPECT_EQ(Entry(1).State, LedgerState::Printed);
    EXPECT_EQ(Entry(1).Cards.at(0).Layout, Name);
    EXPECT_EQ(Session.CurrentLayoutName, QStringLiteral("Other"));
}

TEST_F(StationInPool, ARecordWhosePrinterNobodyHasWaits)
{
    Arrive("<Ada>");
    Store().Change(QStringLiteral("UPDATE LayoutParams SET PrinterDevice = 'Elsewhere'"));
    Work(PoolWork::Both);
    TakeStoredRecords(Session);
    EXPECT_EQ(Entry(1).State, LedgerState::Received);
    EXPECT_EQ(Entry(1).Session, NoSession);
    EXPECT_TRUE(Printed().isEmpty());
}

TEST_F(StationInPool, AMemberThatOnlyPrintsOpensNoPort)
{
    Session.Settings.UseIP = true;
    for (const auto& [work, isOpen] :
         {std::pair{PoolWork::Print, false}, std::pair{PoolWork::Take, true},
          std::pair{PoolWork::Both, true}}) {
        Work(work);
        SwitchPorts(Session, SwitchMode::Network);
        EXPECT_EQ(Session.Sock.State(0) == SockState::Listening, isOpen) << static_cast<int>(work);
    }
}

TEST_F(StationInPool, AReprintGoesToThePool)
{
    Arrive("<Ada>");
    Work(PoolWork::Both);
    Session.SessionNumber = 7;
    TakeStoredRecords(Session);
    EXPECT_EQ(ReprintFromHistory(Session, 1, ReprintMode::Once),
              QStringLiteral("Entry 1 waits as entry 2 for a station of its pool to print it."));
    Session.SessionNumber = 8;
    Station.Printers.Operations.clear();
    TakeStoredRecords(Session);
    EXPECT_EQ(Entry(2).State, LedgerState::Printed);
    EXPECT_EQ(Entry(2).Session, 8);
    EXPECT_EQ(Entry(2).Cards.at(0).Numbers, Entry(1).Cards.at(0).Numbers);
    EXPECT_THAT(Printed(), testing::Contains(QStringLiteral("Print(\"Ada\")")));
}

TEST_F(StationInPool, WhileTheLedgerCannotBeWrittenRecordsWaitAndAreAnsweredWhenTheyAreSafe)
{
    AnnounceWarning(QStringLiteral("The ledger cannot be written"));
    AnnounceWarning(QStringLiteral("The ledger can be written again"));
    Session.Ledger.Refuse(QStringLiteral("Another station has this number."));
    int taken = 0;
    constexpr int sent = 100;
    for (int i = 0; i < sent; ++i)
        taken += Arrive("<Ada>") ? 1 : 0;
    EXPECT_GT(taken, 0);
    EXPECT_LT(taken, sent);
    EXPECT_TRUE(Answers.isEmpty());
    EXPECT_EQ(Count(), 0);
    OpenLedger(Session);
    WriteLedger(Session);
    EXPECT_EQ(Count(), taken);
    EXPECT_EQ(Answers.size(), taken);
    EXPECT_TRUE(Answers.contains(QStringLiteral("OK 1 0")));
    EXPECT_TRUE(Arrive("<Bob>"));
    EXPECT_EQ(Answers.size(), taken + 1);
}

} // namespace
} // namespace vantrel::test
