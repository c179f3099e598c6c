#include "StoreTest.h"
#include "support/StoreFaults.h"

// A transaction that is set aside: this connection goes on with its rows, which the file does not
// have.

namespace vantrel::test {

namespace {

const QString Card = QStringLiteral("Card");
const QString FirstPage = QStringLiteral("SELECT * FROM [Controls] WHERE [Page] = 1");
const QString SecondPage = QStringLiteral("SELECT * FROM [Controls] WHERE [Page] = 2");
const QString Pages = QStringLiteral("SELECT DISTINCT [Page] FROM [Controls]");
const QString TextColumn = QStringLiteral("C_Value");

class PendingRowsTest : public StoreTest
{
protected:
    PendingRowsTest()
    {
        AddControl(Store, Card, 1, QStringLiteral("a"));
        AddControl(Store, Card, 1, QStringLiteral("b"));
        AddControl(Store, Card, 2, QStringLiteral("c"));
        Other.Open(Path);
    }

    /// Writes the first row of the page, deletes the second and does not commit.
    void ChangeAndSetAside()
    {
        Store.BeginTrans();
        Recordset rows(Store);
        rows.Open(FirstPage, CursorLock::Optimistic);
        rows.SetValue(TextColumn, QStringLiteral("pending"));
        rows.Update();
        rows.MoveNext();
        rows.Delete();
        Store.SetAside({FirstPage});
    }

    QStringList TextsOf(Connection& store, const QString& statement)
    {
        return Column(store, statement, TextColumn);
    }

    Connection Other;
};

} // namespace

TEST_F(PendingRowsTest, AreSeenByTheirConnectionAloneWhateverItAsks)
{
    ChangeAndSetAside();
    const QStringList seen{QStringLiteral("pending")};
    EXPECT_EQ(TextsOf(Store, FirstPage), seen);
    EXPECT_EQ(Texts(), seen + QStringList(QStringLiteral("c")));
    EXPECT_EQ(TextsOf(Store, QStringLiteral("SELECT [C_Value], [Page] FROM [Controls] WHERE "
                                            "[LayoutName] = 'Card' ORDER BY [C_Value]")),
              QStringList(QStringLiteral("c")) + seen);
    EXPECT_EQ(TextsOf(Other, FirstPage), QStringList({QStringLiteral("a"), QStringLiteral("b")}));
    EXPECT_EQ(Column(Store, Pages, QStringLiteral("Page")).size(), 2);
}

TEST_F(PendingRowsTest, OfAPageThatIsGoneLeaveItsNumberOut)
{
    Store.BeginTrans();
    Recordset rows(Store);
    rows.Open(SecondPage, CursorLock::Optimistic);
    rows.Delete();
    Store.SetAside({SecondPage});
    EXPECT_EQ(Column(Store, Pages, QStringLiteral("Page")), QStringList(QStringLiteral("1")));
    EXPECT_EQ(Column(Other, Pages, QStringLiteral("Page")).size(), 2);
}

TEST_F(PendingRowsTest, LeaveTheTransactionCountedAndTheFileFree)
{
    ChangeAndSetAside();
    EXPECT_EQ(Store.TransactionDepth(), 1);
    EXPECT_FALSE(Store.InTransaction());
    EXPECT_FALSE(IsLocked(Path));
    Store.BeginTrans();
    EXPECT_EQ(Store.TransactionDepth(), 2);
    EXPECT_TRUE(IsLocked(Path));
    Store.BeginTrans();
    AddControl(Store, Card, 2, QStringLiteral("d"));
    Store.CommitTrans();
    EXPECT_TRUE(IsLocked(Path));
    Store.CommitTrans();
    EXPECT_EQ(Store.TransactionDepth(), 1);
    EXPECT_EQ(TextsOf(Other, SecondPage), QStringList({QStringLiteral("c"), QStringLiteral("d")}));
    Store.CommitTrans();
    EXPECT_EQ(FailureOf([&] { Store.CommitTrans(); }), FailureNumber::InvalidCall);
    EXPECT_EQ(TextsOf(Other, FirstPage), QStringList({QStringLiteral("a"), QStringLiteral("b")}));
}

TEST_F(PendingRowsTest, KeepTheKindsOfTheirValues)
{
    Store.BeginTrans();
    Recordset rows(Store);
    rows.Open(FirstPage, CursorLock::Optimistic);
    rows.SetValue(QStringLiteral("C_Top"), 200);
    rows.SetValue(QStringLiteral("C_ForeColor"), QStringLiteral("255"));
    rows.SetValue(QStringLiteral("C_Param_3"), 7);
    rows.SetValue(QStringLiteral("C_FontSize"), 8.25);
    rows.SetValue(TextColumn, QStringLiteral(""));
    rows.Update();
    QVariantList written;
    const char* const columns[] = {"C_Top",      "C_ForeColor", "C_Param_3",
                                   "C_FontSize", "C_Value",     "C_Left"};
    rows.Open(FirstPage);
    for (const char* column : columns)
        written.append(rows.Value(QString::fromLatin1(column)));
    Store.SetAside({FirstPage});
    rows.Open(FirstPage);
    for (std::size_t i = 0; i < std::size(columns); ++i) {
        const QVariant value = rows.Value(QString::fromLatin1(columns[i]));
        EXPECT_EQ(value, written[static_cast<qsizetype>(i)]) << columns[i];
        EXPECT_EQ(value.typeId(), written[static_cast<qsizetype>(i)].typeId()) << columns[i];
    }
}

TEST_F(PendingRowsTest, AreGivenUpWhereRowsAreChangedOutsideOfATransaction)
{
    ChangeAndSetAside();
    Recordset rows(Store);
    for (rows.Open(QStringLiteral("SELECT * FROM [Controls]"), CursorLock::Optimistic);
         !rows.IsEof(); rows.MoveNext())
        rows.Delete();
    EXPECT_TRUE(Column(Other, QStringLiteral("SELECT * FROM [Controls]"), TextColumn).isEmpty());
    EXPECT_TRUE(Texts().isEmpty());
}

TEST_F(PendingRowsTest, OutliveASaveThatTheStoreRollsBack)
{
    ChangeAndSetAside();
    Store.BeginTrans();
    Recordset rows(Store);
    rows.Open(FirstPage, CursorLock::Optimistic);
    EXPECT_EQ(rows.RecordCount(), 2);
    LeaveRoom(2);
    EXPECT_EQ(FailureOf([&] {
                  for (int i = 0; i < 100; ++i)
                      AddControl(Store, Card, 2, QString(3000, u'x'));
              }),
              FailureNumber::StatementInvalid);
    GiveRoomBack();
    Store.SetAside({FirstPage});
    EXPECT_EQ(Store.TransactionDepth(), 1);
    EXPECT_EQ(TextsOf(Store, FirstPage), QStringList(QStringLiteral("pending")));
    EXPECT_EQ(TextsOf(Store, SecondPage), QStringList(QStringLiteral("c")));
}

TEST_F(PendingRowsTest, AreGoneWhenTheStoreIsOpenedAnew)
{
    ChangeAndSetAside();
    Store.Close();
    Store.Open(Path);
    EXPECT_EQ(Store.TransactionDepth(), 0);
    EXPECT_EQ(TextsOf(Store, FirstPage), QStringList({QStringLiteral("a"), QStringLiteral("b")}));
}

} // namespace vantrel::test
