#include "StoreTest.h"

namespace vantrel::test {

namespace {
using CursorChanges = StoreTest;

const QString AllControls = QStringLiteral("SELECT * FROM [Controls]");
const QString TextColumn = QStringLiteral("C_Value");
} // namespace

TEST_F(CursorChanges, ADeletedRowsKeyIsNotGivenAgain)
{
    AddControl(Store, QStringLiteral("A"), 1, QStringLiteral("old"));
    Recordset mine(Store);
    mine.Open(AllControls, CursorLock::Optimistic);
    {
        Recordset other(Store);
        other.Open(AllControls, CursorLock::Optimistic);
        other.Delete();
    }
    AddControl(Store, QStringLiteral("A"), 1, QStringLiteral("new"));
    EXPECT_EQ(FailureOf([&] { mine.Delete(); }), FailureNumber::NoCurrentRecord);
    EXPECT_EQ(Texts(), QStringList(QStringLiteral("new")));
}

TEST_F(CursorChanges, ADeletedRowStaysUnderTheCursorUntilItMoves)
{
    for (const auto& text : {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")})
        AddControl(Store, QStringLiteral("A"), 1, text);
    Recordset rows(Store);
    rows.Open(AllControls, CursorLock::Optimistic);
    rows.Delete();
    EXPECT_FALSE(rows.IsEof());
    EXPECT_EQ(FailureOf([&] { rows.Value(TextColumn); }), FailureNumber::NoCurrentRecord);
    EXPECT_EQ(FailureOf([&] { rows.Delete(); }), FailureNumber::NoCurrentRecord);
    rows.MoveNext();
    EXPECT_EQ(rows.Value(TextColumn).toString(), QStringLiteral("b"));
    EXPECT_EQ(rows.RecordCount(), 2);
    EXPECT_EQ(Texts(), QStringList({QStringLiteral("b"), QStringLiteral("c")}));
}

TEST_F(CursorChanges, ReplacesAllRowsOfAPageOnOneCursor)
{
    for (const auto& text : {QStringLiteral("a"), QStringLiteral("b")})
        AddControl(Store, QStringLiteral("A"), 1, text);
    Recordset rows(Store);
    for (rows.Open(AllControls, CursorLock::Optimistic); !rows.IsEof(); rows.MoveNext())
        rows.Delete();
    EXPECT_TRUE(rows.IsEof());
    EXPECT_TRUE(rows.IsBof());
    for (const auto& text : {QStringLiteral("c"), QStringLiteral("d")}) {
        rows.AddNew();
        rows.SetValue(TextColumn, text);
        rows.Update();
        EXPECT_EQ(rows.Value(TextColumn).toString(), text);
    }
    EXPECT_EQ(rows.RecordCount(), 2);
    EXPECT_EQ(Texts(), QStringList({QStringLiteral("c"), QStringLiteral("d")}));
}

TEST_F(CursorChanges, ANewRowIsAllNullUntilItsValuesAreSet)
{
    AddControl(Store, QStringLiteral("A"), 1, QStringLiteral("old"));
    Recordset rows(Store);
    rows.Open(AllControls, CursorLock::Optimistic);
    rows.AddNew();
    EXPECT_TRUE(rows.Value(TextColumn).isNull());
    rows.SetValue(TextColumn, QStringLiteral("new"));
    EXPECT_EQ(rows.Value(TextColumn).toString(), QStringLiteral("new"));
    EXPECT_EQ(Texts(), QStringList(QStringLiteral("old")));
    rows.MoveNext(); // Leaves the row that was not updated.
    EXPECT_EQ(Texts(), QStringList(QStringLiteral("old")));
    rows.AddNew();
    rows.Update();
    EXPECT_EQ(Texts(), QStringList({QStringLiteral("old"), QString()}));
}

TEST_F(CursorChanges, InLayoutParamsTheCounterIsTheRowKey)
{
    Recordset rows(Store);
    rows.Open(QStringLiteral("SELECT * FROM [LayoutParams]"), CursorLock::Optimistic);
    for (int expected = 1; expected <= 2; ++expected) {
        rows.AddNew();
        rows.SetValue(QStringLiteral("LayoutName"), QStringLiteral("A"));
        rows.Update();
        EXPECT_EQ(rows.Value(QStringLiteral("ID")).toInt(), expected);
    }
    EXPECT_EQ(FailureOf([&] { rows.SetValue(QStringLiteral("ID"), 9); }),
              FailureNumber::InvalidCall);
    Recordset filters(Store);
    filters.Open(
        QStringLiteral("SELECT [ID], [Filter] FROM [LayoutParams] WHERE [LayoutName] = 'A'"),
        CursorLock::Optimistic);
    EXPECT_EQ(filters.RecordCount(), 2);
    filters.SetValue(QStringLiteral("Filter"), QStringLiteral("-"));
    filters.Update();
    EXPECT_EQ(
        Column(Store, QStringLiteral("SELECT * FROM [LayoutParams]"), QStringLiteral("Filter")),
        QStringList({QStringLiteral("-"), QString()}));
}

TEST_F(CursorChanges, OnlyValuesThatDifferAreWritten)
{
    AddControl(Store, QStringLiteral("A"), 1, QStringLiteral("mine"));
    Connection other;
    other.Open(Path);
    Recordset mine(Store);
    mine.Open(AllControls, CursorLock::Optimistic);
    {
        Recordset theirs(other);
        theirs.Open(AllControls, CursorLock::Optimistic);
        theirs.SetValue(TextColumn, QStringLiteral("theirs"));
        theirs.Update();
    }
    mine.SetValue(TextColumn, QStringLiteral("mine"));
    mine.SetValue(QStringLiteral("Page"), 2);
    mine.Update();
    EXPECT_EQ(Texts(), QStringList(QStringLiteral("theirs")));
    EXPECT_EQ(Column(Store, AllControls, QStringLiteral("Page")), QStringList(QStringLiteral("2")));
}

TEST_F(CursorChanges, AnUpdateThatChangesNothingNeedsNoLock)
{
    AddControl(Store, QStringLiteral("A"), 1, QStringLiteral("text"));
    Recordset rows(Store);
    rows.Open(AllControls, CursorLock::Optimistic);
    Connection other;
    other.Open(Path);
    other.BeginTrans();
    rows.SetValue(TextColumn, QStringLiteral("text"));
    rows.SetValue(QStringLiteral("Page"), 1.0);
    rows.SetValue(QStringLiteral("C_Prefix"), QVariant());
    EXPECT_NO_THROW(rows.Update());
    other.CommitTrans();
}

TEST_F(CursorChanges, ARowThatVanishedMeanwhileFails)
{
    AddControl(Store, QStringLiteral("A"), 1, QStringLiteral("text"));
    Recordset mine(Store);
    mine.Open(AllControls, CursorLock::Optimistic);
    {
        Recordset other(Store);
        other.Open(AllControls, CursorLock::Optimistic);
        other.Delete();
    }
    EXPECT_EQ(mine.Value(TextColumn).toString(), QStringLiteral("text"));
    mine.SetValue(TextColumn, QStringLiteral("changed"));
    EXPECT_EQ(FailureOf([&] { mine.Update(); }), FailureNumber::NoCurrentRecord);
    EXPECT_EQ(FailureOf([&] { mine.Delete(); }), FailureNumber::NoCurrentRecord);
    EXPECT_TRUE(Texts().isEmpty());
}

TEST_F(CursorChanges, ARowIsAddedUnlessTheStatementFindsOneByNow)
{
    const QString mineOnly = AllControls + QStringLiteral(" WHERE [LayoutName] = 'A'");
    Recordset mine(Store);
    mine.Open(mineOnly, CursorLock::Optimistic);
    Connection other;
    other.Open(Path);
    const auto add = [&](const QString& text) {
        mine.AddNew();
        mine.SetValue(QStringLiteral("LayoutName"), QStringLiteral("A"));
        mine.SetValue(TextColumn, text);
        return mine.UpdateUnlessFound();
    };
    AddControl(other, QStringLiteral("B"), 1, QStringLiteral("other layout"));
    EXPECT_TRUE(add(QStringLiteral("mine")));
    EXPECT_EQ(mine.Value(TextColumn), QStringLiteral("mine"));
    EXPECT_EQ(mine.RecordCount(), 1);
    EXPECT_FALSE(add(QStringLiteral("mine too")));
    EXPECT_EQ(mine.RecordCount(), 1);
    mine.Delete();
    AddControl(other, QStringLiteral("A"), 1, QStringLiteral("theirs"));
    EXPECT_FALSE(add(QStringLiteral("mine again")));
    EXPECT_EQ(Texts(), QStringList({QStringLiteral("other layout"), QStringLiteral("theirs")}));
    // What was not written is dropped.
    EXPECT_EQ(FailureOf([&] { mine.UpdateUnlessFound(); }), FailureNumber::NoCurrentRecord);
}

TEST_F(CursorChanges, AReadOnlyCursorChangesNothing)
{
    AddControl(Store, QStringLiteral("A"), 1, QStringLiteral("text"));
    const auto changesNothing = [](Recordset& rows) {
        EXPECT_EQ(FailureOf([&] { rows.AddNew(); }), FailureNumber::InvalidCall);
        EXPECT_EQ(FailureOf([&] { rows.SetValue(QStringLiteral("Page"), 1); }),
                  FailureNumber::InvalidCall);
        EXPECT_EQ(FailureOf([&] { rows.Delete(); }), FailureNumber::InvalidCall);
    };
    Recordset plain(Store);
    plain.Open(AllControls);
    changesNothing(plain);
    Recordset distinct(Store);
    distinct.Open(QStringLiteral("SELECT DISTINCT [Page] FROM [Controls]"), CursorLock::Optimistic);
    changesNothing(distinct);
}

} // namespace vantrel::test
