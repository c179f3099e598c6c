#include "StoreTest.h"
#include "store/ReadAhead.h"
#include "store/StoreDatabase.h"
#include <gtest/gtest.h>

// Statements that are run together, and rows that are read before they are asked for.

namespace vantrel::test {

namespace {

using Gives = StoreStep::Gives;

const QString Badges =
    QStringLiteral("SELECT * FROM [Controls] WHERE [LayoutName] = 'Badge' AND [Page] = 1");
const QString Passes =
    QStringLiteral("SELECT * FROM [Controls] WHERE [LayoutName] = 'Pass' AND [Page] = 1");

class StoreBatch : public StoreTest
{
protected:
    StoreBatch()
    {
        AddControl(Store, QStringLiteral("Badge"), 1, QStringLiteral("first"));
        AddControl(Store, QStringLiteral("Pass"), 1, QStringLiteral("other"));
        Other.Open(Path);
    }

    QStringList TextsOf(const QString& statement)
    {
        return Column(Store, statement, QStringLiteral("C_Value"));
    }
    static void SetText(Connection& store, const QString& statement, const QString& text)
    {
        Recordset rows(store);
        rows.Open(statement, CursorLock::Optimistic);
        rows.SetValue(QStringLiteral("C_Value"), text);
        rows.Update();
    }

    /// Another station.
    Connection Other;
};

} // namespace

TEST_F(StoreBatch, EachStatementGivesWhatItIsAskedFor)
{
    StoreDatabase& database = Store.Database();
    const QString add = QStringLiteral("INSERT INTO LayoutParams (LayoutName) VALUES (?)");
    const QString change =
        QStringLiteral("UPDATE LayoutParams SET Filter = ? WHERE LayoutName = ?");
    const QString find = QStringLiteral("SELECT 1 FROM LayoutParams WHERE Filter = ?");
    database.Begin();
    const std::vector<qlonglong> given =
        database.RunAll({{Gives::Added, add, {QStringLiteral("a")}},
                         {Gives::Added, add, {QStringLiteral("a")}},
                         {Gives::Changed, change, {QStringLiteral("f"), QStringLiteral("a")}},
                         {Gives::Changed, change, {QStringLiteral("f"), QStringLiteral("b")}},
                         {Gives::Found, find, {QStringLiteral("f")}},
                         {Gives::Found, find, {QStringLiteral("g")}}});
    ASSERT_EQ(given.size(), 6U);
    EXPECT_GT(given[0], 0);
    EXPECT_EQ(given[1], given[0] + 1);
    EXPECT_EQ(given[2], 2);
    EXPECT_EQ(given[3], 0);
    EXPECT_EQ(given[4], 2);
    EXPECT_EQ(given[5], 0);
    EXPECT_TRUE(database.RunAll({}).empty());
    database.Commit();
}

TEST_F(StoreBatch, LaterStatementsReferToTheNumberThatTheLatestOfANameHasGiven)
{
    StoreDatabase& database = Store.Database();
    const QString add = QStringLiteral("INSERT INTO LayoutParams (LayoutName) VALUES (?)");
    const QString refer =
        QStringLiteral("INSERT INTO LayoutParams (LayoutName, PageIndex, Filter) SELECT '?', ?, ?");
    const auto ofA = QVariant::fromValue(NumberOfStep{"a"});
    const auto ofB = QVariant::fromValue(NumberOfStep{"b"});
    const QString filter = QStringLiteral("f");
    database.Begin();
    const std::vector<qlonglong> given =
        database.RunAll({{Gives::Added, add, {QStringLiteral("one")}, "a"},
                         {Gives::Added, add, {QStringLiteral("two")}, "b"},
                         {Gives::Changed, refer, {ofA, filter}},
                         {Gives::Added, add, {QStringLiteral("three")}, "a"},
                         {Gives::Changed, refer, {ofA, filter}},
                         {Gives::Changed, refer, {ofB, filter}}});
    QList<qlonglong> referred;
    database.Select(QStringLiteral("SELECT PageIndex FROM LayoutParams WHERE LayoutName = '?' AND "
                                   "Filter = ? ORDER BY ID"),
                    {filter},
                    [&](const StoreRow& row) { referred.append(row.Value(0).toLongLong()); });
    EXPECT_EQ(referred, QList<qlonglong>({given[0], given[3], given[1]}));
    database.Commit();
}

TEST_F(StoreBatch, AStatementThatFailsEndsTheOthersAndTheTransactionCanOnlyBeRolledBack)
{
    StoreDatabase& database = Store.Database();
    const StoreStep change{Gives::Changed,
                           QStringLiteral("UPDATE Controls SET C_Value = ?"),
                           {QStringLiteral("changed")}};
    database.Begin();
    EXPECT_EQ(FailureOf([&] {
                  database.RunAll({change,
                                   {Gives::Changed, QStringLiteral("UPDATE Nothing SET A = 1"), {}},
                                   change});
              }),
              FailureNumber::StatementInvalid);
    database.Rollback();
    EXPECT_EQ(Texts(), QStringList({QStringLiteral("first"), QStringLiteral("other")}));
    // The connection is as good as before.
    database.Begin();
    EXPECT_EQ(database.RunAll({change}), std::vector<qlonglong>{2});
    database.Commit();
}

TEST_F(StoreBatch, StatementsWithLargeValuesAreAllRun)
{
    StoreDatabase& database = Store.Database();
    const QString large(700'000, QLatin1Char('x'));
    std::vector<StoreStep> steps(
        5, {Gives::Added, QStringLiteral("INSERT INTO LayoutParams (Filter) VALUES (?)"), {large}});
    database.Begin();
    const std::vector<qlonglong> given = database.RunAll(steps);
    ASSERT_EQ(given.size(), steps.size());
    for (std::size_t i = 1; i < given.size(); ++i)
        EXPECT_EQ(given[i], given[i - 1] + 1);
    EXPECT_EQ(database.RunAll({{Gives::Found,
                                QStringLiteral("SELECT 1 FROM LayoutParams WHERE Filter = ?"),
                                {large}}}),
              std::vector<qlonglong>{5});
    database.Rollback();
}

TEST_F(StoreBatch, CursorsAreGivenWhatWasReadAheadAndWhatTheirConnectionHasChanged)
{
    const bool isOnServer = !Store.Database().MayKeepRows();
    {
        const ReadAhead ahead(Store, {Badges, Passes});
        SetText(Other, Passes, QStringLiteral("of another station"));
        SetText(Store, Badges, QStringLiteral("own"));
        EXPECT_EQ(TextsOf(Badges), QStringList(QStringLiteral("own")));
        // A file is asked each time.
        EXPECT_EQ(TextsOf(Passes), QStringList(isOnServer ? QStringLiteral("other")
                                                          : QStringLiteral("of another station")));
    }
    EXPECT_EQ(TextsOf(Passes), QStringList(QStringLiteral("of another station")));
}

TEST_F(StoreBatch, ATransactionReadsAnew)
{
    const ReadAhead ahead(Store, {Badges});
    SetText(Other, Badges, QStringLiteral("of another station"));
    Store.BeginTrans();
    EXPECT_EQ(TextsOf(Badges), QStringList(QStringLiteral("of another station")));
    Store.CommitTrans();
}

TEST_F(StoreBatch, WhatWasRolledBackIsNotSeen)
{
    const ReadAhead ahead(Store, {Badges});
    Store.BeginTrans();
    SetText(Store, Badges, QStringLiteral("rolled back"));
    Store.RollbackTrans();
    EXPECT_EQ(TextsOf(Badges), QStringList(QStringLiteral("first")));
}

TEST_F(StoreBatch, AStatementThatCannotBeReadAheadFailsAtItsCursor)
{
    const QString broken = QStringLiteral("SELECT * FROM [Controls] WHERE [LayoutName] = 'it's'");
    const QString unknown = QStringLiteral("SELECT * FROM [Nothing]");
    const ReadAhead ahead(Store, {broken, Badges, unknown});
    EXPECT_EQ(FailureOf([&] { TextsOf(broken); }), FailureNumber::StatementInvalid);
    EXPECT_EQ(FailureOf([&] { TextsOf(unknown); }), FailureNumber::StatementInvalid);
    EXPECT_EQ(TextsOf(Badges), QStringList(QStringLiteral("first")));
}

} // namespace vantrel::test
