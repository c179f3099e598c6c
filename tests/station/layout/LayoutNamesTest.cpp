#include "StoredRows.h"
#include "base/Failure.h"
#include "station/layout/DeleteLayout.h"
#include "station/layout/LoadLayout.h"
#include "station/layout/Navigation.h"
#include "station/layout/SaveLayout.h"
#include "support/Layouts.h"
#include <gtest/gtest.h>

// A layout's name is joined into statements as it stands.

namespace vantrel::test {

namespace {

/// Names that a statement takes, each another layout.
const QStringList TakenNames = {QStringLiteral("A"),
                                QStringLiteral(" A"),
                                QStringLiteral("A "),
                                QStringLiteral("  A  "),
                                QStringLiteral("\"A\""),
                                QStringLiteral("[A]"),
                                QStringLiteral("A]"),
                                QStringLiteral("`A`"),
                                QStringLiteral("Größe ß €"),
                                QStringLiteral("A%_?*#:1@x"),
                                QStringLiteral("A; DROP TABLE Controls"),
                                QStringLiteral("A -- B /* C"),
                                QStringLiteral("A\\B"),
                                QStringLiteral("A AND 1 = 1"),
                                QStringLiteral("A ORDER BY [Page]"),
                                QString(255, QLatin1Char('x')),
                                QString(254, QLatin1Char('x'))};

class LayoutNamesTest : public ::testing::Test
{
protected:
    LayoutNamesTest() { Test.WithDatabase(); }

    void Begin(const QString& name)
    {
        BeginLayout(Session, name);
        AddText(Session, QStringLiteral("text of ") + name);
    }

    QStringList StoredTexts() const
    {
        QStringList texts;
        for (const StoredRow& row :
             StoredRows(Session, QStringLiteral("SELECT C_Value FROM Controls ORDER BY RowKey")))
            texts.append(row[QStringLiteral("C_Value")].toString());
        return texts;
    }

    TestSession Test;
    vantrel::Session& Session = Test.Session;
};

} // namespace

TEST_F(LayoutNamesTest, AnyNameWithoutAnApostropheIsSavedLoadedAndDeletedAsItself)
{
    ASSERT_EQ(TakenNames.size(), 17);
    QStringList texts;
    for (const QString& name : TakenNames) {
        Begin(name);
        SavePage(Session);
        texts.append(QStringLiteral("text of ") + name);
    }
    QStringList sorted = TakenNames;
    QStringList listed = LayoutNames(Session.LayoutDb);
    sorted.sort();
    listed.sort();
    EXPECT_EQ(listed, sorted);
    for (const QString& name : TakenNames) {
        SCOPED_TRACE(name.toStdString());
        ASSERT_TRUE(LoadLayout(Session, name));
        EXPECT_EQ(Session.CurrentLayoutName, name);
        ASSERT_EQ(Session.Document.HighestIndex(Family::lbl_TEXT), 1);
        EXPECT_EQ(Session.Document.Find(Family::lbl_TEXT, 1)->Caption(), texts.constFirst());
        EXPECT_EQ(StoredTexts(), texts);
        DeleteLayoutRows(Session, name);
        texts.removeFirst();
        EXPECT_EQ(StoredTexts(), texts);
        EXPECT_EQ(StoredRows(Session, QStringLiteral("SELECT * FROM LayoutParams")).size(),
                  texts.size());
    }
}

TEST_F(LayoutNamesTest, ANameWithAnApostropheIsReportedAtTheSaveAndNeitherLoadedNorDeleted)
{
    const QStringList names = {QStringLiteral("O'Brien"),
                               QStringLiteral("'"),
                               QStringLiteral("A'"),
                               QStringLiteral("'A"),
                               QStringLiteral("A' OR '1'='1"),
                               QStringLiteral("O''Brien"),
                               QStringLiteral("A'; DELETE FROM [Controls] --")};
    Begin(QStringLiteral("A"));
    SavePage(Session);
    for (const QString& name : names) {
        SCOPED_TRACE(name.toStdString());
        Test.Operator.CriticalBoxes.clear();
        Begin(name);
        EXPECT_FALSE(SaveLayout(Session, SaveMessages::Shown));
        ASSERT_EQ(Test.Operator.CriticalBoxes.size(), 1);
        EXPECT_TRUE(Test.Operator.CriticalBoxes[0].startsWith(
            QString::number(FailureNumber::StatementInvalid) + QLatin1Char('|')));
        EXPECT_TRUE(Test.Operator.AppMessages.isEmpty());
        EXPECT_EQ(Session.LayoutDb.TransactionDepth(), 0);
        EXPECT_FALSE(LoadLayout(Session, name));
        EXPECT_EQ(Session.CurrentLayoutName, name);
        DeleteLayoutRows(Session, name);
        EXPECT_TRUE(Session.CurrentLayoutName.isEmpty());
        EXPECT_EQ(StoredTexts(), QStringList(QStringLiteral("text of A")));
        EXPECT_EQ(StoredRows(Session, QStringLiteral("SELECT * FROM LayoutParams")).size(), 1);
    }
}

} // namespace vantrel::test
