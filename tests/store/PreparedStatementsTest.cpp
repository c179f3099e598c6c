#include "StoreTest.h"
#include "store/ReadAhead.h"
#include "store/StoreDatabase.h"
#include "store/StoreUpgrade.h"
#include "support/PrivatePooler.h"
#include "support/PrivatePostgres.h"

// Statements that a server reads and plans once for each connection, where nobody stands between.

namespace vantrel::test {

namespace {

const QString Badges = QStringLiteral("SELECT * FROM [Controls] WHERE [LayoutName] = 'Badge'");

class ServerPrepared : public ::testing::Test
{
protected:
    ServerPrepared() { BringUpToDate(*OpenStoreDatabase(Direct), {}); }

    static int CountOfPrepared(Connection& store)
    {
        return store.Database()
            .Execute(QStringLiteral("SELECT count(*) FROM pg_prepared_statements"))
            .toInt();
    }
    static QStringList TextsOf(Connection& store)
    {
        return Column(store, Badges, QStringLiteral("C_Value"));
    }
    static void AddBadge(Connection& store, const QString& text)
    {
        store.Database().InsertRow(QStringLiteral("Controls"),
                                   {QStringLiteral("LayoutName"), QStringLiteral("C_Value")},
                                   {QStringLiteral("Badge"), text}, nullptr);
    }

    PrivatePostgres& Server = PrivatePostgres::Shared();
    QString Direct = Server.NewDatabase();
    Connection Store;
};

TEST_F(ServerPrepared, AStatementThatComesAgainIsPreparedOnceAndFindsWhatIsNew)
{
    Store.Open(Direct);
    TextsOf(Store);
    const int once = CountOfPrepared(Store);
    for (int i = 0; i < 10; ++i) {
        EXPECT_EQ(TextsOf(Store).size(), i);
        Connection other;
        other.Open(Direct);
        AddBadge(other, QString::number(i));
    }
    EXPECT_EQ(CountOfPrepared(Store), once + 1);
}

TEST_F(ServerPrepared, ValuesOfOtherTypesAreAnotherStatement)
{
    Store.Open(Direct);
    const QString echo =
        QStringLiteral("SELECT pg_typeof(?)::text, 'a text that makes the statement longer'");
    const auto typeOf = [&](const QVariant& value) {
        QString type;
        Store.Database().Select(echo, {value},
                                [&](const StoreRow& row) { type = row.Value(0).toString(); });
        return type;
    };
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(typeOf(7), QStringLiteral("bigint"));
        EXPECT_EQ(typeOf(QStringLiteral("7")), QStringLiteral("text"));
    }
    EXPECT_GE(CountOfPrepared(Store), 2);
}

TEST_F(ServerPrepared, HoweverManyDifferentStatementsTheServerKeepsSome)
{
    constexpr int statements = 2000;
    Store.Open(Direct);
    for (int i = 0; i < statements; ++i) {
        const QString sql = QStringLiteral("SELECT %1 FROM Controls WHERE LayoutName = ?").arg(i);
        for (int times = 0; times < 2; ++times)
            Store.Database().Select(sql, {QStringLiteral("Badge")}, [](const StoreRow&) {});
    }
    EXPECT_LE(CountOfPrepared(Store), 200);
}

TEST_F(ServerPrepared, AFailureWhileAStatementIsPreparedIsThatOfTheStatement)
{
    Store.Open(Direct);
    const QString broken =
        QStringLiteral("SELECT nothing FROM Controls WHERE LayoutName = 'Badge'");
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(FailureOf([&] { Store.Database().Select(broken, {}, [](const StoreRow&) {}); }),
                  FailureNumber::StatementInvalid);
    AddBadge(Store, QStringLiteral("first"));
    EXPECT_EQ(TextsOf(Store), QStringList(QStringLiteral("first")));
}

TEST_F(ServerPrepared, ARowThatIsRefusedAgainAndAgainLeavesWhatTheTransactionHasWritten)
{
    Store.Open(Direct);
    Store.BeginTrans();
    AddBadge(Store, QStringLiteral("first"));
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(FailureOf([&] {
                      Store.Database().InsertRow(QStringLiteral("Controls"),
                                                 {QStringLiteral("NoSuchColumn")}, {1}, nullptr);
                  }),
                  FailureNumber::StatementInvalid);
    AddBadge(Store, QStringLiteral("last"));
    Store.CommitTrans();
    EXPECT_EQ(TextsOf(Store), QStringList({QStringLiteral("first"), QStringLiteral("last")}));
}

TEST_F(ServerPrepared, ATableThatAnAdministratorHasChangedIsReadAllTheSame)
{
    Store.Open(Direct);
    AddBadge(Store, QStringLiteral("first"));
    for (int i = 0; i < 3; ++i)
        TextsOf(Store);
    PrivatePostgres::Run(Direct, QStringLiteral("ALTER TABLE Controls ALTER C_Value TYPE "
                                                "varchar(500), ADD COLUMN Remark text"));
    EXPECT_EQ(TextsOf(Store), QStringList(QStringLiteral("first")));
    EXPECT_EQ(TextsOf(Store), QStringList(QStringLiteral("first")));
}

TEST_F(ServerPrepared, StatementsThatSomebodyHasForgottenAreSentWhole)
{
    Store.Open(Direct);
    AddBadge(Store, QStringLiteral("first"));
    for (int i = 0; i < 3; ++i)
        TextsOf(Store);
    Store.Database().Execute(QStringLiteral("DEALLOCATE ALL"));
    EXPECT_EQ(TextsOf(Store), QStringList(QStringLiteral("first")));
}

TEST_F(ServerPrepared, BehindAPoolerNothingIsPrepared)
{
    const PrivatePooler pooler(Server);
    Store.Open(pooler.Through(Direct));
    AddBadge(Store, QStringLiteral("first"));
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(TextsOf(Store), QStringList(QStringLiteral("first")));
        const ReadAhead ahead(Store, {Badges});
    }
    // All that the pooler has were asked, as it lends the same ones again.
    for (int i = 0; i < PrivatePooler::Connections; ++i)
        EXPECT_EQ(CountOfPrepared(Store), 0);
}

} // namespace

} // namespace vantrel::test
