#include "station/session/PoolStatus.h"
#include "ledger/LedgerTables.h"
#include "store/StoreTransaction.h"
#include "support/LedgerFill.h"
#include "support/TestSession.h"
#include <gtest/gtest.h>

// What the status bar shows of a station's pool.

namespace vantrel::test {

namespace {

class PoolOfStation : public ::testing::Test
{
protected:
    PoolOfStation()
    {
        Station.WithDatabase();
        MakeLedgerTables(Store());
        Station.Session.Options.Pool.Name = QStringLiteral("badges");
    }

    StoreDatabase& Store() { return Station.Session.LayoutDb.Database(); }
    /// Adds a record of a pool. @return its number
    qlonglong Leave(const char* pool, LedgerState state = LedgerState::Received,
                    int session = NoSession)
    {
        LedgerEntry entry = PrintedEntry({QStringLiteral("Ada")});
        entry.State = state;
        entry.Session = session;
        entry.Pool = QLatin1StringView(pool);
        entry.Cards.clear();
        return AddLedgerEntry(Store(), entry);
    }
    QString Text() { return PoolPanel(Station.Session).Text; }
    QString ToolTip(PoolWork work)
    {
        Station.Session.Options.Pool.Work = work;
        return PoolPanel(Station.Session).ToolTip;
    }

    TestSession Station;
};

} // namespace

TEST_F(PoolOfStation, ShowsHowManyRecordsWait)
{
    EXPECT_EQ(Text(), QStringLiteral("Pool: 0 waiting (badges)"));
    Leave("badges");
    EXPECT_EQ(Text(), QStringLiteral("Pool: 1 waiting (badges)"));
    Leave("badges");
    Leave("badges");
    EXPECT_EQ(Text(), QStringLiteral("Pool: 3 waiting (badges)"));
}

TEST_F(PoolOfStation, CountsNeitherRecordsOfOthersNorThoseThatAStationHasTaken)
{
    Leave("passes");
    Leave("badges", LedgerState::Received, 2);
    Leave("badges", LedgerState::Void);
    Leave("badges", LedgerState::Printed, 2);
    AddLedgerEntry(Store(), PrintedEntry({QStringLiteral("Ada")}));
    EXPECT_EQ(Text(), QStringLiteral("Pool: 0 waiting (badges)"));
}

TEST_F(PoolOfStation, CountsALongQueueUpToALimit)
{
    constexpr int most = 10'000;
    {
        StoreTransaction transaction(Store());
        for (int i = 0; i < most; ++i)
            Leave("badges");
        transaction.Commit();
    }
    EXPECT_EQ(Text(), QStringLiteral("Pool: 10000 waiting (badges)"));
    Leave("badges");
    EXPECT_EQ(Text(), QStringLiteral("Pool: over 10000 waiting (badges)"));
}

TEST_F(PoolOfStation, ShowsItsNameAloneWhileTheStoreCannotTell)
{
    Leave("badges");
    {
        const StoreTransaction transaction(Store());
        EXPECT_EQ(Text(), QStringLiteral("Pool (badges)"));
    }
    EXPECT_EQ(Text(), QStringLiteral("Pool: 1 waiting (badges)"));
    Store().Execute(QStringLiteral("DROP TABLE LedgerPools"));
    EXPECT_EQ(Text(), QStringLiteral("Pool (badges)"));
    Station.Session.LayoutDb.Close();
    EXPECT_EQ(Text(), QStringLiteral("Pool (badges)"));
}

TEST_F(PoolOfStation, TellsWhatTheStationDoesInIt)
{
    EXPECT_EQ(
        ToolTip(PoolWork::Take),
        QStringLiteral(
            "Pool: 0 waiting (badges). This station takes records for the pool and prints none."));
    EXPECT_EQ(ToolTip(PoolWork::Print),
              QStringLiteral("Pool: 0 waiting (badges). This station prints records of the pool "
                             "and opens no port."));
    EXPECT_EQ(ToolTip(PoolWork::Both),
              QStringLiteral("Pool: 0 waiting (badges). This station takes records for the pool "
                             "and prints those of all."));
}

TEST_F(PoolOfStation, IsNoneWithoutItsKey)
{
    Station.Session.Options.Pool.Name.clear();
    EXPECT_EQ(Text(), QString());
    EXPECT_EQ(PoolPanel(Station.Session).ToolTip, QString());
}

} // namespace vantrel::test
