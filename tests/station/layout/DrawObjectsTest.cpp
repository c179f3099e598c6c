#include "station/layout/DrawObjects.h"
#include "card/AutoNumber.h"
#include "card/Grips.h"
#include "drawing/PageCanvas.h"
#include "station/layout/DocumentForm.h"
#include "support/Layouts.h"
#include <gtest/gtest.h>

namespace vantrel::test {

namespace {

constexpr ObjectBox Box{210, 220, 330, 1540};

/// Every value differs from the one that a new text has.
TextLooks OddLooks()
{
    TextLooks looks;
    looks.cBackColor = 0x010203;
    looks.cForeColor = 0x040506;
    looks.cBorderStyle = 0;
    looks.cAppearance = 1;
    looks.cBackStyle = 1;
    looks.cFont.Name = QStringLiteral("Serif");
    looks.cFont.Size = 8.25;
    looks.cFont.Bold = true;
    looks.cVisible = false;
    looks.cCaption = QStringLiteral("Given");
    looks.cAlignment = 2;
    return looks;
}

void ExpectBox(const CardObject& object)
{
    EXPECT_EQ(object.Top, 210.0F);
    EXPECT_EQ(object.Left, 220.0F);
    EXPECT_EQ(object.Height, 330.0F);
    EXPECT_EQ(object.Width, 1540.0F);
}

void ExpectTextLooks(const CardObject& object)
{
    ExpectBox(object);
    EXPECT_EQ(object.BackColor, 0x010203);
    EXPECT_EQ(object.ForeColor, 0x040506);
    EXPECT_EQ(object.BorderStyle, 0);
    EXPECT_EQ(object.Appearance, 1);
    EXPECT_EQ(object.BackStyle, 0);
    EXPECT_EQ(object.Alignment, 0);
    EXPECT_TRUE(object.Visible);
    EXPECT_EQ(object.Font(), OddLooks().cFont);
    EXPECT_TRUE(object.Tag.isEmpty());
}

TEST(DrawObjects, DataFieldIgnoresCaptionVisibleBackStyleAndAlignment)
{
    TestSession test;
    const TextLooks looks = OddLooks();
    const CardObject& object = Draw_DataField(OpenForm(test.Session), 12, Box, looks);
    ExpectTextLooks(object);
    EXPECT_EQ(object.Caption(), QStringLiteral("Data Field 12"));
    EXPECT_EQ(object.DataField, QStringLiteral("12"));
    EXPECT_EQ(object.DataMember, QStringLiteral("False"));
    EXPECT_EQ(object.LinkItem, QStringLiteral("LXV01BDF"));
    EXPECT_TRUE(object.ToolTipText.isEmpty());
    EXPECT_EQ(object.Index(), 1);
}

TEST(DrawObjects, TwoDataFieldsMayShareOneFieldIndex)
{
    TestSession test;
    const TextLooks looks;
    const CardObject& first = Draw_DataField(OpenForm(test.Session), 3, Box, looks);
    const CardObject& second = Draw_DataField(OpenForm(test.Session), 3, Box, looks);
    EXPECT_EQ(first.DataField, second.DataField);
    EXPECT_EQ(second.Index(), 2);
}

TEST(DrawObjects, LabelTakesItsCaption)
{
    TestSession test;
    const TextLooks looks = OddLooks();
    const CardObject& object = Draw_Label(OpenForm(test.Session), Box, looks);
    ExpectTextLooks(object);
    EXPECT_EQ(object.Caption(), QStringLiteral("Given"));
    EXPECT_EQ(object.LinkItem, QStringLiteral("LXV01"));
}

TEST(DrawObjects, LabelWithoutCaptionIsNumberedByTheHighestIndex)
{
    TestSession test;
    for (int i = 0; i < 3; ++i)
        AddText(test.Session, QStringLiteral("x"));
    EXPECT_EQ(Draw_Label(OpenForm(test.Session), Box, TextLooks()).Caption(),
              QStringLiteral("Static Text 4"));
    test.Session.Document.Remove(*test.Session.Document.Find(Family::lbl_TEXT, 2));
    EXPECT_EQ(Draw_Label(OpenForm(test.Session), Box, TextLooks()).Caption(),
              QStringLiteral("Static Text 5"));
}

TEST(DrawObjects, AutoNumberShowsItsSeed)
{
    TestSession test;
    const TextLooks looks;
    const CardObject& object = Draw_AutoNumber(OpenForm(test.Session), 41, Box, looks);
    EXPECT_EQ(object.DataField, QStringLiteral("41"));
    EXPECT_EQ(object.Caption(), QStringLiteral("41"));
    EXPECT_EQ(object.LinkItem, QStringLiteral("AUTO"));
    EXPECT_TRUE(object.DataMember.isEmpty());
    EXPECT_EQ(object.Width, 1540.0F);
}

TEST(DrawObjects, AutoNumberTakesAGivenCaption)
{
    TestSession test;
    const TextLooks looks = OddLooks();
    const CardObject& object = Draw_AutoNumber(OpenForm(test.Session), 1.5, Box, looks);
    ExpectTextLooks(object);
    EXPECT_EQ(object.DataField, QStringLiteral("1.5"));
    EXPECT_EQ(object.Caption(), QStringLiteral("Given"));
}

TEST(DrawObjects, AutoNumberIsWidenedToItsCaptionAndAHundredTwips)
{
    TestSession test;
    TextLooks looks;
    looks.cFont.Size = 72;
    const ObjectBox box{0, 0, 300, 200};
    const CardObject& object = Draw_AutoNumber(OpenForm(test.Session), 123456789, box, looks);
    // Measured in the form's font, however large the object's own is.
    const double measured = PageCanvas::TextWidth(QStringLiteral("123456789"), Font());
    ASSERT_GT(measured, 200.0);
    EXPECT_EQ(object.Width, static_cast<float>(measured + 100));
}

TEST(DrawObjects, AutoNumberIsNotWidenedWhenItCountsUp)
{
    TestSession test;
    CardObject& object = Draw_AutoNumber(OpenForm(test.Session), 9, {0, 0, 300, 200}, TextLooks());
    object.DataField = QStringLiteral("99999999999");
    const float width = object.Width;
    Increment_If_AutoNumber(object);
    EXPECT_EQ(object.Caption(), QStringLiteral("100000000000"));
    EXPECT_EQ(object.Width, width);
}

TEST(DrawObjects, DefaultFontReplacesTheGivenOneOfEveryText)
{
    TestSession test;
    EnsureDocument(test.Session);
    Font chosen;
    chosen.Name = QStringLiteral("Monospace");
    chosen.Size = 14;
    test.Session.Document.DefaultFont = chosen;
    EXPECT_EQ(Draw_DataField(OpenForm(test.Session), 1, Box, OddLooks()).Font(), chosen);
    EXPECT_EQ(Draw_Label(OpenForm(test.Session), Box, OddLooks()).Font(), chosen);
    EXPECT_EQ(Draw_AutoNumber(OpenForm(test.Session), 1, Box, OddLooks()).Font(), chosen);
}

TEST(DrawObjects, ImageIsStretchedVisibleAndTaggedWithItsPath)
{
    TestSession test;
    const Picture picture = LoadPicture(test.WritePng(QStringLiteral("a.png"), 4, 5));
    const QString path = QStringLiteral("some/path");
    const CardObject& object = Draw_Image(OpenForm(test.Session), Box, 1, picture, false, path);
    ExpectBox(object);
    EXPECT_EQ(object.Tag, QStringLiteral("some/path"));
    EXPECT_TRUE(object.Stretch);
    EXPECT_TRUE(object.Visible);
    EXPECT_EQ(object.Picture, picture);
}

TEST(DrawObjects, CameraObjectIgnoresItsPathAndShowsThePlaceholder)
{
    TestSession test;
    const Picture none;
    const QString path = QStringLiteral("some/path");
    const CardObject& object = Draw_CamView(OpenForm(test.Session), Box, 1, none, false, path);
    ExpectBox(object);
    EXPECT_EQ(object.Tag, QStringLiteral("CVIEW"));
    EXPECT_TRUE(object.Stretch);
    EXPECT_TRUE(object.Visible);
    EXPECT_EQ(object.Picture, CameraPlaceholder());
    EXPECT_TRUE(CameraPlaceholder().HasHandle());
    EXPECT_FALSE(CameraPlaceholder().Image().isNull());
}

TEST(DrawObjects, CameraObjectTakesAGivenPicture)
{
    TestSession test;
    const Picture picture = LoadPicture(test.WritePng(QStringLiteral("a.png"), 4, 5));
    EXPECT_EQ(Draw_CamView(OpenForm(test.Session), Box, 1, picture, true, QString()).Picture,
              picture);
}

TEST(DrawObjects, TheLargestCameraSizeIsKept)
{
    TestSession test;
    Draw_CamView(OpenForm(test.Session), {0, 0, 2000, 1500}, 1, Picture(), true, QString());
    Draw_CamView(OpenForm(test.Session), {0, 0, 1000, 1800}, 1, Picture(), true, QString());
    EXPECT_EQ(test.Session.Document.CamHeight, 2000);
    EXPECT_EQ(test.Session.Document.CamWidth, 1800);
    Draw_CamView(OpenForm(test.Session), {0, 0, 100000, 10}, 1, Picture(), true, QString());
    EXPECT_EQ(test.Session.Document.CamHeight, 32767);
}

TEST(DrawObjects, ANewObjectLiesOnTopAndHidesTheHandlesAndIsNotSelected)
{
    TestSession test;
    vantrel::Session& session = test.Session;
    AddText(session, QStringLiteral("below"));
    ShowHandles(session.Document, true);
    const CardObject& object = AddField(session, 1);
    EXPECT_EQ(session.Document.Objects().back().get(), &object);
    EXPECT_FALSE(session.Document.HandlesShown);
    EXPECT_EQ(session.Document.SelectedObject, nullptr);
}

TEST(DrawObjects, ACameraObjectIsDetectedUnlessItIsNotIncluded)
{
    TestSession test;
    vantrel::Session& session = test.Session;
    AddText(session, QStringLiteral("x")).Tag = QStringLiteral("CVIEW");
    AddImage(session, QStringLiteral("x.png"));
    EXPECT_FALSE(DetectCamImages(session.Document));
    CardObject& camera = Draw_CamView(OpenForm(session), Box, 1, Picture(), true, QString());
    EXPECT_TRUE(DetectCamImages(session.Document));
    camera.Tag = Marker::NotIncluded;
    EXPECT_FALSE(DetectCamImages(session.Document));
}

} // namespace

} // namespace vantrel::test
