#include "StoredRows.h"
#include "base/Convert.h"
#include "base/Failure.h"
#include "station/layout/LoadLayout.h"
#include "station/layout/Navigation.h"
#include "station/layout/Pages.h"
#include "station/layout/StoredLayout.h"
#include "store/Recordset.h"
#include "support/Layouts.h"
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

/// Two layouts of three pages, each page with a text "NAME PAGE" and a track of its own, made with
/// the design tools on. The first page of "Badge" is open.
class DesignedPages : public ::testing::Test
{
protected:
    DesignedPages()
    {
        Station.WithDatabase();
        Session.Options.DesignTools = true;
        for (const char* name : {"Badge", "Visitor"}) {
            BeginLayout(Session, QLatin1StringView(name));
            for (int page = 1; page <= 3; ++page) {
                if (page > 1)
                    BeginPage(Session, static_cast<std::int16_t>(page));
                AddText(Session, QStringLiteral("%1 %2").arg(QLatin1StringView(name)).arg(page));
                Session.CurrentParams.Track1 = QStringLiteral("TXT%1").arg(page);
                SavePage(Session);
            }
        }
        Execute("UPDATE LayoutParams SET Filter = 'x' WHERE PageIndex = 1");
        Open(1);
    }
    void Execute(const char* sql) { vantrel::test::Execute(Session, QLatin1StringView(sql)); }
    void Open(std::int16_t page)
    {
        Session.CurrentParams.PageIndex = page;
        ASSERT_TRUE(LoadLayout(Session, QStringLiteral("Badge")));
    }
    bool Delete()
    {
        Station.Operator.Answers = {true};
        return DeletePage(Session);
    }
    /// Values of rows in their order, joined by a blank each.
    QStringList Stored(const char* table, const char* layout, const QStringList& columns)
    {
        Recordset rows(Session.LayoutDb);
        rows.Open(QStringLiteral("SELECT * FROM [%1] WHERE [LayoutName] = '%2'")
                      .arg(QLatin1StringView(table), QLatin1StringView(layout)));
        QStringList stored;
        for (; !rows.IsEof(); rows.MoveNext()) {
            QStringList values;
            for (const QString& column : columns)
                values += JoinedText(rows.Value(column));
            stored += values.join(QLatin1Char(' '));
        }
        return stored;
    }
    QStringList Objects(const char* layout)
    {
        return Stored("Controls", layout, {QStringLiteral("Page"), QStringLiteral("C_Value")});
    }
    QStringList Params(const char* layout)
    {
        return Stored("LayoutParams", layout,
                      {QStringLiteral("PageIndex"), QStringLiteral("Track1")});
    }
    QStringList AutoSpools(const char* layout)
    {
        return Stored("LayoutParams", layout,
                      {QStringLiteral("PageIndex"), QStringLiteral("AutoSpool")});
    }
    QString Text() { return Session.Document.Find(Family::lbl_TEXT, 1)->Caption(); }

    TestSession Station;
    vantrel::Session& Session = Station.Session;
};

const QStringList AllThree = {QStringLiteral("1 Visitor 1"), QStringLiteral("2 Visitor 2"),
                              QStringLiteral("3 Visitor 3")};

TEST_F(DesignedPages, APageIsDeletedFromTheOpenLayoutAlone)
{
    Open(2);
    EXPECT_TRUE(Delete());
    EXPECT_EQ(Objects("Badge"),
              (QStringList{QStringLiteral("1 Badge 1"), QStringLiteral("2 Badge 3")}));
    EXPECT_EQ(Objects("Visitor"), AllThree);
    EXPECT_EQ(Text(), QStringLiteral("Badge 1"));
    EXPECT_EQ(Session.CurrentParams.PageCount, 2);
}

TEST_F(DesignedPages, ThePagesAboveKeepTheirParameters)
{
    Open(2);
    Delete();
    EXPECT_EQ(Params("Badge"), (QStringList{QStringLiteral("1 TXT1"), QStringLiteral("2 TXT3")}));
    EXPECT_EQ(Params("Visitor").size(), 3);
    EXPECT_EQ(Session.CurrentParams.Track1, QStringLiteral("TXT1"));
    Open(2);
    EXPECT_EQ(Session.CurrentParams.Track1, QStringLiteral("TXT3"));
}

TEST_F(DesignedPages, TheFilterAndTheTickOfTheLayoutOutliveItsFirstPage)
{
    SetAutoSpoolOfAllPages(Session.LayoutDb, QStringLiteral("Badge"), true);
    Execute("UPDATE LayoutParams SET AutoSpool = 0 WHERE PageIndex > 1");
    Open(1);
    Delete();
    EXPECT_EQ(Text(), QStringLiteral("Badge 2"));
    EXPECT_EQ(Session.CurrentParams.Filter, QStringLiteral("x"));
    EXPECT_TRUE(Session.CurrentParams.AutoSpool);
    EXPECT_EQ(Params("Badge"), (QStringList{QStringLiteral("1 TXT2"), QStringLiteral("2 TXT3")}));
}

TEST_F(DesignedPages, APageThatWasNeverSavedIsTakenAwayWithoutTouchingTheStore)
{
    Open(3);
    NewPage(Session);
    EXPECT_EQ(Session.CurrentParams.PageIndex, 4);
    Delete();
    EXPECT_EQ(Text(), QStringLiteral("Badge 3"));
    EXPECT_EQ(Objects("Badge").size(), 3);
    EXPECT_EQ(Params("Badge").size(), 3);
}

TEST_F(DesignedPages, TheQuestionNamesThePageAndItsDefaultIsNo)
{
    Open(2);
    EXPECT_FALSE(DeletePage(Session));
    EXPECT_EQ(Station.Operator.AppMessages,
              QStringList{QStringLiteral(
                  "Delete Page?|Delete page 2 of 3 of the layout (Badge) permanently?")});
    EXPECT_EQ(Station.Operator.MessageButtons, std::vector{AppMessageButtons::NoYes});
    EXPECT_EQ(Objects("Badge").size(), 3);
}

TEST_F(DesignedPages, TheQuestionAboutTheOnlyPageNamesTheLayout)
{
    BeginLayout(Session, QStringLiteral("Pass"));
    EXPECT_TRUE(DeletePage(Session));
    EXPECT_TRUE(Station.Operator.AppMessages.last().contains(QStringLiteral("(Pass)")));
    EXPECT_EQ(Station.Operator.MessageButtons, std::vector{AppMessageButtons::NoYes});
}

TEST_F(DesignedPages, AStoreThatFailsKeepsEveryPage)
{
    RefuseRows(Station.LayoutStore->Location(), QStringLiteral("UPDATE ON LayoutParams"),
               QStringLiteral("1 = 1"));
    Open(2);
    EXPECT_THROW(Delete(), Failure);
    EXPECT_EQ(Objects("Badge").size(), 3);
    EXPECT_EQ(Params("Badge").size(), 3);
}

TEST_F(DesignedPages, EveryPageGivesTheAnswerOfTheFirst)
{
    Execute("UPDATE LayoutParams SET AutoSpool = 0");
    Execute("UPDATE LayoutParams SET AutoSpool = 1 WHERE PageIndex = 1");
    Open(1);
    EXPECT_TRUE(Session.CurrentParams.AutoSpool);
    NextPage(Session);
    EXPECT_EQ(Session.CurrentParams.PageIndex, 2);
    EXPECT_TRUE(Session.CurrentParams.AutoSpool);
    EXPECT_TRUE(Session.Face.IsTicked(Tick::chkAutoSpool));
}

TEST_F(DesignedPages, WithoutAFirstRowTheLowestAnswers)
{
    Execute("UPDATE LayoutParams SET AutoSpool = CASE PageIndex WHEN 2 THEN 1 ELSE 0 END");
    Execute("DELETE FROM LayoutParams WHERE PageIndex = 1");
    Open(3);
    EXPECT_TRUE(Session.CurrentParams.AutoSpool);
}

TEST_F(DesignedPages, SettingAutomaticPrintingSetsAllPagesOfThatLayout)
{
    Execute("UPDATE LayoutParams SET AutoSpool = 0");
    SetAutoSpoolOfAllPages(Session.LayoutDb, QStringLiteral("Badge"), true);
    EXPECT_EQ(AutoSpools("Badge"),
              (QStringList{QStringLiteral("1 1"), QStringLiteral("2 1"), QStringLiteral("3 1")}));
    EXPECT_EQ(AutoSpools("Visitor"),
              (QStringList{QStringLiteral("1 0"), QStringLiteral("2 0"), QStringLiteral("3 0")}));
}

TEST_F(DesignedPages, APageThatIsMadeLaterHasTheTickOfTheLayout)
{
    SetAutoSpoolOfAllPages(Session.LayoutDb, QStringLiteral("Badge"), false);
    Open(1);
    NewPage(Session);
    AddText(Session, QStringLiteral("Back"));
    SavePage(Session);
    EXPECT_EQ(AutoSpools("Badge").last(), QStringLiteral("4 0"));
}

TEST_F(DesignedPages, WithoutTheToolsEachPageHasItsOwnTick)
{
    Session.Options.DesignTools = false;
    Execute("UPDATE LayoutParams SET AutoSpool = CASE PageIndex WHEN 1 THEN 1 ELSE 0 END");
    Open(1);
    EXPECT_TRUE(Session.CurrentParams.AutoSpool);
    Open(2);
    EXPECT_FALSE(Session.CurrentParams.AutoSpool);
}

} // namespace
} // namespace vantrel::test
