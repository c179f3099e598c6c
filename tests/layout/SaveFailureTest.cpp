#include "StoredRows.h"
#include "layout/SaveLayout.h"
#include "platform/Failure.h"
#include "support/Layouts.h"
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
    void RefuseText(const QString& text)
    {
        Execute(Session, QStringLiteral("CREATE TRIGGER refuse BEFORE INSERT ON Controls WHEN "
                                        "NEW.C_Value = '%1' BEGIN SELECT RAISE(ABORT, 'refused'); "
                                        "END")
                             .arg(text));
    }

    TestSession Test;
    vantrel::Session& Session = Test.Session;
};

TEST_F(SaveFailure, AClosedStoreIsToldAndNoTransactionIsBegun)
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

TEST_F(SaveFailure, AnotherSessionsLockIsToldWhenItStays)
{
    Connection other;
    other.Open(Session.PathInFolder(QStringLiteral("Vantrel.dat")));
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

TEST_F(SaveFailure, TheNextSaveBeginsInsideTheOpenTransaction)
{
    RefuseText(QStringLiteral("second"));
    ExpectBoxOf(FailureNumber::StatementInvalid);
    Session.Document.Objects().back()->SetCaption(QStringLiteral("third"));
    EXPECT_TRUE(SaveLayout(Session, SaveMessages::Silent));
    EXPECT_EQ(Session.LayoutDb.TransactionDepth(), 1);
    // The outer transaction still holds it back from everybody else.
    EXPECT_EQ(StoredTexts(), QStringList{QStringLiteral("first")});
    Session.LayoutDb.CommitTrans();
    EXPECT_EQ(StoredTexts(), (QStringList{QStringLiteral("first"), QStringLiteral("third")}));
}

} // namespace

} // namespace vantrel::test
