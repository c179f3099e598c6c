#include "support/StoreFaults.h"
#include "StoreTest.h"

// What the store must keep where its file is damaged or its disk is full.

namespace vantrel::test {

namespace {

const QString Card = QStringLiteral("Card");
const QString AllControls = QStringLiteral("SELECT * FROM [Controls]");

using DamagedStore = StoreTest;

class FullDisk : public StoreTest
{
protected:
    FullDisk() { AddControl(Store, Card, 1, QStringLiteral("kept")); }

    /// Adds rows in an open transaction until the disk is full.
    void FillUp()
    {
        LeaveRoom(2);
        const auto fill = [this] {
            for (int i = 0; i < 100; ++i)
                AddControl(Store, Card, 1, QString(3000, u'x'));
        };
        EXPECT_EQ(FailureOf(fill), FailureNumber::StatementInvalid);
        GiveRoomBack();
    }

    /// Begins and ends a transaction as a save does.
    void ExpectAWholeSave()
    {
        Store.BeginTrans();
        EXPECT_EQ(Store.TransactionDepth(), 1);
        EXPECT_TRUE(IsLocked(Path));
        AddControl(Store, Card, 1, QStringLiteral("saved"));
        Store.CommitTrans();
        EXPECT_EQ(Store.TransactionDepth(), 0);
        EXPECT_FALSE(IsLocked(Path));
        EXPECT_EQ(Texts(), QStringList({QStringLiteral("kept"), QStringLiteral("saved")}));
    }
};

} // namespace

TEST_F(DamagedStore, APageThatCannotBeReadToItsEndFailsAndLeavesTheCursorClosed)
{
    Store.BeginTrans();
    for (int i = 0; i < 300; ++i)
        AddControl(Store, Card, 1, QString::number(i).repeated(60));
    Store.CommitTrans();
    Store.Close();
    DamageRows(Path, QStringLiteral("Controls"));
    Store.Open(Path);
    Recordset rows(Store);
    EXPECT_EQ(FailureOf([&] { rows.Open(AllControls, CursorLock::Optimistic); }),
              FailureNumber::StatementInvalid);
    EXPECT_FALSE(rows.IsOpen());
    // The connection itself goes on.
    rows.Open(QStringLiteral("SELECT * FROM [PrinterTypes]"));
    EXPECT_EQ(rows.RecordCount(), 8);
}

TEST_F(FullDisk, ATransactionTheStoreRolledBackIsBegunAnewUnderTheLock)
{
    Store.BeginTrans();
    FillUp();
    EXPECT_FALSE(IsLocked(Path));
    ExpectAWholeSave();
}

TEST_F(FullDisk, NestedTransactionsTheStoreRolledBackAreForgotten)
{
    Store.BeginTrans();
    Store.BeginTrans();
    FillUp();
    ExpectAWholeSave();
}

TEST_F(FullDisk, ATransactionTheStoreRolledBackCannotBeCommitted)
{
    for (int depth = 1; depth <= 2; ++depth) {
        for (int i = 0; i < depth; ++i)
            Store.BeginTrans();
        FillUp();
        EXPECT_EQ(FailureOf([&] { Store.CommitTrans(); }), FailureNumber::StatementInvalid);
        EXPECT_EQ(Texts(), QStringList(QStringLiteral("kept")));
    }
    ExpectAWholeSave();
}

} // namespace vantrel::test
