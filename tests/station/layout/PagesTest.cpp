#include "station/layout/Pages.h"
#include "station/layout/LoadLayout.h"
#include "station/layout/Navigation.h"
#include "station/layout/SaveLayout.h"
#include "store/Recordset.h"
#include "support/Layouts.h"
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

const QString ClearQuestion =
    QStringLiteral("Clear Page?|A layout must contain at least one page.\r\n"
                   "Do you want to clear the page instead?");
const QString DeleteQuestion = QStringLiteral("Delete Page?|Delete this page permanently?");

/// Layouts of pages with one text each, "NAME PAGE", the first of them open.
class PagedStation : public TestSession
{
public:
    explicit PagedStation(int pages)
    {
        WithDatabase();
        for (const char* name : {"Badge", "Visitor"}) {
            BeginLayout(Session, QLatin1StringView(name));
            for (int page = 1; page <= pages; ++page) {
                if (page > 1)
                    BeginPage(Session, static_cast<std::int16_t>(page));
                AddText(Session, QStringLiteral("%1 %2").arg(QLatin1StringView(name)).arg(page));
                SavePage(Session);
            }
        }
        Open(1);
    }
    void Open(std::int16_t page)
    {
        Session.CurrentParams.PageIndex = page;
        ASSERT_TRUE(LoadLayout(Session, QStringLiteral("Badge")));
    }
    /// The rows of the store, as "PAGE text".
    QStringList Stored(const char* layout)
    {
        Recordset rows(Session.LayoutDb);
        rows.Open(QStringLiteral("SELECT * FROM [Controls] WHERE [LayoutName] = '%1'")
                      .arg(QLatin1StringView(layout)));
        QStringList stored;
        for (; !rows.IsEof(); rows.MoveNext())
            stored += rows.Value(QStringLiteral("Page")).toString() + QLatin1Char(' ') +
                      rows.Value(QStringLiteral("C_Value")).toString();
        return stored;
    }
    QStringList StoredParameterPages()
    {
        Recordset rows(Session.LayoutDb);
        rows.Open(QStringLiteral("SELECT * FROM [LayoutParams] WHERE [LayoutName] = 'Badge'"));
        QStringList pages;
        for (; !rows.IsEof(); rows.MoveNext())
            pages += rows.Value(QStringLiteral("PageIndex")).toString();
        return pages;
    }
    QString Panel() const { return Session.Face.StatusPanel(3).Text; }
    QString Text() const { return Session.Document.Find(Family::lbl_TEXT, 1)->Caption(); }
};

TEST(NewPage, ExistsOnTheFormOnlyUntilItIsSaved)
{
    PagedStation station(1);
    station.Session.CurrentParams.BackImg1Path = QStringLiteral("front.png");
    station.Session.CurrentParams.Track1 = QStringLiteral("DAT1");
    EXPECT_FALSE(NewPage(station.Session));
    EXPECT_EQ(station.Session.CurrentParams.PageIndex, 2);
    EXPECT_EQ(station.Session.CurrentParams.PageCount, 2);
    EXPECT_EQ(station.Session.CurrentParams.BackImg1Path, QString());
    EXPECT_EQ(station.Session.CurrentParams.Track1, QStringLiteral("DAT1"));
    EXPECT_EQ(station.Session.Document.HighestIndex(Family::lbl_TEXT), 0);
    EXPECT_EQ(station.Stored("Badge"), QStringList{QStringLiteral("1 Badge 1")});
    EXPECT_EQ(station.StoredParameterPages(), QStringList{QStringLiteral("1")});
    AddText(station.Session, QStringLiteral("Back"));
    SaveLayout(station.Session, SaveMessages::Silent);
    EXPECT_EQ(station.Stored("Badge"),
              (QStringList{QStringLiteral("1 Badge 1"), QStringLiteral("2 Back")}));
}

TEST(NewPage, ReadsAsPageNOfN)
{
    PagedStation station(1);
    NewPage(station.Session);
    EXPECT_EQ(station.Panel(), QStringLiteral("Layout (Badge) Page 2 of 2"));
}

TEST(NewPage, IsShownAsNewAfterALoadHasCountedThePagesOfTheStore)
{
    PagedStation station(1);
    NewPage(station.Session);
    ASSERT_TRUE(LoadLayout(station.Session, QStringLiteral("Badge")));
    EXPECT_EQ(station.Session.CurrentParams.PageCount, 1);
    RefreshData(station.Session.Face, station.Session.CurrentLayoutName,
                station.Session.CurrentParams);
    EXPECT_EQ(station.Panel(), QStringLiteral("Layout (Badge) New Page* "));
}

TEST(NewPage, IsGoneAtTheNextPageChange)
{
    PagedStation station(1);
    NewPage(station.Session);
    AddText(station.Session, QStringLiteral("Unsaved"));
    PreviousPage(station.Session);
    EXPECT_EQ(station.Text(), QStringLiteral("Badge 1"));
    EXPECT_EQ(station.Session.CurrentParams.PageCount, 1);
    EXPECT_EQ(station.Stored("Badge"), QStringList{QStringLiteral("1 Badge 1")});
}

TEST(DeletePage, DeletesThatPageOfAllLayoutsAndMovesTheHigherPagesDown)
{
    PagedStation station(3);
    station.Open(2);
    station.Operator.Answers = {true};
    EXPECT_TRUE(DeletePage(station.Session));
    EXPECT_EQ(station.Operator.AppMessages, QStringList{DeleteQuestion});
    EXPECT_EQ(station.Stored("Badge"),
              (QStringList{QStringLiteral("1 Badge 1"), QStringLiteral("2 Badge 3")}));
    EXPECT_EQ(station.Stored("Visitor"),
              (QStringList{QStringLiteral("1 Visitor 1"), QStringLiteral("2 Visitor 3")}));
    EXPECT_EQ(station.Session.CurrentParams.PageIndex, 1);
    EXPECT_EQ(station.Text(), QStringLiteral("Badge 1"));
}

TEST(DeletePage, LeavesTheRowsOfParametersAlone)
{
    PagedStation station(3);
    station.Open(2);
    station.Session.CurrentParams.Track1 = QStringLiteral("DAT2");
    station.Operator.Answers = {true};
    DeletePage(station.Session);
    EXPECT_EQ(station.StoredParameterPages(),
              (QStringList{QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("3")}));
    // The record still held the deleted page's values when it was written to the page now open.
    EXPECT_EQ(station.Session.CurrentParams.Track1, QStringLiteral("DAT2"));
    EXPECT_EQ(station.Panel(), QStringLiteral("Layout (Badge) Page 1 of 2"));
}

TEST(DeletePage, FromThePageAboveTheSecondItGoesToTheOneBefore)
{
    PagedStation station(3);
    station.Open(3);
    station.Operator.Answers = {true};
    DeletePage(station.Session);
    EXPECT_EQ(station.Session.CurrentParams.PageIndex, 2);
    EXPECT_EQ(station.Text(), QStringLiteral("Badge 2"));
}

TEST(DeletePage, DeletingTheFirstOfTwoStaysAtTheFirst)
{
    PagedStation station(2);
    station.Operator.Answers = {true};
    EXPECT_TRUE(DeletePage(station.Session));
    EXPECT_EQ(station.Session.CurrentParams.PageIndex, 1);
    EXPECT_EQ(station.Text(), QStringLiteral("Badge 2"));
}

TEST(DeletePage, AnsweredNoChangesNothing)
{
    PagedStation station(2);
    station.Operator.Answers = {false};
    EXPECT_FALSE(DeletePage(station.Session));
    EXPECT_EQ(station.Stored("Badge").size(), 2);
    EXPECT_EQ(station.Session.CurrentParams.PageCount, 2);
}

TEST(DeletePage, AnAnswerGoesToThePageItWasAskedForOnly)
{
    PagedStation station(3);
    const QStringList badge = station.Stored("Badge");
    station.Open(2);
    const std::function<void()> meanwhile[] = {
        // A macro has printed the record and closed its last layout.
        [&] { CloseLayout(station.Session); },
        [&] { station.Open(3); },
        [&] { ASSERT_TRUE(LoadLayout(station.Session, QStringLiteral("Visitor"))); },
    };
    for (const auto& happens : meanwhile) {
        station.Open(2);
        station.Operator.WhileAsked = happens;
        station.Operator.Answers = {true};
        EXPECT_FALSE(DeletePage(station.Session));
        EXPECT_EQ(station.Stored("Badge"), badge);
        EXPECT_EQ(station.Stored("Visitor").size(), 3);
        EXPECT_EQ(station.StoredParameterPages().size(), 3);
    }
}

TEST(DeletePage, APageReloadedWhileItAsksIsTheSamePage)
{
    PagedStation station(3);
    station.Open(2);
    station.Operator.WhileAsked = [&] { station.Open(2); };
    station.Operator.Answers = {true};
    EXPECT_TRUE(DeletePage(station.Session));
    EXPECT_EQ(station.Stored("Badge").size(), 2);
}

TEST(DeletePage, ClearsOnlyThePageItAskedAbout)
{
    PagedStation station(1);
    station.Operator.WhileAsked = [&] {
        ASSERT_TRUE(LoadLayout(station.Session, QStringLiteral("Visitor")));
    };
    station.Operator.Answers = {true};
    EXPECT_TRUE(DeletePage(station.Session));
    EXPECT_EQ(station.Text(), QStringLiteral("Visitor 1"));
}

TEST(DeletePage, TheOnlyPageIsClearedOnTheFormInstead)
{
    PagedStation station(1);
    station.Operator.Answers = {true};
    EXPECT_TRUE(DeletePage(station.Session));
    EXPECT_EQ(station.Operator.AppMessages, QStringList{ClearQuestion});
    EXPECT_EQ(station.Session.Document.HighestIndex(Family::lbl_TEXT), 0);
    EXPECT_EQ(station.Stored("Badge"), QStringList{QStringLiteral("1 Badge 1")});
    SaveLayout(station.Session, SaveMessages::Shown);
    EXPECT_TRUE(station.Operator.AppMessages.last().contains(
        QStringLiteral("You must have at least one object on a page!")));
}

TEST(DeletePage, KeepingTheOnlyPageReturnsTrueToo)
{
    PagedStation station(1);
    station.Operator.Answers = {false};
    EXPECT_TRUE(DeletePage(station.Session));
    EXPECT_EQ(station.Text(), QStringLiteral("Badge 1"));
}

} // namespace
} // namespace vantrel::test
