#include "StoreTest.h"
#include "store/StoreDatabase.h"
#include "store/StoreUpgrade.h"
#include "support/PrivatePostgres.h"
#include <QThread>

// A server that is silent, full or a replica, and one that takes over from another.

namespace vantrel::test {

namespace {

const QString Controls = QStringLiteral("Controls");

void AddRow(Connection& store)
{
    store.BeginTrans();
    store.Database().InsertRow(Controls, {QStringLiteral("Page")}, {1}, nullptr);
    store.CommitTrans();
}

QString RowsOf(const QString& address)
{
    return PrivatePostgres::Run(address, QStringLiteral("SELECT count(*) FROM Controls"));
}

/// What a store says of its server, once asked.
QString TroubleOf(Connection& store)
{
    FailureOf([&] { store.Database().Ask(); });
    return store.Database().Trouble();
}

constexpr int SoonMs = 200;

void UntilItWorks(Connection& store)
{
    const auto works = [&] {
        store.Database().SetPatience(SoonMs);
        return FailureOf([&] { AddRow(store); }) == 0;
    };
    while (!works()) {
        store.RollbackTrans();
        QThread::msleep(20);
    }
}

/// A server with a store that is up to date, and a replica of it.
struct ServerWithReplica
{
    PrivatePostgres First;
    const QString Database = [this] {
        const QString address = First.NewDatabase();
        BringUpToDate(*OpenStoreDatabase(address), {});
        return address.section(QStringLiteral("dbname="), 1).section(u' ', 0, 0);
    }();
    PrivatePostgres Second{First};

    QString Address() const { return PrivatePostgres::AddressOfBoth(Database, First, Second); }
    QString AddressOfSecond() const
    {
        return PrivatePostgres::AddressOfBoth(Database, Second, Second);
    }
};

} // namespace

TEST(ServerFault, AServerThatIsSilentIsAwayUntilItAnswers)
{
    PrivatePostgres server;
    const QString address = server.NewDatabase();
    BringUpToDate(*OpenStoreDatabase(address), {});
    Connection store;
    store.Open(address);
    store.Database().SetPatience(SoonMs);
    server.StandStill(true);
    EXPECT_EQ(FailureOf([&] { AddRow(store); }), FailureNumber::StoreBusy);
    EXPECT_TRUE(TroubleOf(store).contains(QStringLiteral("does not answer")));
    EXPECT_FALSE(store.InTransaction());
    server.StandStill(false);
    UntilItWorks(store);
    EXPECT_EQ(RowsOf(address), QStringLiteral("1"));
    EXPECT_EQ(TroubleOf(store), QString());
}

TEST(ServerFault, ACommitWithoutAnAnswerIsInDoubtAndOneThatIsRefusedIsNot)
{
    PrivatePostgres server;
    const QString address = server.NewDatabase();
    BringUpToDate(*OpenStoreDatabase(address), {});
    Connection store;
    store.Open(address);
    store.BeginTrans();
    store.Database().InsertRow(Controls, {}, {}, nullptr);
    store.Database().SetPatience(SoonMs);
    server.StandStill(true);
    EXPECT_EQ(FailureOf([&] { store.CommitTrans(); }), FailureNumber::StoreBusy);
    EXPECT_TRUE(store.Database().IsCommitInDoubt());
    store.RollbackTrans();
    server.StandStill(false);
    UntilItWorks(store);
    EXPECT_FALSE(store.Database().IsCommitInDoubt());

    PrivatePostgres::Run(address, QStringLiteral("ALTER TABLE Controls ADD UNIQUE (Page) "
                                                 "DEFERRABLE INITIALLY DEFERRED"));
    store.Database().SetPatience(1000);
    store.BeginTrans();
    store.Database().InsertRow(Controls, {QStringLiteral("Page")}, {1}, nullptr);
    EXPECT_EQ(FailureOf([&] { store.CommitTrans(); }), FailureNumber::StatementInvalid);
    EXPECT_FALSE(store.Database().IsCommitInDoubt());
}

TEST(ServerFault, AStationThatStandsStillLosesItsTransaction)
{
    PrivatePostgres server;
    const QString address = server.NewDatabase();
    BringUpToDate(*OpenStoreDatabase(address), {});
    Connection store;
    store.Open(address);
    store.BeginTrans();
    EXPECT_EQ(store.Database()
                  .Execute(QStringLiteral("SHOW idle_in_transaction_session_timeout"))
                  .toString(),
              QStringLiteral("10s"));
    store.CommitTrans();
    // Nothing outlives the transaction.
    EXPECT_EQ(store.Database()
                  .Execute(QStringLiteral("SHOW idle_in_transaction_session_timeout"))
                  .toString(),
              QStringLiteral("0"));
}

TEST(ServerFault, AServerWithoutAConnectionLeftIsAwayAndSaysWhy)
{
    PrivatePostgres server;
    const QString address = server.NewDatabase();
    BringUpToDate(*OpenStoreDatabase(address), {});
    PrivatePostgres::Run(address, QStringLiteral("CREATE ROLE till LOGIN CONNECTION LIMIT 1; GRANT "
                                                 "SELECT ON ALL TABLES IN SCHEMA public TO till"));
    const QString asTill =
        QString(address).replace(QStringLiteral("user=vantrel"), QStringLiteral("user=till"));
    auto first = std::make_unique<Connection>();
    first->Open(asTill);
    Connection second;
    EXPECT_EQ(FailureOf([&] { second.Open(asTill); }), FailureNumber::StoreBusy);
    first.reset();
    // The server notices the end of a connection a moment later.
    while (FailureOf([&] { second.Open(asTill); }) != 0)
        QThread::msleep(20);
    EXPECT_EQ(TroubleOf(second), QString());
}

TEST(ServerFault, AReplicaThatIsPromotedGoesOnWithEveryCommit)
{
    ServerWithReplica servers;
    Connection store;
    store.Open(servers.Address());
    constexpr int committed = 20;
    for (int i = 0; i < committed; ++i)
        ASSERT_NO_THROW(AddRow(store));

    servers.First.Kill();
    EXPECT_EQ(FailureOf([&] { AddRow(store); }), FailureNumber::StoreBusy);
    store.RollbackTrans();
    EXPECT_TRUE(TroubleOf(store).contains(QStringLiteral("is away")));
    servers.Second.Promote();
    UntilItWorks(store);
    EXPECT_EQ(TroubleOf(store), QString());
    Connection onSecond;
    onSecond.Open(servers.AddressOfSecond());
    Recordset rows(onSecond);
    rows.Open(QStringLiteral("SELECT * FROM [Controls]"));
    EXPECT_EQ(rows.RecordCount(), committed + 1);
}

TEST(ServerFault, AHostThatIsSilentIsPassedOver)
{
    ServerWithReplica servers;
    Connection store;
    store.Open(servers.Address());
    store.Database().SetPatience(SoonMs);
    servers.First.StandStill(true);
    EXPECT_EQ(FailureOf([&] { AddRow(store); }), FailureNumber::StoreBusy);
    store.RollbackTrans();
    servers.Second.Promote();
    UntilItWorks(store);
    servers.First.StandStill(false);
    EXPECT_EQ(TroubleOf(store), QString());
}

TEST(ServerFault, AReplicaAloneIsNoServerToPrintWith)
{
    ServerWithReplica servers;
    Connection store;
    store.Open(servers.AddressOfSecond().remove(QStringLiteral("target_session_attrs=read-write")));
    EXPECT_NE(FailureOf([&] { AddRow(store); }), 0);
    store.RollbackTrans();
    // An answer is good for two seconds.
    while (TroubleOf(store).isEmpty())
        QThread::msleep(20);
    EXPECT_TRUE(TroubleOf(store).contains(QStringLiteral("replica")));
}

} // namespace vantrel::test
