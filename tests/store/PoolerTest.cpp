#include "StoreTest.h"
#include "store/StoreDatabase.h"
#include "store/StoreUpgrade.h"
#include "support/PrivatePooler.h"
#include "support/PrivatePostgres.h"
#include <algorithm>
#include <thread>
#include <vector>

// A pooler between stations and the server, which lends a connection for the time of a transaction:
// more stations than it has connections share a store.

namespace vantrel::test {

namespace {

const QString Controls = QStringLiteral("Controls");

class ServerPooler : public ::testing::Test
{
protected:
    ServerPooler() { BringUpToDate(*OpenStoreDatabase(Address), {}); }

    /// Takes the next number of the row, as a station does for a card.
    static int TakeNumber(Connection& store)
    {
        store.BeginTrans();
        Recordset rows(store);
        rows.Open(QStringLiteral("SELECT * FROM [Controls]"), CursorLock::Optimistic);
        const int next = rows.Value(QStringLiteral("C_Value")).toInt() + 1;
        rows.SetValue(QStringLiteral("C_Value"), QString::number(next));
        rows.Update();
        store.CommitTrans();
        return next;
    }

    PrivatePostgres& Server = PrivatePostgres::Shared();
    QString Direct = Server.NewDatabase();
    PrivatePooler Pooler{Server};
    QString Address = Pooler.Through(Direct);
};

} // namespace

TEST_F(ServerPooler, GivesEachNumberOnceToMoreStationsThanItHasConnections)
{
    constexpr int stations = 4 * PrivatePooler::Connections;
    constexpr int each = 25;
    OpenStoreDatabase(Address)->InsertRow(Controls, {QStringLiteral("C_Value")},
                                          {QStringLiteral("0")}, nullptr);
    std::vector<std::vector<int>> taken(stations);
    std::vector<std::thread> threads;
    threads.reserve(stations);
    for (std::vector<int>& own : taken)
        threads.emplace_back([&] {
            Connection store;
            store.Open(Address);
            for (int i = 0; i < each; ++i)
                own.push_back(TakeNumber(store));
        });
    for (std::thread& thread : threads)
        thread.join();
    std::vector<int> all;
    for (const std::vector<int>& own : taken) {
        EXPECT_TRUE(std::is_sorted(own.begin(), own.end()));
        all.insert(all.end(), own.begin(), own.end());
    }
    std::sort(all.begin(), all.end());
    for (int i = 0; i < stations * each; ++i)
        EXPECT_EQ(all.at(static_cast<std::size_t>(i)), i + 1);
}

TEST_F(ServerPooler, LendsAConnectionForATransactionAlone)
{
    // Each has been idle before, and none holds a connection.
    std::vector<std::unique_ptr<Connection>> idle(std::size_t{4} * PrivatePooler::Connections);
    for (auto& store : idle) {
        store = std::make_unique<Connection>();
        store->Open(Address);
        store->Database().Execute(QStringLiteral("SELECT 1"));
    }
    EXPECT_LE(
        PrivatePostgres::Run(Direct, QStringLiteral("SELECT count(*) FROM pg_stat_activity WHERE "
                                                    "datname = current_database() AND pid <> "
                                                    "pg_backend_pid()"))
            .toInt(),
        PrivatePooler::Connections);
    Connection last;
    last.Open(Address);
    last.BeginTrans();
    EXPECT_EQ(last.Database()
                  .Execute(QStringLiteral("SHOW idle_in_transaction_session_timeout"))
                  .toString(),
              QStringLiteral("10s"));
    last.CommitTrans();
    // The next who is lent this connection finds no setting of another's on it.
    for (auto& store : idle)
        EXPECT_EQ(store->Database()
                      .Execute(QStringLiteral("SHOW idle_in_transaction_session_timeout"))
                      .toString(),
                  QStringLiteral("0"));
}

TEST_F(ServerPooler, TakesLargeRowsAndManyInOneTransaction)
{
    constexpr int rows = 300;
    const QString large(3'000'000, u'x');
    const auto store = OpenStoreDatabase(Address);
    std::vector<QVariantList> values(rows, {QStringLiteral("small")});
    values.push_back({large});
    store->InsertRows(Controls, {QStringLiteral("C_Value")}, values);
    Connection reader;
    reader.Open(Address);
    Recordset all(reader);
    all.Open(QStringLiteral("SELECT * FROM [Controls]"));
    EXPECT_EQ(all.RecordCount(), rows + 1);
    EXPECT_EQ(
        PrivatePostgres::Run(Direct, QStringLiteral("SELECT max(length(C_Value)) FROM Controls")),
        QString::number(large.size()));
}

TEST_F(ServerPooler, TakesAnAddressThatWantsAServerToWrite)
{
    Connection store;
    EXPECT_EQ(FailureOf([&] {
                  store.Open(Address + QStringLiteral(" target_session_attrs=read-write"));
              }),
              0);
}

} // namespace vantrel::test
