#include "StoreTest.h"
#include "support/Memory.h"
#include "support/StoreFaults.h"
#include <functional>
#include <limits>

// Rows are kept from one reading to the next; no reader may see an outdated row because of that.

namespace vantrel::test {

namespace {

const QString Card = QStringLiteral("Card");
const QString AllControls = QStringLiteral("SELECT * FROM [Controls]");
const QString FirstPage = QStringLiteral("SELECT * FROM [Controls] WHERE [Page] = 1");
const QString SecondPage = QStringLiteral("SELECT * FROM [Controls] WHERE [Page] = 2");
const QString Pages = QStringLiteral("SELECT DISTINCT [Page] FROM [Controls]");
const QString ByText = QStringLiteral("SELECT * FROM [Controls] ORDER BY [C_Value]");
const QString TextColumn = QStringLiteral("C_Value");

class KeptRowsTest : public StoreTest
{
protected:
    KeptRowsTest()
    {
        AddControl(Store, Card, 1, QStringLiteral("a"));
        AddControl(Store, Card, 1, QStringLiteral("b"));
        ReadAll();
    }

    /// So that all of it is kept when a test begins.
    void ReadAll()
    {
        for (const QString& statement : {AllControls, FirstPage, SecondPage, Pages, ByText})
            Column(Store, statement, QStringLiteral("Page"));
    }

    /// Opens a cursor on the first row and changes it.
    static void Change(Connection& store, const std::function<void(Recordset&)>& change)
    {
        Recordset rows(store);
        rows.Open(FirstPage, CursorLock::Optimistic);
        change(rows);
        rows.Update();
    }

    static void SetText(Connection& store, const QString& text)
    {
        Change(store, [&](Recordset& rows) { rows.SetValue(TextColumn, text); });
    }

    QStringList TextsOf(const QString& statement) { return Column(Store, statement, TextColumn); }

    /// The rows that a new connection reads.
    QVariant FreshValue(const QString& column) const
    {
        Connection fresh;
        fresh.Open(Path);
        Recordset rows(fresh);
        rows.Open(FirstPage);
        return rows.Value(column);
    }

    QVariant Value(const QString& column)
    {
        Recordset rows(Store);
        rows.Open(FirstPage);
        return rows.Value(column);
    }
};

} // namespace

TEST_F(KeptRowsTest, AnotherSessionsChangeIsSeenAtOnce)
{
    Connection other;
    other.Open(Path);
    SetText(other, QStringLiteral("changed"));
    EXPECT_EQ(TextsOf(FirstPage), QStringList({QStringLiteral("changed"), QStringLiteral("b")}));
    AddControl(other, Card, 2, QStringLiteral("added"));
    EXPECT_EQ(TextsOf(SecondPage), QStringList(QStringLiteral("added")));
    EXPECT_EQ(Column(Store, Pages, QStringLiteral("Page")).size(), 2);
}

TEST_F(KeptRowsTest, AChangeIsSeenByEveryStatementThatSelectsTheRow)
{
    SetText(Store, QStringLiteral("z"));
    const QStringList inOrder{QStringLiteral("z"), QStringLiteral("b")};
    EXPECT_EQ(TextsOf(AllControls), inOrder);
    EXPECT_EQ(TextsOf(FirstPage), inOrder);
    EXPECT_EQ(TextsOf(ByText), QStringList({QStringLiteral("b"), QStringLiteral("z")}));
    EXPECT_TRUE(TextsOf(SecondPage).isEmpty());
}

TEST_F(KeptRowsTest, ARowThatGoesToAnotherPageIsSeenThere)
{
    Change(Store, [](Recordset& rows) { rows.SetValue(QStringLiteral("Page"), 2); });
    EXPECT_EQ(TextsOf(FirstPage), QStringList(QStringLiteral("b")));
    EXPECT_EQ(TextsOf(SecondPage), QStringList(QStringLiteral("a")));
    EXPECT_EQ(Column(Store, Pages, QStringLiteral("Page")),
              QStringList({QStringLiteral("1"), QStringLiteral("2")}));
}

TEST_F(KeptRowsTest, ARowThatIsAddedOrDeletedIsSeen)
{
    AddControl(Store, Card, 2, QStringLiteral("c"));
    EXPECT_EQ(TextsOf(SecondPage), QStringList(QStringLiteral("c")));
    EXPECT_EQ(TextsOf(AllControls).size(), 3);
    Recordset rows(Store);
    rows.Open(FirstPage, CursorLock::Optimistic);
    rows.Delete();
    EXPECT_EQ(TextsOf(FirstPage), QStringList(QStringLiteral("b")));
    EXPECT_EQ(TextsOf(AllControls), QStringList({QStringLiteral("b"), QStringLiteral("c")}));
}

TEST_F(KeptRowsTest, AnOpenCursorKeepsTheRowsItHas)
{
    Recordset rows(Store);
    rows.Open(FirstPage);
    SetText(Store, QStringLiteral("changed"));
    EXPECT_EQ(rows.Value(TextColumn).toString(), QStringLiteral("a"));
}

TEST_F(KeptRowsTest, AValueHasTheKindThatTheStoreGivesIt)
{
    // Each is of another kind than its column.
    Change(Store, [](Recordset& rows) {
        rows.SetValue(QStringLiteral("C_Top"), 200);
        rows.SetValue(QStringLiteral("C_Alignment"), 2.0);
        rows.SetValue(QStringLiteral("C_ForeColor"), QStringLiteral("255"));
        rows.SetValue(QStringLiteral("C_Param_3"), 7);
        rows.SetValue(QStringLiteral("C_Left"), std::numeric_limits<double>::quiet_NaN());
    });
    for (const char* name : {"C_Top", "C_Alignment", "C_ForeColor", "C_Param_3", "C_Left"}) {
        const QString column = QString::fromLatin1(name);
        EXPECT_EQ(Value(column), FreshValue(column)) << name;
        EXPECT_EQ(Value(column).typeId(), FreshValue(column).typeId()) << name;
    }
}

TEST_F(KeptRowsTest, RowsThatTheStoreRolledBackAreNotSeen)
{
    Store.BeginTrans();
    SetText(Store, QStringLiteral("lost"));
    EXPECT_EQ(TextsOf(FirstPage).first(), QStringLiteral("lost"));
    LeaveRoom(2);
    EXPECT_EQ(FailureOf([&] {
                  for (int i = 0; i < 100; ++i)
                      AddControl(Store, Card, 2, QString(3000, u'x'));
              }),
              FailureNumber::StatementInvalid);
    GiveRoomBack();
    EXPECT_EQ(TextsOf(FirstPage).first(), QStringLiteral("a"));
    EXPECT_TRUE(TextsOf(SecondPage).isEmpty());
}

TEST_F(KeptRowsTest, AnotherFileDoesNotShowTheKeptRows)
{
    const TestStore second(Folder.filePath(QStringLiteral("Second.dat")));
    Store.Open(second.Location());
    EXPECT_TRUE(TextsOf(AllControls).isEmpty());
    EXPECT_TRUE(TextsOf(FirstPage).isEmpty());
}

TEST_F(KeptRowsTest, AResultTooLongToKeepIsReadAnew)
{
    Store.BeginTrans();
    for (int i = 0; i < 5000; ++i)
        AddControl(Store, Card, 2, QString::number(i));
    Store.CommitTrans();
    EXPECT_EQ(TextsOf(SecondPage).size(), 5000);
    EXPECT_EQ(TextsOf(SecondPage).last(), QStringLiteral("4999"));
    EXPECT_EQ(TextsOf(FirstPage).size(), 2);
}

TEST_F(KeptRowsTest, ATextOfMegabytesIsReadAnewAndNotKept)
{
    const qint64 before = UsedMemory();
    {
        const QString text(qsizetype{8} << 20, QLatin1Char('x'));
        // As another program does, then by the station itself.
        AddControl(Store, Card, 2, text);
        EXPECT_EQ(TextsOf(SecondPage), QStringList{text});
        EXPECT_EQ(TextsOf(FirstPage).size(), 2);
        SetText(Store, text);
        EXPECT_EQ(TextsOf(FirstPage).first(), text);
        EXPECT_EQ(TextsOf(FirstPage).first(), text);
    }
    EXPECT_LT(UsedMemory() - before, 8 * MiB);
}

TEST_F(KeptRowsTest, ARowBegunAnewKeepsItsPlaceAndIsNullWhereNothingIsSet)
{
    Change(Store, [](Recordset& rows) {
        rows.SetValue(QStringLiteral("C_FontName"), QStringLiteral("Sans"));
    });
    Change(Store, [](Recordset& rows) {
        rows.ClearRow();
        rows.SetValue(QStringLiteral("Page"), 1);
        rows.SetValue(TextColumn, QStringLiteral("new"));
    });
    EXPECT_EQ(TextsOf(AllControls), QStringList({QStringLiteral("new"), QStringLiteral("b")}));
    EXPECT_TRUE(FreshValue(QStringLiteral("C_FontName")).isNull());
    EXPECT_TRUE(FreshValue(QStringLiteral("LayoutName")).isNull());
    EXPECT_EQ(FreshValue(TextColumn).toString(), QStringLiteral("new"));
}

TEST_F(KeptRowsTest, ARowBegunAnewWithTheSameValuesWritesNothing)
{
    Connection other;
    other.Open(Path);
    other.BeginTrans(); // whoever writes now fails
    Change(Store, [](Recordset& rows) {
        rows.ClearRow();
        rows.SetValue(QStringLiteral("LayoutName"), Card);
        rows.SetValue(QStringLiteral("Page"), 1);
        rows.SetValue(TextColumn, QStringLiteral("a"));
    });
    EXPECT_EQ(TextsOf(FirstPage).size(), 2);
}

TEST_F(KeptRowsTest, OnlyARowThatMayBeChangedCanBeBegunAnew)
{
    Recordset rows(Store);
    EXPECT_EQ(FailureOf([&] { rows.ClearRow(); }), FailureNumber::ObjectClosed);
    rows.Open(FirstPage);
    EXPECT_EQ(FailureOf([&] { rows.ClearRow(); }), FailureNumber::InvalidCall);
    rows.Open(SecondPage, CursorLock::Optimistic);
    EXPECT_EQ(FailureOf([&] { rows.ClearRow(); }), FailureNumber::NoCurrentRecord);
}

} // namespace vantrel::test
