#include "StoredRows.h"
#include "base/Failure.h"
#include "station/layout/LoadLayout.h"
#include "station/layout/SaveLayout.h"
#include "store/Recordset.h"
#include "support/Layouts.h"
#include "support/StoreFaults.h"
#include <QFile>
#include <gtest/gtest.h>

namespace vantrel::test {

namespace {

const QString Staff = QStringLiteral("Staff");

/// A station with one saved page whose store then fails in one way or another.
class SaveFailure : public ::testing::Test
{
protected:
    SaveFailure()
    {
        Test.WithDatabase();
        Path = Test.LayoutStore->Location();
        BeginLayout(Session, Staff);
        AddText(Session, QStringLiteral("first"));
        SavePage(Session);
        AddText(Session, QStringLiteral("second"));
    }

    void ExpectBoxOf(int number)
    {
        EXPECT_FALSE(SaveLayout(Session, SaveMessages::Shown));
        ASSERT_EQ(Test.Operator.CriticalBoxes.size(), 1);
        const QString box = Test.Operator.CriticalBoxes[0];
        EXPECT_EQ(box.section(QLatin1Char('|'), 0, 0), QString::number(number));
        EXPECT_FALSE(box.section(QLatin1Char('|'), 1).isEmpty());
        EXPECT_TRUE(Test.Operator.AppMessages.isEmpty());
    }

    QStringList StoredTexts() const
    {
        QStringList texts;
        for (const StoredRow& row : StoredPage(Session, Staff, 1))
            texts.append(row[QStringLiteral("C_Value")].toString());
        return texts;
    }

    /// From now on the store refuses a text of this wording.
    void RefuseText(const QString& text) { RefuseValue(Path, QStringLiteral("INSERT"), text); }

    TestSession Test;
    vantrel::Session& Session = Test.Session;
    QString Path;
};

TEST_F(SaveFailure, AClosedStoreIsReportedAndNoTransactionIsBegun)
{
    Session.LayoutDb.Close();
    ExpectBoxOf(FailureNumber::ObjectClosed);
    EXPECT_EQ(Session.LayoutDb.TransactionDepth(), 0);
    EXPECT_EQ(StoredTexts(), QStringList{QStringLiteral("first")});
}

TEST_F(SaveFailure, AMissingParametersTableLeavesTheRowsUntouched)
{
    Execute(Session, QStringLiteral("DROP TABLE LayoutParams"));
    ExpectBoxOf(FailureNumber::StatementInvalid);
    EXPECT_EQ(Session.LayoutDb.TransactionDepth(), 0);
    EXPECT_EQ(StoredTexts(), QStringList{QStringLiteral("first")});
}

TEST_F(SaveFailure, AMissingObjectsTableLeavesTheTransactionOpen)
{
    Execute(Session, QStringLiteral("DROP TABLE Controls"));
    ExpectBoxOf(FailureNumber::StatementInvalid);
    EXPECT_EQ(Session.LayoutDb.TransactionDepth(), 1);
}

TEST_F(SaveFailure, AnotherSessionsLockIsReportedIfItLasts)
{
    Connection other;
    other.Open(Path);
    other.BeginTrans();
    // The parameters must have something to write.
    Session.CurrentParams.PrinterCopies = 9;
    ExpectBoxOf(FailureNumber::StoreBusy);
    EXPECT_EQ(Session.LayoutDb.TransactionDepth(), 0);
    other.CommitTrans();
    EXPECT_EQ(StoredTexts(), QStringList{QStringLiteral("first")});
}

TEST_F(SaveFailure, AFailureInTheMiddleLeavesTheDeletionsPending)
{
    RefuseText(QStringLiteral("second"));
    ExpectBoxOf(FailureNumber::StatementInvalid);
    EXPECT_EQ(Session.LayoutDb.TransactionDepth(), 1);
    EXPECT_EQ(StoredTexts(), QStringList{QStringLiteral("first")});
    Session.LayoutDb.Close();
    EXPECT_EQ(StoredTexts(), QStringList{QStringLiteral("first")});
}

TEST_F(SaveFailure, AFailureInTheMiddleLeavesWhatWasWrittenAndNoneOfTheOldRows)
{
    AddText(Session, QStringLiteral("third"));
    SavePage(Session);
    RefuseValue(Path, QStringLiteral("UPDATE"), QStringLiteral("refused"));
    const auto& objects = Session.Document.Objects();
    objects[objects.size() - 2]->SetCaption(QStringLiteral("refused"));
    ExpectBoxOf(FailureNumber::StatementInvalid);
    Recordset pending(Session.LayoutDb);
    pending.Open(QStringLiteral("SELECT * FROM [Controls]"));
    ASSERT_EQ(pending.RecordCount(), 1);
    EXPECT_EQ(pending.Value(QStringLiteral("C_Value")), QVariant(QStringLiteral("first")));
    EXPECT_EQ(StoredTexts().size(), 3);
}

TEST_F(SaveFailure, TheNextSaveBeginsInsideTheOpenTransaction)
{
    RefuseText(QStringLiteral("second"));
    ExpectBoxOf(FailureNumber::StatementInvalid);
    Session.Document.Objects().back()->SetCaption(QStringLiteral("third"));
    EXPECT_TRUE(SaveLayout(Session, SaveMessages::Silent));
    EXPECT_EQ(Session.LayoutDb.TransactionDepth(), 1);
    // What was saved is lasting at once, whatever is left open around it.
    EXPECT_EQ(StoredTexts(), (QStringList{QStringLiteral("first"), QStringLiteral("third")}));
    Session.LayoutDb.CommitTrans();
    EXPECT_EQ(Session.LayoutDb.TransactionDepth(), 0);
    EXPECT_EQ(StoredTexts(), (QStringList{QStringLiteral("first"), QStringLiteral("third")}));
}

TEST_F(SaveFailure, AFullDiskIsReportedAndASaveWorksAgainWhenThereIsRoom)
{
    for (int i = 0; i < 50; ++i)
        AddText(Session, QString(3000, QLatin1Char('x')));
    LeaveRoom(2);
    ExpectBoxOf(FailureNumber::StatementInvalid);
    EXPECT_FALSE(SaveLayout(Session, SaveMessages::Silent));
    EXPECT_EQ(Test.Operator.CriticalBoxes.size(), 2);
    EXPECT_EQ(StoredTexts(), QStringList{QStringLiteral("first")});
    GiveRoomBack();
    EXPECT_TRUE(SaveLayout(Session, SaveMessages::Silent));
    EXPECT_EQ(Session.LayoutDb.TransactionDepth(), 0);
    EXPECT_FALSE(IsLocked(Path));
    EXPECT_EQ(StoredTexts().size(), 52);
}

TEST_F(SaveFailure, ADamagedPageIsNeitherLoadedNorSavedInPart)
{
    for (int i = 2; i < 300; ++i)
        AddText(Session, QString::number(i).repeated(60));
    SavePage(Session);
    Session.LayoutDb.Close();
    DamageRows(Path, QStringLiteral("Controls"));
    QFile file(Path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray damaged = file.readAll();
    Session.LayoutDb.Open(Path);
    // The operator goes on with the objects on the form, under the layout's name.
    EXPECT_FALSE(LoadLayout(Session, Staff));
    EXPECT_EQ(Session.CurrentLayoutName, Staff);
    EXPECT_EQ(Session.Document.HighestIndex(Family::lbl_TEXT), 300);
    ExpectBoxOf(FailureNumber::StatementInvalid);
    Session.LayoutDb.Close();
    file.seek(0);
    EXPECT_EQ(file.readAll(), damaged);
}

} // namespace

} // namespace vantrel::test
