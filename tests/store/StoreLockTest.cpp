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
    /// Whether nothing of a transaction is left once it was ended.
    bool SecondBeginsAfter(const std::function<void()>& end)
    {
        end();
        return !Second->InTransaction() && SecondBegins(StoreLock::OfStore());
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

TEST_F(ServerLocks, ALockThatIsTakenWithTheNextStatementIsMissedByThatOne)
{
    First.Database().Begin(StoreLock::OfStore());
    Second->SetPatience(500);
    const auto change = [&] {
        Second->Change(QStringLiteral("UPDATE Controls SET C_Value = 'a'"));
    };
    EXPECT_TRUE(Second->BeginWithNext(StoreLock::OfOwnRows()));
    EXPECT_TRUE(Second->InTransaction());
    EXPECT_FALSE(Second->BeginWithNext(StoreLock::OfOwnRows()));
    EXPECT_EQ(FailureOf(change), FailureNumber::StoreBusy);
    EXPECT_FALSE(Second->InTransaction());
    EXPECT_NE(FailureOf([&] { Second->Commit(); }), 0);
    First.Database().Rollback();

    EXPECT_TRUE(Second->BeginWithNext(StoreLock::OfStore()));
    EXPECT_EQ(FailureOf(change), 0);
    EXPECT_EQ(FailureOf([&] {
                  First.Database().SetPatience(500);
                  First.Database().Begin();
              }),
              FailureNumber::StoreBusy);
    Second->Commit();
    EXPECT_FALSE(Second->InTransaction());
}

TEST_F(ServerLocks, ATransactionThatWasNeverUsedEndsWithoutATrace)
{
    EXPECT_TRUE(Second->BeginWithNext(StoreLock::OfStore()));
    EXPECT_TRUE(SecondBeginsAfter([&] { Second->Rollback(); }));
    EXPECT_TRUE(Second->BeginWithNext(StoreLock::OfStore()));
    EXPECT_TRUE(SecondBeginsAfter([&] { Second->Commit(); }));
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
