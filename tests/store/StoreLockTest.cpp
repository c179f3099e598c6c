#include "store/StoreLock.h"
#include "StoreTest.h"
#include "store/StoreDatabase.h"
#include "store/StoreUpgrade.h"
#include "support/PrivatePostgres.h"
#include <gtest/gtest.h>

// Which transactions go on at the same time, and which wait for each other.

namespace vantrel::test {

namespace {

class ServerLocks : public ::testing::Test
{
protected:
    ServerLocks()
    {
        BringUpToDate(*OpenStoreDatabase(Address), {});
        First.Open(Address);
        Second = OpenStoreDatabase(Address);
        // Who waits is not kept waiting for five seconds.
        Second->SetPatience(PatienceMs);
    }
    ~ServerLocks() override { PrivatePostgres::Shared().DropSchema(Address); }

    /// Whether a second program can begin while a first one is in a transaction.
    bool GoTogether(const StoreLock& first, const StoreLock& second)
    {
        EXPECT_TRUE(First.Database().Begin(first));
        const bool begins = SecondBegins(second);
        First.Database().Rollback();
        return begins;
    }
    bool SecondBegins(const StoreLock& lock)
    {
        Second->SetPatience(PatienceMs);
        const int failure = FailureOf([&] { Second->Begin(lock); });
        EXPECT_TRUE(failure == 0 || failure == FailureNumber::StoreBusy);
        EXPECT_EQ(Second->InTransaction(), failure == 0);
        if (failure == 0)
            Second->Rollback();
        return failure == 0;
    }

    QString Address = PrivatePostgres::Shared().NewSchema();
    Connection First;
    std::unique_ptr<StoreDatabase> Second;

private:
    static constexpr int PatienceMs = 500;
};

} // namespace

TEST_F(ServerLocks, WhoLocksTheStoreIsAlone)
{
    EXPECT_FALSE(GoTogether(StoreLock::OfStore(), StoreLock::OfStore()));
    EXPECT_FALSE(GoTogether(StoreLock::OfStore(), StoreLock::OfOwnRows()));
    EXPECT_FALSE(GoTogether(StoreLock::OfOwnRows(), StoreLock::OfStore()));
    EXPECT_FALSE(GoTogether(StoreLock::OfName(QStringLiteral("a")), StoreLock::OfStore()));
    EXPECT_FALSE(GoTogether(StoreLock::OfStore(), StoreLock::OfName(QStringLiteral("a"))));
}

TEST_F(ServerLocks, OfOneNameOnlyOneGoesOn)
{
    EXPECT_FALSE(GoTogether(StoreLock::OfName(QStringLiteral("it's")),
                            StoreLock::OfName(QStringLiteral("it's"))));
}

TEST_F(ServerLocks, OwnRowsAndOtherNamesNeedNotWait)
{
    EXPECT_TRUE(GoTogether(StoreLock::OfOwnRows(), StoreLock::OfOwnRows()));
    EXPECT_TRUE(GoTogether(StoreLock::OfOwnRows(), StoreLock::OfName(QStringLiteral("a"))));
    EXPECT_TRUE(
        GoTogether(StoreLock::OfName(QStringLiteral("a")), StoreLock::OfName(QStringLiteral("b"))));
}

TEST_F(ServerLocks, AStoreInAnotherSchemaOfTheDatabaseHasLocksOfItsOwn)
{
    const QString address = PrivatePostgres::Shared().NewSchema();
    BringUpToDate(*OpenStoreDatabase(address), {});
    Second = OpenStoreDatabase(address);
    EXPECT_TRUE(GoTogether(StoreLock::OfStore(), StoreLock::OfStore()));
    Second.reset();
    PrivatePostgres::Shared().DropSchema(address);
}

TEST_F(ServerLocks, ANestedTransactionKeepsTheLockOfTheOuterOne)
{
    First.BeginTrans();
    First.BeginTrans(StoreLock::OfOwnRows());
    First.CommitTrans();
    EXPECT_FALSE(SecondBegins(StoreLock::OfOwnRows()));
    First.RollbackTrans();
    EXPECT_TRUE(SecondBegins(StoreLock::OfOwnRows()));
}

TEST_F(ServerLocks, AStatementOfItsOwnWaitsForWhoLocksTheStore)
{
    const QString change = QStringLiteral("UPDATE VantrelStore SET Version = Version");
    First.BeginTrans();
    EXPECT_EQ(FailureOf([&] { Second->Change(change); }), FailureNumber::StoreBusy);
    First.RollbackTrans();
    EXPECT_GT(Second->Change(change), 0);
}

} // namespace vantrel::test
