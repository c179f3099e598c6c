#include "card/ObjectExtras.h"
#include "StoredRows.h"
#include "station/layout/DeleteLayout.h"
#include "station/layout/LoadLayout.h"
#include "station/layout/Navigation.h"
#include "station/layout/ObjectExtraRows.h"
#include "station/layout/PageDescription.h"
#include "station/layout/Pages.h"
#include "station/layout/SaveLayout.h"
#include "store/Connection.h"
#include "support/Layouts.h"
#include <gtest/gtest.h>

// What objects have beyond the columns of their table, kept in a table beside it.

namespace vantrel::test {
namespace {

const QString Staff = QStringLiteral("Staff");
const QString Guests = QStringLiteral("Guests");

class Extras : public ::testing::Test
{
protected:
    Extras()
    {
        Test.WithDatabase();
        BeginLayout(Session, Staff);
    }

    /// A text and two fields of the same number, of which the second shrinks, on each page.
    void AddPage(std::int16_t page, double shrinkTo)
    {
        if (page > 1)
            BeginPage(Session, page);
        AddText(Session, QStringLiteral("Name"));
        AddField(Session, 1);
        SetShrinkTo(AddField(Session, 1), shrinkTo);
        SavePage(Session);
    }
    void Load(std::int16_t page = 1)
    {
        Session.CurrentParams.PageIndex = page;
        ASSERT_TRUE(LoadLayout(Session, Staff));
    }
    double ShrinkTo(Family family, int index)
    {
        return ShrinkToOf(*Session.Document.Find(family, index));
    }
    QList<StoredRow> StoredExtras()
    {
        return StoredRows(Session, QStringLiteral("SELECT * FROM ObjectExtras"));
    }

    TestSession Test;
    vantrel::Session& Session = Test.Session;
};

TEST_F(Extras, AreStoredAndLoadedWithTheirObject)
{
    AddPage(1, 6);
    Load();
    EXPECT_EQ(ShrinkTo(Family::lbl_DATA, 1), 0);
    EXPECT_EQ(ShrinkTo(Family::lbl_DATA, 2), 6);
    EXPECT_EQ(ShrinkTo(Family::lbl_TEXT, 1), 0);
}

TEST_F(Extras, OfAPageWithoutAnyMakeNoTable)
{
    AddPage(1, 0);
    EXPECT_FALSE(HasExtras(Session.LayoutDb));
    if (!StoresAreOnServer()) {
        EXPECT_TRUE(
            StoredRows(Session,
                       QStringLiteral("SELECT name FROM sqlite_master WHERE name LIKE '%Extra%'"))
                .isEmpty());
    }
    Load();
    EXPECT_EQ(ShrinkTo(Family::lbl_DATA, 2), 0);
}

TEST_F(Extras, OfEachKindOfObjectAreFoundAgain)
{
    const std::vector<CardObject*> objects{
        &AddText(Session, QStringLiteral("A long title that goes on and on, far beyond the length "
                                         "that is kept to tell it from others")),
        &AddField(Session, 2), &AddNumber(Session, 7),
        &AddImage(Session, Test.WritePng(QStringLiteral("a.png"), 2, 2))};
    for (std::size_t i = 0; i < objects.size(); ++i)
        SetShrinkTo(*objects[i], static_cast<double>(i + 2));
    SavePage(Session);
    Load();
    EXPECT_EQ(ShrinkTo(Family::lbl_TEXT, 1), 2);
    EXPECT_EQ(ShrinkTo(Family::lbl_DATA, 1), 3);
    EXPECT_EQ(ShrinkTo(Family::lbl_AUTO, 1), 4);
    EXPECT_EQ(ShrinkTo(Family::img_LXV, 1), 5);
}

TEST_F(Extras, OfAPageAreReplacedByItsNextSave)
{
    AddPage(1, 6);
    Load();
    SetShrinkTo(*Session.Document.Find(Family::lbl_DATA, 2), 8);
    SetShrinkTo(*Session.Document.Find(Family::lbl_TEXT, 1), 5);
    SavePage(Session);
    Load();
    EXPECT_EQ(ShrinkTo(Family::lbl_DATA, 2), 8);
    EXPECT_EQ(ShrinkTo(Family::lbl_TEXT, 1), 5);
    Session.Document.Find(Family::lbl_DATA, 2)->Extras = {};
    Session.Document.Find(Family::lbl_TEXT, 1)->Extras = {};
    SavePage(Session);
    EXPECT_TRUE(StoredExtras().isEmpty());
}

TEST_F(Extras, StayWithTheirObjectWhereAnotherStationDeletesAndMovesOthers)
{
    AddPage(1, 6);
    Execute(Session, QStringLiteral("DELETE FROM Controls WHERE C_Param_1 = 'TXT'"));
    Execute(Session, QStringLiteral("UPDATE Controls SET C_Top = C_Top + 100"));
    Load();
    EXPECT_EQ(ShrinkTo(Family::lbl_DATA, 1), 0);
    EXPECT_EQ(ShrinkTo(Family::lbl_DATA, 2), 6);
}

TEST_F(Extras, AreSeenWhenAnotherSessionMakesTheTable)
{
    AddPage(1, 0);
    Load();
    {
        TestSession second;
        second.Session.LayoutDb.Open(Test.LayoutStore->Location());
        ASSERT_TRUE(LoadFirstPage(second.Session, Staff));
        SetShrinkTo(*second.Session.Document.Find(Family::lbl_DATA, 1), 4);
        SavePage(second.Session);
    }
    Load();
    EXPECT_EQ(ShrinkTo(Family::lbl_DATA, 1), 4);
}

TEST_F(Extras, LeaveWithTheirLayoutOnly)
{
    AddPage(1, 6);
    BeginLayout(Session, Guests);
    AddPage(1, 7);
    DeleteLayoutRows(Session, Staff);
    ASSERT_EQ(StoredExtras().size(), 1);
    EXPECT_EQ(StoredExtras().front().value(QStringLiteral("LayoutName")), Guests);
}

TEST_F(Extras, FollowTheirPageWhenAPageBeforeItIsDeleted)
{
    AddPage(1, 6);
    AddPage(2, 7);
    AddPage(3, 8);
    Load(2);
    Session.CurrentParams.PageCount = 3;
    Test.Operator.Answers = {true};
    ASSERT_TRUE(DeletePage(Session));
    EXPECT_EQ(StoredExtras().size(), 2);
    Load(2);
    EXPECT_EQ(ShrinkTo(Family::lbl_DATA, 2), 8);
}

TEST_F(Extras, OfOtherLayoutsStayWhereAPageLeavesItsLayoutAlone)
{
    Session.Options.DesignTools = true;
    for (const QString& name : {Guests, Staff}) {
        BeginLayout(Session, name);
        AddPage(1, 6);
        AddPage(2, 7);
    }
    Load(1);
    Test.Operator.Answers = {true};
    ASSERT_TRUE(DeletePage(Session));
    ASSERT_EQ(StoredExtras().size(), 3);
    EXPECT_EQ(ShrinkTo(Family::lbl_DATA, 2), 7);
}

TEST_F(Extras, OfAFailedSaveAreSeenByItsSessionOnly)
{
    AddPage(1, 6);
    RefuseRows(Test.LayoutStore->Location(), QStringLiteral("INSERT ON ObjectExtras"),
               QStringLiteral("NEW.Extras LIKE '%3%'"));
    Load();
    SetShrinkTo(*Session.Document.Find(Family::lbl_TEXT, 1), 9);
    SetShrinkTo(*Session.Document.Find(Family::lbl_DATA, 2), 3);
    EXPECT_FALSE(SaveLayout(Session, SaveMessages::Silent));
    Load();
    EXPECT_EQ(ShrinkTo(Family::lbl_TEXT, 1), 9);
    vantrel::Connection other;
    other.Open(Test.LayoutStore->Location());
    Recordset rows(other);
    rows.Open(QStringLiteral("SELECT * FROM [ObjectExtras]"));
    ASSERT_EQ(rows.RecordCount(), 1);
    EXPECT_EQ(rows.Value(QStringLiteral("Extras")).toString(), QStringLiteral("{\"ShrinkTo\":6}"));
}

TEST_F(Extras, ThatNobodyCanReadAreNone)
{
    AddPage(1, 6);
    for (const char* stored : {"NULL", "'{'", "'[1]'", "x'00ff'", "7"}) {
        Execute(Session,
                QStringLiteral("UPDATE ObjectExtras SET Extras = ") + QLatin1StringView(stored));
        Load();
        EXPECT_TRUE(Session.Document.Find(Family::lbl_DATA, 2)->Extras.isEmpty()) << stored;
    }
}

TEST_F(Extras, ArePartOfThePagesDescription)
{
    AddPage(1, 0);
    // As it is when it was loaded once.
    Load();
    SavePage(Session);
    const PageDescription plain = DescribePage(Session.LayoutDb, Staff, 1);
    EXPECT_FALSE(plain.Content.contains(QStringLiteral("extras")));
    Load();
    SetShrinkTo(*Session.Document.Find(Family::lbl_DATA, 2), 6);
    SavePage(Session);
    const PageDescription described = DescribePage(Session.LayoutDb, Staff, 1);
    EXPECT_NE(described.Hash, plain.Hash);
    CardDocument built;
    built.Load();
    LayoutParamsRecord params;
    BuildPage(described.Content, built, params);
    EXPECT_EQ(ShrinkToOf(*built.Find(Family::lbl_DATA, 1)), 0);
    EXPECT_EQ(ShrinkToOf(*built.Find(Family::lbl_DATA, 2)), 6);
    Load();
    Session.Document.Find(Family::lbl_DATA, 2)->Extras = {};
    SavePage(Session);
    EXPECT_EQ(DescribePage(Session.LayoutDb, Staff, 1).Hash, plain.Hash);
}

} // namespace
} // namespace vantrel::test
