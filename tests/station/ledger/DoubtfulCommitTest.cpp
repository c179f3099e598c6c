#include "StationWithLedger.h"
#include "ledger/LedgerPool.h"
#include "store/StoreUpgrade.h"
#include "support/Events.h"
#include "support/PrivatePostgres.h"
#include "support/WarningGuard.h"

// A server that is lost while it commits: nobody knows whether it has.

namespace vantrel::test {

namespace {

/// The station of the other tests, whose store is always on a server. It waits for an answer for
/// a second.
class DoubtfulCommit : public ::testing::Test
{
protected:
    DoubtfulCommit()
    {
        BringUpToDate(*OpenStoreDatabase(Address), LedgerTables());
        Session.LayoutDb.Open(Address);
        Session.Settings.Framing = {QStringLiteral("<"), QStringLiteral("+"), QStringLiteral(">")};
        Session.Options.Ledger = true;
        Session.Options.UniqueNumbers = true;
        Session.Options.AnswerHost = true;
        BeginLayout(Session, Name);
        AddField(Session, 1);
        AddNumber(Session, 1000);
        SavePage(Session);
        OpenLedger(Session);
        LoadFirstPage(Session, Name);
        Station.Printers.Operations.clear();
        AnnounceWarning(QStringLiteral("The ledger cannot be written"));
        AnnounceWarning(QStringLiteral("The ledger can be written again"));
    }
    ~DoubtfulCommit() override { PrivatePostgres::Shared().DropSchema(Address); }

    /// As in each round of a station's event loop.
    void BeginStep()
    {
        constexpr int aSecond = 1000;
        Session.LayoutDb.Database().SetPatience(aSecond);
    }
    void TakeStored()
    {
        BeginStep();
        TakeStoredRecords(Session);
    }
    /// The server takes three seconds to commit a transaction that adds a row to this table.
    void MakeCommitsSlow(const char* table) const
    {
        PrivatePostgres::Run(
            Address, QStringLiteral("CREATE FUNCTION slow() RETURNS trigger AS $$ BEGIN PERFORM "
                                    "pg_sleep(3); RETURN NULL; END $$ LANGUAGE plpgsql; "
                                    "CREATE CONSTRAINT TRIGGER Slow AFTER INSERT ON %1 DEFERRABLE "
                                    "INITIALLY DEFERRED FOR EACH ROW EXECUTE FUNCTION slow()")
                         .arg(QLatin1StringView(table)));
    }
    /// Waits until the slow commits are over, and lets others be quick.
    void MakeCommitsQuick(const char* table) const
    {
        PrivatePostgres::Run(Address,
                             QStringLiteral("DROP TRIGGER Slow ON ") + QLatin1StringView(table));
    }
    bool Arrive(const char* record)
    {
        ArrivalSource source;
        source.Panel = QStringLiteral("Got Data (TCP/IP)");
        source.Peer = QStringLiteral("192.0.2.7:5000");
        source.Answer = [this](const QString& line) { Answers.append(line); };
        BeginStep();
        return TakeRecord(Session, QString::fromLatin1(record), source);
    }
    /// Each entry's first value, its state, and the numbers on its cards with their states.
    QStringList Entries()
    {
        QStringList entries;
        BeginStep();
        ReadEntries(Session.LayoutDb.Database(), {}, [&](const LedgerEntry& entry) {
            QString text = entry.Values.value(0) + u' ' + NameOf(entry.State);
            for (const LedgerCard& card : entry.Cards)
                text += u' ' + card.Numbers.join(u',') + u' ' + NameOf(card.State);
            entries.prepend(text);
        });
        return entries;
    }
    /// Writes what could not be written, as a station tries now and then.
    void WriteAgain()
    {
        ASSERT_TRUE(EventsUntil([&] {
            BeginStep();
            WriteLedger(Session);
            return !Session.Ledger.HasChanges();
        }));
    }
    QStringList Printed() const
    {
        QStringList texts = Station.Printers.Only({QStringLiteral("Print(")});
        texts.removeAll(QStringLiteral("Print(\" \")"));
        return texts;
    }

    const QString Name = QStringLiteral("Badge");
    QString Address = PrivatePostgres::Shared().NewSchema();
    TestSession Station;
    vantrel::Session& Session = Station.Session;
    QStringList Answers;
};

} // namespace

TEST_F(DoubtfulCommit, TheNumberOfACardThatWasNotPrintedIsVoid)
{
    MakeCommitsSlow("LedgerCards");
    Arrive("<Ada>");
    EXPECT_TRUE(Printed().isEmpty());
    ASSERT_EQ(Answers.size(), 1);
    EXPECT_TRUE(Answers.at(0).startsWith(QStringLiteral("ERR "))) << Answers.at(0).toStdString();
    EXPECT_TRUE(Session.Ledger.HasDoubts());
    // What may be in the ledger is nothing to be carried out.
    TakeStored();
    EXPECT_TRUE(Printed().isEmpty());

    MakeCommitsQuick("LedgerCards");
    WriteAgain();
    EXPECT_FALSE(Session.Ledger.HasDoubts());
    EXPECT_THAT(Entries(), testing::ElementsAre(QStringLiteral("Ada void 1001 void"),
                                                QStringLiteral("Ada failed  failed")));
    Arrive("<Bea>");
    EXPECT_THAT(Printed(), testing::ElementsAre(QStringLiteral("Print(\"Bea\")"),
                                                QStringLiteral("Print(\"1002\")")));
    EXPECT_TRUE(Entries().last().startsWith(QStringLiteral("Bea printed 1002")));
}

TEST_F(DoubtfulCommit, AnEntryThatWaitsInTheLedgerIsCarriedOutOnceAfterwards)
{
    Arrive("<Ada>");
    BeginStep();
    AskReprint(Session.LayoutDb.Database(), 1, ReprintMode::Once);
    Station.Printers.Operations.clear();
    MakeCommitsSlow("LedgerCards");
    TakeStored();
    EXPECT_TRUE(Printed().isEmpty());

    MakeCommitsQuick("LedgerCards");
    WriteAgain();
    TakeStored();
    EXPECT_THAT(Printed(), testing::ElementsAre(QStringLiteral("Print(\"Ada\")"),
                                                QStringLiteral("Print(\"1001\")")));
    TakeStored();
    EXPECT_EQ(Printed().size(), 2);
    EXPECT_THAT(Entries(),
                testing::ElementsAre(QStringLiteral("Ada printed 1001 printed"),
                                     QStringLiteral("Ada printed 1001 void 1001 printed")));
}

/// The server has carried out the commit, and another station has printed the card before this one
/// learns of it.
TEST_F(DoubtfulCommit, ARecordThatIsLeftToAPoolIsWrittenOnce)
{
    Session.Options.Pool = {QStringLiteral("cards"), PoolWork::Take};
    MakeCommitsSlow("LedgerPools");
    Arrive("<Ada>");
    EXPECT_TRUE(Answers.isEmpty());
    EXPECT_TRUE(Session.Ledger.HasDoubts());
    MakeCommitsQuick("LedgerPools");
    auto other = OpenStoreDatabase(Address);
    const auto claimed =
        ClaimEntry(*other, {QStringLiteral("cards"), 7, Station.Printers.DeviceNames()}, {});
    ASSERT_TRUE(claimed);
    other->Change(QStringLiteral("UPDATE LedgerEntries SET State = 'printed' WHERE ID = ?"),
                  {*claimed});
    WriteAgain();
    EXPECT_THAT(Entries(), testing::ElementsAre(QStringLiteral("Ada printed")));
    EXPECT_EQ(Answers, QStringList(QStringLiteral("OK %1 0").arg(*claimed)));
}

} // namespace vantrel::test
