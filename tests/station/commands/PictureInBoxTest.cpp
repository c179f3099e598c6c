#include "card/PaintDocument.h"
#include "drawing/PageCanvas.h"
#include "station/commands/ClipCommands.h"
#include "station/commands/PictureCommands.h"
#include "station/imaging/ChooseImage.h"
#include "station/imaging/TakePhoto.h"
#include "station/layout/DesignSelection.h"
#include "station/layout/DesignSteps.h"
#include "station/layout/DrawObjects.h"
#include "station/layout/LoadLayout.h"
#include "station/layout/PageDescription.h"
#include "station/print/PrintCard.h"
#include "store/Recordset.h"
#include "support/Layouts.h"
#include "support/WarningGuard.h"
#include <gtest/gtest.h>

// Pictures that keep their proportions in their boxes, on all ways of a page.

namespace vantrel::test {
namespace {

class PictureInBox : public ::testing::Test
{
protected:
    PictureInBox()
    {
        Station.WithDatabase();
        Session.Options.DesignTools = true;
        BeginLayout(Session, QStringLiteral("Badge"));
        Portrait = Station.WritePng(QStringLiteral("ada.png"), 48, 64);
        Select(AddImage(Session, QString(), {200, 300, 1000, 1000}));
        NoteDesign(Session);
    }
    void Select(CardObject& object) { SelectObjects(Session.Document, Session.Face, {&object}); }
    CardObject& Image(int index = 1) { return *Session.Document.Find(Family::img_LXV, index); }
    CardObject& Camera() { return *Session.Document.Find(Family::img_CAM, 1); }
    void Choose() { ChooseImageForBox(Session.Document, Portrait); }
    void SaveAndLoad()
    {
        SavePage(Session);
        ASSERT_TRUE(LoadFirstPage(Session, QStringLiteral("Badge")));
    }
    QVariant StoredWord()
    {
        Recordset rows(Session.LayoutDb);
        rows.Open(QStringLiteral("SELECT * FROM [Controls] WHERE [LayoutName] = 'Badge'"));
        return rows.Value(QStringLiteral("C_Param_2"));
    }
    QStringList Printed()
    {
        Station.Printers.Operations.clear();
        PrintCard(Session);
        return Station.Printers.Only({QStringLiteral("Paint")});
    }

    QString Portrait;
    TestSession Station;
    vantrel::Session& Session = Station.Session;
};

TEST_F(PictureInBox, AChosenPhotoKeepsTheBoxAndItsProportions)
{
    Choose();
    EXPECT_EQ(Image().Width, 1000);
    EXPECT_EQ(Image().Height, 1000);
    EXPECT_EQ(Image().Fit, PictureFit::Whole);
    EXPECT_EQ(Image().Tag, Portrait);
    SaveAndLoad();
    EXPECT_EQ(Printed(), QStringList{QStringLiteral(
                             "PaintFitted(48 x 64 pixels, whole, 300, 200, 1000, 1000)")});
}

TEST_F(PictureInBox, AsToldAChosenPhotoGivesItsSizeAndIsStretched)
{
    ChooseImage(Session.Document, Portrait);
    EXPECT_EQ(Image().Width, static_cast<float>(Image().Picture.WidthHundredths()));
    EXPECT_EQ(Image().Height, static_cast<float>(Image().Picture.HeightHundredths()));
    EXPECT_EQ(Image().Fit, PictureFit::Stretched);
    SaveAndLoad();
    EXPECT_TRUE(StoredWord().isNull());
    EXPECT_TRUE(Printed().constFirst().startsWith(QStringLiteral("PaintPicture(48 x 64")));
}

TEST_F(PictureInBox, AFileThatIsNoPictureChangesNothing)
{
    ChooseImageForBox(Session.Document, Session.PathInFolder(QStringLiteral("Vantrel.dat")));
    ChooseImageForBox(Session.Document, QStringLiteral("/nowhere"));
    EXPECT_EQ(Image().Tag, QString());
    EXPECT_EQ(Image().Fit, PictureFit::Stretched);
}

TEST_F(PictureInBox, ANewPhotoKeepsTheWayThatWasChosen)
{
    FitSelectedPictures(Session, PictureFit::Filled);
    Choose();
    EXPECT_EQ(Image().Fit, PictureFit::Filled);
}

TEST_F(PictureInBox, ChoosingAPhotoIsOneStep)
{
    Choose();
    NoteDesign(Session);
    UndoDesign(Session);
    EXPECT_EQ(Image().Tag, QString());
    EXPECT_EQ(Image().Fit, PictureFit::Stretched);
    EXPECT_FALSE(CanUndoDesign(Session));
    RedoDesign(Session);
    EXPECT_EQ(Image().Tag, Portrait);
    EXPECT_EQ(Image().Fit, PictureFit::Whole);
    EXPECT_TRUE(Image().Picture.HasHandle());
}

TEST_F(PictureInBox, TheWayIsAStepOfItsOwnAndUnsavedUntilItIsSaved)
{
    Choose();
    SaveAndLoad();
    NoteDesign(Session);
    EXPECT_FALSE(IsPageUnsaved(Session));
    Select(Image());
    FitSelectedPictures(Session, PictureFit::Filled);
    EXPECT_TRUE(IsPageUnsaved(Session));
    UndoDesign(Session);
    EXPECT_EQ(Image().Fit, PictureFit::Whole);
}

TEST_F(PictureInBox, EachWayIsStoredAndLoaded)
{
    Choose();
    for (const PictureFit fit : {PictureFit::Filled, PictureFit::Stretched, PictureFit::Whole}) {
        Select(Image());
        FitSelectedPictures(Session, fit);
        SaveAndLoad();
        EXPECT_EQ(Image().Fit, fit);
        EXPECT_EQ(StoredWord().toString(), QString(WordOfFit(fit)));
    }
}

TEST_F(PictureInBox, ItIsPrintedTheSameAlsoWithoutTheDesignTools)
{
    Choose();
    SavePage(Session);
    Session.Options.DesignTools = false;
    ASSERT_TRUE(LoadFirstPage(Session, QStringLiteral("Badge")));
    EXPECT_EQ(Printed().size(), 1);
    EXPECT_TRUE(Printed().constFirst().contains(QStringLiteral("whole")));
    EXPECT_EQ(StoredWord().toString(), QStringLiteral("WHOLE"));
}

TEST_F(PictureInBox, AnUnknownWordOfAnImageIsStretched)
{
    Choose();
    SavePage(Session);
    Recordset rows(Session.LayoutDb);
    rows.Open(QStringLiteral("SELECT * FROM [Controls]"), CursorLock::Optimistic);
    rows.SetValue(QStringLiteral("C_Param_2"), QStringLiteral("whole"));
    rows.Update();
    ASSERT_TRUE(LoadFirstPage(Session, QStringLiteral("Badge")));
    EXPECT_EQ(Image().Fit, PictureFit::Stretched);
}

TEST_F(PictureInBox, CopiesHaveTheSameWay)
{
    Choose();
    FitSelectedPictures(Session, PictureFit::Filled);
    PasteObjects(Session, CopySelected(Session));
    EXPECT_EQ(Image(2).Fit, PictureFit::Filled);
    EXPECT_EQ(Image(2).Tag, Portrait);
}

TEST_F(PictureInBox, AReprintHasTheSameWay)
{
    Choose();
    SavePage(Session);
    const QString page = DescribePage(Session.LayoutDb, QStringLiteral("Badge"), 1).Content;
    CardDocument built;
    built.Load();
    LayoutParamsRecord params;
    BuildPage(page, built, params);
    EXPECT_EQ(built.Find(Family::img_LXV, 1)->Fit, PictureFit::Whole);
}

TEST_F(PictureInBox, TheScreenShowsItAsItPrints)
{
    Choose();
    QImage screen(306, 486, QImage::Format_RGB32);
    screen.fill(Qt::white);
    const auto canvas = PageCanvas::OnImage(screen, 0.1);
    PaintDocument(Session.Document, Session.CurrentParams, *canvas);
    canvas->Finish();
    // 750 wide and 1000 high in a box that begins at 300, so from 425 to 1175.
    EXPECT_EQ(screen.pixel(40, 70), 0xFFFFFFFFU);
    EXPECT_EQ(screen.pixel(45, 70), 0xFF336699U);
    EXPECT_EQ(screen.pixel(115, 70), 0xFF336699U);
    EXPECT_EQ(screen.pixel(120, 70), 0xFFFFFFFFU);
}

TEST_F(PictureInBox, APhotoThatTheRecordNamesKeepsItsProportionsWhereItIsSetSo)
{
    Session.Pictures.Folder = Session.ProgramFolder;
    Image().Tag = QStringLiteral("{1}.png");
    FitSelectedPictures(Session, PictureFit::Filled);
    SavePage(Session);
    SetRecord(Session, {QStringLiteral("ada")});
    AnnounceWarning(QStringLiteral("A card of Badge: Image {1}.png: The picture is too coarse for "
                                   "its size: 69 dots to the inch."));
    EXPECT_EQ(Printed(), QStringList{QStringLiteral(
                             "PaintFitted(48 x 64 pixels, filled, 300, 200, 1000, 1000)")});
}

TEST_F(PictureInBox, CameraImagesFillTheirBoxFromTheLoadOn)
{
    Draw_CamView(Session.Document, {1500, 300, 1400, 1050}, 0, Picture(), true, QString());
    SaveAndLoad();
    EXPECT_EQ(Camera().Fit, PictureFit::Filled);
    EXPECT_FALSE(IsPageUnsaved(Session));
    Select(Camera());
    FitSelectedPictures(Session, PictureFit::Stretched);
    EXPECT_EQ(Camera().Fit, PictureFit::Filled);
    FitSelectedPictures(Session, PictureFit::Whole);
    SaveAndLoad();
    EXPECT_EQ(Camera().Fit, PictureFit::Whole);
}

TEST_F(PictureInBox, WithoutTheDesignToolsCameraImagesAreStretched)
{
    Session.Options.DesignTools = false;
    Draw_CamView(Session.Document, {1500, 300, 1400, 1050}, 0, Picture(), true, QString());
    SaveAndLoad();
    EXPECT_EQ(Camera().Fit, PictureFit::Stretched);
    FitSelectedPictures(Session, PictureFit::Whole);
    EXPECT_EQ(Camera().Fit, PictureFit::Stretched);
}

TEST_F(PictureInBox, TheTicksFollowTheSelectedImage)
{
    FitSelectedPictures(Session, PictureFit::Filled);
    EXPECT_TRUE(Session.Face.IsTicked(Tick::cmdFitFilled));
    EXPECT_FALSE(Session.Face.IsTicked(Tick::cmdFitStretched));
    Select(AddText(Session, QStringLiteral("Text")));
    FitSelectedPictures(Session, PictureFit::Whole);
    for (const Tick tick : {Tick::cmdFitFilled, Tick::cmdFitWhole, Tick::cmdFitStretched})
        EXPECT_FALSE(Session.Face.IsTicked(tick));
}

} // namespace
} // namespace vantrel::test
