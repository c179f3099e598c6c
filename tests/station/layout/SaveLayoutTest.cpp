#include "station/layout/SaveLayout.h"
#include "StoredRows.h"
#include "card/Grips.h"
#include "station/layout/DocumentForm.h"
#include "station/layout/DrawObjects.h"
#include "station/layout/LoadLayout.h"
#include "support/Layouts.h"
#include <gtest/gtest.h>

namespace vantrel::test {

namespace {

const QString Staff = QStringLiteral("Staff");
const QString NoObjects =
    QStringLiteral("No objects found|You must have at least one object on a page!");

class SaveLayoutTest : public ::testing::Test
{
protected:
    SaveLayoutTest()
    {
        Test.WithDatabase();
        BeginLayout(Session, Staff);
    }

    QList<StoredRow> Page(int page) const { return StoredPage(Session, Staff, page); }

    void SavePagesWithOneText(std::int16_t pages)
    {
        for (std::int16_t page = 1; page <= pages; ++page) {
            BeginPage(Session, page);
            AddText(Session, QStringLiteral("page %1").arg(page));
            SavePage(Session);
        }
    }

    TestSession Test;
    vantrel::Session& Session = Test.Session;
};

TEST_F(SaveLayoutTest, WithoutAnOpenLayoutItDoesNothing)
{
    AddText(Session, QStringLiteral("x"));
    Session.CurrentLayoutName.clear();
    EXPECT_FALSE(SaveLayout(Session, SaveMessages::Shown));
    EXPECT_TRUE(Test.Operator.AppMessages.isEmpty());
    EXPECT_TRUE(StoredRows(Session, QStringLiteral("SELECT * FROM Controls")).isEmpty());
    EXPECT_TRUE(StoredRows(Session, QStringLiteral("SELECT * FROM LayoutParams")).isEmpty());
}

TEST_F(SaveLayoutTest, ReportsItsEndUnlessItIsSilent)
{
    AddText(Session, QStringLiteral("x"));
    EXPECT_TRUE(SaveLayout(Session, SaveMessages::Silent));
    EXPECT_TRUE(Test.Operator.AppMessages.isEmpty());
    EXPECT_TRUE(SaveLayout(Session, SaveMessages::Shown));
    EXPECT_EQ(Test.Operator.AppMessages,
              QStringList{QStringLiteral("Document Saved.|Document ( Staff ) Sucessfully Saved.")});
    EXPECT_EQ(Session.LayoutDb.TransactionDepth(), 0);
}

TEST_F(SaveLayoutTest, SavingTwiceGivesTheSameRowsInTheSameOrder)
{
    AddText(Session, QStringLiteral("z"));
    AddNumber(Session, 7);
    AddField(Session, 2);
    AddImage(Session, Test.WritePng(QStringLiteral("a.png"), 2, 2));
    AddText(Session, QStringLiteral("a"));
    SavePage(Session);
    const QList<StoredRow> first = Page(1);
    ASSERT_EQ(first.size(), 5);
    SavePage(Session);
    EXPECT_EQ(Page(1), first);
    LoadLayout(Session, Staff);
    SavePage(Session);
    QList<StoredRow> again = Page(1);
    // A field that was loaded has an empty prefix and suffix where a new one has none.
    EXPECT_TRUE(first[2][QStringLiteral("C_Prefix")].isNull());
    again[2][QStringLiteral("C_Prefix")] = first[2][QStringLiteral("C_Prefix")];
    again[2][QStringLiteral("C_Suffix")] = first[2][QStringLiteral("C_Suffix")];
    EXPECT_EQ(again, first);
}

TEST_F(SaveLayoutTest, APageOfTwoThousandObjectsComesBackWholeAndInOrder)
{
    constexpr int Count = 2000;
    for (int i = 1; i <= Count; ++i)
        AddText(Session, QStringLiteral("text %1").arg(i), {i, 2 * i, 3 * i, 4 * i});
    SavePage(Session);
    const QList<StoredRow> stored = Page(1);
    EXPECT_EQ(stored.size(), Count);
    ClearDoc(Session);
    ASSERT_TRUE(LoadLayout(Session, Staff));
    ASSERT_EQ(Session.Document.HighestIndex(Family::lbl_TEXT), Count);
    for (int i = 1; i <= Count; ++i) {
        const CardObject& text = *Session.Document.Find(Family::lbl_TEXT, i);
        ASSERT_EQ(text.Caption(), QStringLiteral("text %1").arg(i));
        ASSERT_EQ(text.Top, static_cast<float>(i));
        ASSERT_EQ(text.Left, static_cast<float>(2 * i));
        ASSERT_EQ(text.Height, static_cast<float>(3 * i));
        ASSERT_EQ(text.Width, static_cast<float>(4 * i));
    }
    SavePage(Session);
    EXPECT_EQ(Page(1), stored);
}

TEST_F(SaveLayoutTest, OnlyThePageOnTheFormIsWritten)
{
    SavePagesWithOneText(2);
    const QList<StoredRow> other = Page(1);
    ClearDoc_Ex(Session);
    AddField(Session, 1);
    SavePage(Session);
    EXPECT_EQ(Page(1), other);
    ASSERT_EQ(Page(2).size(), 1);
    EXPECT_EQ(Page(2)[0][QStringLiteral("C_Param_1")], QStringLiteral("BDF"));
}

TEST_F(SaveLayoutTest, TemplatesAndGripsNeverReachTheStore)
{
    ShowHandles(Session.Document, true);
    AddText(Session, QStringLiteral("x"));
    SavePage(Session);
    EXPECT_EQ(Page(1).size(), 1);
}

TEST_F(SaveLayoutTest, AnObjectWhoseTagSaysNotIncludedIsNeitherSavedNorCleared)
{
    AddText(Session, QStringLiteral("saved"));
    AddField(Session, 1).Tag = Marker::NotIncluded;
    SavePage(Session);
    ASSERT_EQ(Page(1).size(), 1);
    EXPECT_EQ(Page(1)[0][QStringLiteral("C_Value")], QStringLiteral("saved"));
    LoadLayout(Session, Staff);
    EXPECT_EQ(Session.Document.HighestIndex(Family::lbl_DATA), 1);
}

TEST_F(SaveLayoutTest, WhatIsNeitherTextNorImageIsCountedAndNotWritten)
{
    Session.Document.Find(Family::picHandle, 3)->Tag.clear();
    EXPECT_TRUE(SaveLayout(Session, SaveMessages::Shown));
    EXPECT_TRUE(Page(1).isEmpty());
}

TEST_F(SaveLayoutTest, PageTwoOfThreeSavedEmptyGoesToPageOne)
{
    SavePagesWithOneText(3);
    BeginPage(Session, 2);
    EXPECT_FALSE(SaveLayout(Session, SaveMessages::Silent));
    EXPECT_EQ(Test.Operator.AppMessages, QStringList{NoObjects});
    EXPECT_TRUE(Page(2).isEmpty());
    EXPECT_EQ(StoredRows(Session, QStringLiteral("SELECT * FROM LayoutParams")).size(), 3);
    EXPECT_EQ(Session.CurrentParams.PageIndex, 1);
    EXPECT_EQ(Session.CurrentParams.PageCount, 2);
    EXPECT_EQ(Session.Document.Find(Family::lbl_TEXT, 1)->Caption(), QStringLiteral("page 1"));
    EXPECT_EQ(Session.Face.StatusPanel(3).Text, QStringLiteral("Layout (Staff) Page 1 of 2"));
}

TEST_F(SaveLayoutTest, AnEmptyPageThatWasNeverSavedGetsItsParametersRow)
{
    SavePagesWithOneText(1);
    BeginPage(Session, 2);
    EXPECT_FALSE(SaveLayout(Session, SaveMessages::Silent));
    EXPECT_EQ(StoredRows(Session, QStringLiteral("SELECT * FROM LayoutParams")).size(), 2);
}

TEST_F(SaveLayoutTest, AOnePageLayoutSavedEmptyCeasesToExist)
{
    SavePagesWithOneText(1);
    ClearDoc_Ex(Session);
    EXPECT_FALSE(SaveLayout(Session, SaveMessages::Shown));
    EXPECT_EQ(Test.Operator.AppMessages, QStringList{NoObjects});
    EXPECT_TRUE(Page(1).isEmpty());
    EXPECT_EQ(Session.CurrentParams.PageIndex, 0);
    EXPECT_TRUE(Session.CurrentLayoutName.isEmpty());
    // Its parameters remain.
    EXPECT_EQ(StoredRows(Session, QStringLiteral("SELECT * FROM LayoutParams")).size(), 1);
}

TEST_F(SaveLayoutTest, PageOneOfALongerLayoutSavedEmptyShowsAnEmptyPageZero)
{
    SavePagesWithOneText(2);
    BeginPage(Session, 1);
    EXPECT_FALSE(SaveLayout(Session, SaveMessages::Silent));
    EXPECT_EQ(Session.CurrentParams.PageIndex, 0);
    EXPECT_EQ(Session.CurrentParams.PageCount, 1);
    EXPECT_EQ(Session.CurrentLayoutName, Staff);
    EXPECT_EQ(Session.Document.HighestIndex(Family::lbl_TEXT), 0);
}

TEST_F(SaveLayoutTest, ANewPageReachesTheStoreAtItsFirstSaveAndIsCounted)
{
    SavePagesWithOneText(1);
    BeginPage(Session, 2);
    AddText(Session, QStringLiteral("new"));
    EXPECT_EQ(Page(2).size(), 0);
    SavePage(Session);
    EXPECT_EQ(Page(2).size(), 1);
    EXPECT_EQ(Session.CurrentParams.PageCount, 2);
}

TEST_F(SaveLayoutTest, TheSaveReadsBackWhatItWrote)
{
    AddText(Session, QStringLiteral("x"));
    Session.CurrentParams.BackImg2Path = QStringLiteral("two.png");
    Session.CurrentParams.Track1 = QStringLiteral("DAT1");
    Session.CurrentParams.PageCount = 6;
    SavePage(Session);
    EXPECT_TRUE(Session.CurrentParams.BackImg2Path.isEmpty());
    EXPECT_EQ(Session.CurrentParams.Track1, QStringLiteral("DAT1"));
    EXPECT_EQ(Session.CurrentParams.PageCount, 1);
}

} // namespace

} // namespace vantrel::test
