#include "card/PageCheck.h"
#include "card/CardDocument.h"
#include "card/FieldValues.h"
#include "card/LayoutParamsRecord.h"
#include "card/ObjectExtras.h"
#include "support/Print.h"
#include <gtest/gtest.h>

// What a check finds on a page: each thing where it is, and nothing where it is not.

namespace vantrel::test {
namespace {

constexpr float CardWidth = 4860;
constexpr float CardHeight = 3060;

struct Place
{
    float Left = 300;
    float Top = 300;
    float Width = 2400;
    float Height = 400;
};

class PageCheck : public ::testing::Test
{
protected:
    PageCheck()
    {
        Document.Load();
        Document.Width = CardWidth;
        Document.Height = CardHeight;
        Params.PageIndex = 2;
    }

    CardObject& Add(Family family, const Place& place)
    {
        CardObject& object = Document.Add(family);
        object.Left = place.Left;
        object.Top = place.Top;
        object.Width = place.Width;
        object.Height = place.Height;
        return object;
    }
    CardObject& AddText(const QString& caption, const Place& place = {},
                        Family family = Family::lbl_TEXT)
    {
        CardObject& text = Add(family, place);
        text.SetFont({.Name = QStringLiteral("Liberation Sans"), .Size = 12});
        text.SetCaption(caption);
        return text;
    }
    CardObject& AddFigure(const char* font, const QString& caption, const Place& place,
                          Family family = Family::lbl_TEXT)
    {
        CardObject& figure = AddText(caption, place, family);
        figure.SetFont({.Name = QLatin1StringView(font), .Size = 12});
        return figure;
    }
    CardObject& AddImage(const QImage& pixels, const Place& place)
    {
        CardObject& image = Add(Family::img_LXV, place);
        image.Tag = QStringLiteral("/cards/photo.png");
        image.Picture = Picture::FromImage(pixels);
        return image;
    }
    static QImage Plain(int width, int height, QRgb color = 0xff808080U)
    {
        QImage image(width, height, QImage::Format_RGB32);
        image.fill(color);
        return image;
    }

    Findings Found() const
    {
        return CheckPage({.Document = Document, .Params = Params, .Values = Values});
    }
    /// Each finding as "word: where".
    QStringList Told() const
    {
        QStringList told;
        for (const Finding& finding : Found())
            told.append(RowOf(finding.Kind).Word + QStringLiteral(": ") + finding.Where);
        return told;
    }

    CardDocument Document;
    LayoutParamsRecord Params;
    FieldValues Values;
};

/// Longer than the box of a text, and than a card.
const QString LongName = QStringLiteral("Bartholomew Featherstonehaugh");
const QString LongestName = QStringLiteral("Bartholomew Featherstonehaugh-Cholmondeley");

} // namespace

TEST_F(PageCheck, SaysNothingOfAPageThatIsAsItShouldBe)
{
    AddText(QStringLiteral("Visitor"));
    AddFigure("Shape Rectangle", {}, {0, 2800, 4860, 260});
    AddFigure("Barcode QR Code", QStringLiteral("4711"), {3000, 300, 1200, 1200});
    AddImage(Plain(300, 400), {300, 1200, 900, 1200});
    EXPECT_EQ(Told(), QStringList());
}

TEST_F(PageCheck, FindsTextThatLeavesItsBox)
{
    const CardObject& text = AddText(LongName);
    ASSERT_EQ(Told(), QStringList(QStringLiteral("text-leaves-box: Static Text \"Bartholomew "
                                                 "Featherstone\u2026\"")));
    const Finding finding = Found().front();
    EXPECT_EQ(finding.Page, 2);
    EXPECT_EQ(finding.Object, (ObjectKey{Family::lbl_TEXT, text.Index()}));
    EXPECT_TRUE(finding.Advice.contains(QStringLiteral("shrink")));
    EXPECT_FALSE(finding.What.contains(QStringLiteral("Bartholomew")));
}

TEST_F(PageCheck, SaysNothingOfTextThatShrinksIntoItsBox)
{
    SetShrinkTo(AddText(LongName), 5);
    EXPECT_EQ(Told(), QStringList());
}

TEST_F(PageCheck, FindsTextThatDoesNotFitInItsSmallestSize)
{
    SetShrinkTo(AddText(LongName), 11);
    EXPECT_EQ(Told().size(), 1);
}

TEST_F(PageCheck, FindsLinesBelowTheBox)
{
    AddText(QStringLiteral("one\rtwo"), {300, 300, 2400, 600});
    EXPECT_EQ(Told(), QStringList());
    AddText(QStringLiteral("one\rtwo\rthree"), {300, 1300, 2400, 400});
    EXPECT_EQ(Told(),
              QStringList(QStringLiteral("text-leaves-box: Static Text \"one two three\"")));
}

TEST_F(PageCheck, FindsTextThatLeavesTheCard)
{
    AddText(LongName, {2000, 300, 1800, 400});
    AddText(QStringLiteral("low"), {300, 2950, 1800, 400});
    CardObject& right = AddText(LongestName, {300, 300, 900, 400});
    right.Alignment = 1;
    const Findings found = Found();
    ASSERT_EQ(found.size(), 3U);
    for (const Finding& finding : found)
        EXPECT_EQ(finding.Kind, FindingKind::TextLeavesCard);
    EXPECT_EQ(RowOf(found.front().Kind).Weight, FindingWeight::Error);
}

TEST_F(PageCheck, FindsAMissingPictureAndWhy)
{
    CardObject& image = AddImage(Plain(900, 900), {300, 300, 900, 900});
    EXPECT_EQ(Told(), QStringList());
    image.Picture = {};
    ASSERT_EQ(Told(), QStringList(QStringLiteral("picture-missing: Image photo.png")));
    EXPECT_EQ(Found().front().Detail, image.Tag);
    image.IsRecordPicture = true;
    EXPECT_EQ(Told(), QStringList()) << "nobody knows the picture before a record has come";
    image.PictureProblem = QStringLiteral("there is no file");
    EXPECT_EQ(Found().front().Detail, image.PictureProblem);
}

TEST_F(PageCheck, FindsAMissingBackground)
{
    Params.BackImg1Path = QStringLiteral("/cards/back.png");
    EXPECT_EQ(Told(), QStringList(QStringLiteral("picture-missing: Background")));
    Params.BackImg1Picture = Picture::FromImage(Plain(1012, 638));
    EXPECT_EQ(Told(), QStringList());
    Params.BackImg1Picture = Picture::FromImage(Plain(300, 200));
    EXPECT_EQ(Told(), QStringList(QStringLiteral("picture-coarse: Background")));
}

TEST_F(PageCheck, FindsAPictureOfFewerThan150DotsToTheInch)
{
    // An inch wide and high.
    CardObject& image = AddImage(Plain(150, 150), {300, 300, 1440, 1440});
    EXPECT_EQ(Told(), QStringList());
    image.Picture = Picture::FromImage(Plain(150, 149));
    ASSERT_EQ(Told(), QStringList(QStringLiteral("picture-coarse: Image photo.png")));
    EXPECT_EQ(Found().front().Detail, QStringLiteral("149 dots to the inch"));
    EXPECT_TRUE(Found().front().Advice.contains(QStringLiteral("150 by 150 pixels")));
}

TEST_F(PageCheck, GoesByTheSizeAtWhichAPictureIsDrawnInItsBox)
{
    // An inch wide and two high: as a whole it is an inch high, filling the box two inches wide.
    CardObject& image = AddImage(Plain(150, 150), {300, 100, 1440, 2880});
    image.Fit = PictureFit::Whole;
    EXPECT_EQ(Told(), QStringList());
    image.Fit = PictureFit::Filled;
    EXPECT_EQ(Told(), QStringList(QStringLiteral("picture-coarse: Image photo.png")));
}

TEST_F(PageCheck, LooksAtACameraPictureButNotAtItsPlaceholder)
{
    CardObject& camera = Add(Family::img_CAM, {300, 300, 1440, 1440});
    camera.Tag = Marker::Camera;
    EXPECT_EQ(Told(), QStringList());
    camera.Picture = Picture::FromImage(Plain(20, 20));
    EXPECT_EQ(Told(), QStringList(QStringLiteral("picture-coarse: Camera Image")));
    EXPECT_TRUE(CheckPage({.Document = Document,
                           .Params = Params,
                           .Values = Values,
                           .CameraPlaceholder = camera.Picture})
                    .empty());
}

TEST_F(PageCheck, FindsModulesBelowAQuarterOfAMillimetre)
{
    // 21 modules and 4 of quiet zone on each side: 29 of them, at least 3 dots of 1/300 inch each.
    constexpr float whole = 29 * 3 * 4.8F;
    CardObject& code =
        AddFigure("Barcode QR Code", QStringLiteral("4711"), {480, 480, whole + 10, whole + 10});
    EXPECT_EQ(Told(), QStringList());
    code.Width = code.Height = whole - 10;
    ASSERT_EQ(Told(), QStringList(QStringLiteral("code-too-fine: Static Text \"4711\"")));
    EXPECT_EQ(Found().front().Detail, QStringLiteral("0.17 mm"));
}

TEST_F(PageCheck, FindsCodesThatCannotHoldTheirText)
{
    CardObject& code =
        AddFigure("Barcode EAN-13", QStringLiteral("4006381333931"), {300, 300, 2600, 700});
    EXPECT_EQ(Told(), QStringList());
    code.SetCaption(QStringLiteral("Ada"));
    ASSERT_EQ(Told(), QStringList(QStringLiteral("code-impossible: Static Text \"Ada\"")));
    EXPECT_EQ(Found().front().What, QStringLiteral("EAN-13: 12 or 13 digits are wanted"));
}

TEST_F(PageCheck, DoesNotTakeTheNameOfAFieldForTheTextOfItsCode)
{
    CardObject& code = AddFigure("Barcode EAN-13", QStringLiteral("Data Field 1"),
                                 {300, 300, 2600, 700}, Family::lbl_DATA);
    code.DataField = QStringLiteral("1");
    EXPECT_EQ(Told(), QStringList());
    Values.Add(QStringLiteral("Ada"));
    EXPECT_EQ(Told(), QStringList(QStringLiteral("code-impossible: Data Field 1")));
}

TEST_F(PageCheck, FindsFontsThatAreNotInstalled)
{
    CardObject& text = AddText(QStringLiteral("Visitor"));
    for (const char* name : {"Liberation Sans", "liberation sans", "Sans", "Serif", "Monospace"}) {
        text.SetFont({.Name = QLatin1StringView(name), .Size = 12});
        EXPECT_EQ(Told(), QStringList()) << name;
    }
    text.SetFont({.Name = QStringLiteral("Unheard-of Gothic"), .Size = 12});
    ASSERT_EQ(Told(), QStringList(QStringLiteral("font-missing: Static Text \"Visitor\"")));
    EXPECT_TRUE(Found().front().Detail.endsWith(QStringLiteral("is printed instead")));
}

TEST_F(PageCheck, FindsTextThatIsHardToTellFromTheCard)
{
    CardObject& text = AddText(QStringLiteral("Visitor"));
    text.ForeColor = 0x777777;
    EXPECT_EQ(Told(), QStringList(QStringLiteral("contrast-low: Static Text \"Visitor\"")));
    text.ForeColor = 0x666666;
    EXPECT_EQ(Told(), QStringList());
}

TEST_F(PageCheck, WantsLessContrastOfLargeLetters)
{
    CardObject& text = AddText(QStringLiteral("Hi"), {300, 300, 2400, 700});
    text.ForeColor = 0x8a8a8a;
    text.SetFont({.Name = QStringLiteral("Liberation Sans"), .Size = 17});
    EXPECT_EQ(Told().size(), 1);
    text.SetFont({.Name = QStringLiteral("Liberation Sans"), .Size = 18});
    EXPECT_EQ(Told(), QStringList());
    text.SetFont({.Name = QStringLiteral("Liberation Sans"), .Size = 14, .Bold = true});
    EXPECT_EQ(Told(), QStringList());
}

TEST_F(PageCheck, ComparesTextWithWhatLiesBehindIt)
{
    // Black on a dark band that is under it, and beside a band that is over it.
    AddFigure("Shape Rectangle", {}, {0, 200, 4860, 700}).ForeColor = 0x301010;
    CardObject& text = AddText(QStringLiteral("Visitor"));
    AddText(QStringLiteral("Guest"), {300, 1500, 2400, 400});
    AddFigure("Shape Rectangle", {}, {0, 1400, 4860, 700}).ForeColor = 0x301010;
    EXPECT_EQ(Told(), QStringList(QStringLiteral("contrast-low: Static Text \"Visitor\"")));
    text.ForeColor = ColorWhite;
    EXPECT_EQ(Told(), QStringList());
}

TEST_F(PageCheck, ComparesTextWithTheMeanColourOfPictures)
{
    AddImage(Plain(900, 600, 0xff202020U), {0, 0, 4860, 3060});
    CardObject& text = AddText(QStringLiteral("Visitor"));
    EXPECT_EQ(Told(), QStringList(QStringLiteral("contrast-low: Static Text \"Visitor\"")));
    text.ForeColor = ColorWhite;
    EXPECT_EQ(Told(), QStringList());
}

TEST_F(PageCheck, ComparesTextWithTheBackground)
{
    Params.BackImg1Picture = Picture::FromImage(Plain(1012, 638, 0xff000030U));
    AddText(QStringLiteral("Visitor"));
    EXPECT_EQ(Told(), QStringList(QStringLiteral("contrast-low: Static Text \"Visitor\"")));
}

TEST_F(PageCheck, FindsLightCodesOnDarkGround)
{
    AddFigure("Shape Rectangle", {}, {0, 0, 4860, 3060}).ForeColor = ColorBlack;
    CardObject& code =
        AddFigure("Barcode QR Code", QStringLiteral("4711"), {3000, 300, 1200, 1200});
    code.ForeColor = ColorWhite;
    EXPECT_EQ(Told(), QStringList(QStringLiteral("contrast-low: Static Text \"4711\"")));
}

TEST_F(PageCheck, SaysNothingOfEmptyTextsAndOfWhatIsNotOnTheCard)
{
    AddText({}).ForeColor = ColorWhite;
    AddFigure("Barcode EAN-13", {}, {300, 300, 100, 100});
    AddText(LongName).Tag = Marker::NotIncluded;
    EXPECT_EQ(Told(), QStringList());
}

TEST_F(PageCheck, ChecksTenThousandObjectsAndAPageWithoutSize)
{
    for (int i = 0; i < 10'000; ++i)
        AddText(LongName, {300, 300, 900, 400});
    EXPECT_EQ(Found().size(), 10'000U);
    Document.Width = Document.Height = 0;
    EXPECT_EQ(Found().size(), 10'000U);
}

TEST_F(PageCheck, TellsOfTracksFirst)
{
    Params.PrinterType = PrinterTypeCode::Fargo;
    Params.Track2 = QStringLiteral("ABC");
    AddText(LongName);
    ASSERT_EQ(Told().size(), 2);
    EXPECT_EQ(Told().front(), QStringLiteral("track-characters: Track 2"));
    EXPECT_EQ(Found().front().Page, 2);
    EXPECT_FALSE(Found().front().Object.has_value());
}

} // namespace vantrel::test
