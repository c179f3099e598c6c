#include "station/layout/LoadLayout.h"
#include "StoredRows.h"
#include "card/AutoNumber.h"
#include "card/Grips.h"
#include "station/layout/DocumentForm.h"
#include "station/layout/DrawObjects.h"
#include "station/layout/LayoutParams.h"
#include "station/layout/SaveLayout.h"
#include "support/Layouts.h"
#include <QFile>
#include <gtest/gtest.h>

namespace vantrel::test {

namespace {

const QString Staff = QStringLiteral("Staff");

class LoadLayoutTest : public ::testing::Test
{
protected:
    LoadLayoutTest()
    {
        Test.WithDatabase();
        BeginLayout(Session, Staff);
    }

    QStringList Captions() const
    {
        QStringList captions;
        for (const auto& object : Session.Document.Objects()) {
            if (object->IsContent())
                captions.append(object->Caption());
        }
        return captions;
    }

    /// Saves a page with one text.
    void SavePageWith(const QString& text, std::int16_t page)
    {
        BeginPage(Session, page);
        AddText(Session, text);
        SavePage(Session);
    }

    TestSession Test;
    vantrel::Session& Session = Test.Session;
};

TEST_F(LoadLayoutTest, ALayoutThatDoesNotExistLeavesTheObjectsAndEmptiesTheName)
{
    AddText(Session, QStringLiteral("old"));
    Session.CurrentParams.Encode = true;
    EXPECT_FALSE(LoadLayout(Session, QStringLiteral("Nobody")));
    EXPECT_TRUE(Session.CurrentLayoutName.isEmpty());
    EXPECT_EQ(Captions(), QStringList{QStringLiteral("old")});
    EXPECT_TRUE(Session.CurrentParams.Encode);
    EXPECT_FALSE(Session.CurrentParams.LayoutOpen);
    EXPECT_FALSE(SaveLayout(Session, SaveMessages::Shown));
    EXPECT_TRUE(Test.Operator.AppMessages.isEmpty());
}

TEST_F(LoadLayoutTest, WithTheStoreClosedItFailsAndKeepsTheName)
{
    Session.LayoutDb.Close();
    EXPECT_FALSE(DoesLayoutExist(Session, Staff));
    EXPECT_FALSE(LoadLayout(Session, Staff));
    EXPECT_EQ(Session.CurrentLayoutName, Staff);
}

TEST_F(LoadLayoutTest, ANameWithAnApostropheFailsAndKeepsTheOpenName)
{
    EXPECT_FALSE(LoadLayout(Session, QStringLiteral("O'Brien")));
    EXPECT_EQ(Session.CurrentLayoutName, Staff);
}

TEST_F(LoadLayoutTest, ALayoutExistsByItsObjectsAlone)
{
    SaveLayoutParams(Session.LayoutDb, Session.CurrentLayoutName, Session.CurrentParams);
    EXPECT_FALSE(DoesLayoutExist(Session, Staff));
    EXPECT_TRUE(Session.CurrentLayoutName.isEmpty());
    Execute(Session, QStringLiteral("INSERT INTO Controls (LayoutName, Page) VALUES ('Staff', 5)"));
    Session.CurrentLayoutName = QStringLiteral("Other");
    EXPECT_TRUE(DoesLayoutExist(Session, Staff));
    EXPECT_EQ(Session.CurrentLayoutName, QStringLiteral("Other"));
}

TEST_F(LoadLayoutTest, ALoadIsACompleteRebuild)
{
    SavePageWith(QStringLiteral("stored"), 1);
    AddText(Session, QStringLiteral("not stored"));
    Session.Document.SelectedObject = Session.Document.Objects().back().get();
    ShowHandles(Session.Document, true);
    EXPECT_TRUE(LoadLayout(Session, Session.CurrentLayoutName));
    EXPECT_EQ(Captions(), QStringList{QStringLiteral("stored")});
    EXPECT_EQ(Session.Document.SelectedObject, nullptr);
    EXPECT_FALSE(Session.Document.HandlesShown);
    EXPECT_EQ(Session.CurrentLayoutName, Staff);
    EXPECT_TRUE(Session.CurrentParams.LayoutOpen);
    EXPECT_TRUE(Session.Document.LayoutUnchanged);
}

TEST_F(LoadLayoutTest, LoadsThePageTheParametersPointAt)
{
    SavePageWith(QStringLiteral("one"), 1);
    SavePageWith(QStringLiteral("two"), 2);
    Session.CurrentParams.PageIndex = 1;
    LoadLayout(Session, Staff);
    EXPECT_EQ(Captions(), QStringList{QStringLiteral("one")});
    EXPECT_EQ(Session.CurrentParams.PageCount, 2);
    Session.CurrentParams.PageIndex = 2;
    LoadLayout(Session, Staff);
    EXPECT_EQ(Captions(), QStringList{QStringLiteral("two")});
}

TEST_F(LoadLayoutTest, APageWithoutRowsIsEmptyAndSuccessfulAndLeavesAHiddenFormHidden)
{
    SavePageWith(QStringLiteral("one"), 1);
    Session.CurrentParams.PrinterType = PrinterTypeCode::Nisca;
    Session.CurrentParams.PageIndex = 9;
    EXPECT_TRUE(LoadLayout(Session, Staff));
    EXPECT_TRUE(Captions().isEmpty());
    EXPECT_FALSE(Session.Document.IsShown());
    EXPECT_TRUE(Session.CurrentParams.LayoutOpen);
    EXPECT_EQ(Session.CurrentParams.PrinterType, PrinterTypeCode::Nisca);
    EXPECT_EQ(Session.CurrentParams.PageCount, 1);
    Session.CurrentParams.PageIndex = 1;
    EXPECT_TRUE(LoadLayout(Session, Staff));
    EXPECT_TRUE(Session.Document.IsShown());
}

TEST_F(LoadLayoutTest, FamiliesAreDenseFromOneInRowOrderAfterALoad)
{
    AddText(Session, QStringLiteral("a"));
    CardObject& gap = AddText(Session, QStringLiteral("b"));
    AddField(Session, 1);
    AddText(Session, QStringLiteral("c"));
    Session.Document.Remove(gap);
    SavePage(Session);
    LoadLayout(Session, Staff);
    EXPECT_EQ(Session.Document.HighestIndex(Family::lbl_TEXT), 2);
    EXPECT_EQ(Session.Document.Find(Family::lbl_TEXT, 1)->Caption(), QStringLiteral("a"));
    EXPECT_EQ(Session.Document.Find(Family::lbl_TEXT, 2)->Caption(), QStringLiteral("c"));
    EXPECT_EQ(Session.Document.HighestIndex(Family::lbl_DATA), 1);
}

TEST_F(LoadLayoutTest, StackingFollowsRowOrder)
{
    Execute(Session, QStringLiteral(
                         "INSERT INTO Controls (LayoutName, Page, Control_Type, C_Param_1, C_Value)"
                         " VALUES ('Staff', 1, 'VB.Label', 'TXT', 'z'),"
                         " ('Staff', 1, 'VB.Label', 'TXT', 'a'),"
                         " ('Staff', 1, 'VB.Label', 'TXT', 'm')"));
    LoadLayout(Session, Staff);
    EXPECT_EQ(Captions(),
              (QStringList{QStringLiteral("z"), QStringLiteral("a"), QStringLiteral("m")}));
}

TEST_F(LoadLayoutTest, NumbersAreReadAsSavedNotAsCountedInMemory)
{
    CardObject& number = AddNumber(Session, 5);
    SavePage(Session);
    Increment_If_AutoNumber(number);
    EXPECT_EQ(number.Caption(), QStringLiteral("6"));
    LoadLayout(Session, Staff);
    EXPECT_EQ(Session.Document.Find(Family::lbl_AUTO, 1)->Caption(), QStringLiteral("5"));
}

TEST_F(LoadLayoutTest, TheBackImagesPathGoesToTheFormsTagEvenIfTheFileIsGone)
{
    AddText(Session, QStringLiteral("x"));
    const QString path = Test.WritePng(QStringLiteral("back.png"), 2, 2);
    Session.CurrentParams.BackImg1Path = path;
    SavePage(Session);
    LoadLayout(Session, Staff);
    EXPECT_EQ(Session.Document.Tag, path);
    EXPECT_TRUE(Session.CurrentParams.BackImg1Picture.HasHandle());
    ASSERT_TRUE(QFile::remove(path));
    LoadLayout(Session, Staff);
    EXPECT_EQ(Session.Document.Tag, path);
    EXPECT_FALSE(Session.CurrentParams.BackImg1Picture.HasHandle());
    SavePage(Session);
    EXPECT_EQ(StoredRows(Session,
                         QStringLiteral(
                             "SELECT BackImg1 FROM LayoutParams"))[0][QStringLiteral("BackImg1")],
              path);
}

TEST_F(LoadLayoutTest, TheAutoSpoolTickFollowsThePage)
{
    Session.CurrentParams.AutoSpool = true;
    SavePageWith(QStringLiteral("one"), 1);
    Session.CurrentParams.AutoSpool = false;
    SavePageWith(QStringLiteral("two"), 2);
    Session.CurrentParams.PageIndex = 1;
    LoadLayout(Session, Staff);
    EXPECT_TRUE(Session.Face.IsTicked(Tick::chkAutoSpool));
    Session.CurrentParams.PageIndex = 2;
    LoadLayout(Session, Staff);
    EXPECT_FALSE(Session.Face.IsTicked(Tick::chkAutoSpool));
}

TEST_F(LoadLayoutTest, TheCaptionShowsLayoutAndPrinterAndTheFieldMenuIsRebuilt)
{
    SavePageWith(QStringLiteral("x"), 1);
    SetRecord(Session, {QStringLiteral("A")});
    LoadLayout(Session, Staff);
    EXPECT_EQ(Session.Face.Caption(),
              QStringLiteral(" Vantrel v6.0   (Staff) printing to (Card Printer)"));
    EXPECT_EQ(Session.Face.Fields().Count(), 1);
}

TEST_F(LoadLayoutTest, TheFormIsSizedToTheSavedPage)
{
    AddText(Session, QStringLiteral("x"));
    Session.CurrentParams.PrinterType = PrinterTypeCode::PlainFixedSize;
    SavePage(Session);
    LoadLayout(Session, Staff);
    EXPECT_EQ(Session.Document.Width, 8000.0F);
    EXPECT_EQ(Session.Document.Height, 2000.0F);
}

TEST_F(LoadLayoutTest, LoadsWithoutAnyPrinter)
{
    SavePageWith(QStringLiteral("x"), 1);
    RecordingPrinters none(QStringList{});
    vantrel::Session bare(Session.ProgramFolder, Test.Operator, none);
    bare.LayoutDb.Open(StoreAt(Session.PathInFolder(QStringLiteral("Vantrel.dat"))));
    bare.CurrentParams.PageIndex = 1;
    EXPECT_TRUE(LoadLayout(bare, Staff));
    EXPECT_EQ(bare.Document.HighestIndex(Family::lbl_TEXT), 1);
}

TEST_F(LoadLayoutTest, BothClearingsEmptyTheFormAndTheBackImages)
{
    for (const auto clear : {ClearDoc, ClearDoc_Ex}) {
        AddText(Session, QStringLiteral("x"));
        AddText(Session, QStringLiteral("kept")).Tag = Marker::NotIncluded;
        ShowHandles(Session.Document, true);
        Session.Document.SelectedObject = Session.Document.Objects().back().get();
        LayoutParamsRecord& params = Session.CurrentParams;
        params.BackImg1Path = Test.WritePng(QStringLiteral("back.png"), 2, 2);
        params.BackImg1Picture = LoadPicture(params.BackImg1Path);
        params.BackImg2Path = params.BackImg1Path;
        params.BackImg2Picture = params.BackImg1Picture;
        Session.Document.Tag = params.BackImg1Path;
        clear(Session);
        EXPECT_TRUE(Captions().isEmpty());
        EXPECT_EQ(Session.Document.Objects().back()->Caption(), QStringLiteral("kept"));
        EXPECT_FALSE(Session.Document.HandlesShown);
        EXPECT_EQ(Session.Document.SelectedObject, nullptr);
        EXPECT_FALSE(params.BackImg1Picture.HasHandle());
        EXPECT_FALSE(params.BackImg2Picture.HasHandle());
        EXPECT_TRUE(params.BackImg1Path.isEmpty());
        EXPECT_TRUE(params.BackImg2Path.isEmpty());
        EXPECT_TRUE(Session.Document.Tag.isEmpty());
    }
}

} // namespace

} // namespace vantrel::test
