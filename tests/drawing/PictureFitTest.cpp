#include "BookTest.h"
#include "support/PdfReading.h"

// A picture of 20 x 40 pixels, its upper half red and its lower half blue, in a box of 2000 x 1000
// twips at 400, 600. On pictures of pages one pixel is five twips.

namespace vantrel::test {

namespace {

constexpr QRgb Red = 0xFFFF0000;
constexpr QRgb Blue = 0xFF0000FF;
constexpr QRgb White = 0xFFFFFFFF;

class PictureFitTest : public BookTest
{
protected:
    static QImage Tall()
    {
        QImage image = Solid(Red, 20, 40);
        for (int y = 20; y < 40; ++y) {
            for (int x = 0; x < 20; ++x)
                image.setPixel(x, y, Blue);
        }
        return image;
    }
    static Draw Fitted(PictureFit fit, const Picture& picture = Picture::FromImage(Tall()))
    {
        return [=](PageCanvas& page) { page.PaintFitted(picture, fit, 400, 600, 2000, 1000); };
    }
    /// The page on the screen, as a PDF, in a book and where a font needs the other writer.
    std::vector<QImage> Everywhere(const Draw& draw)
    {
        const Font slanted{QStringLiteral("Liberation Sans"), 4, false, true};
        const Draw withText = [&](PageCanvas& page) {
            draw(page);
            page.DrawText(QString(QChar(0xF8D0)), slanted, ColorBlack, 2900, 4700);
        };
        return {Screen(0.2, draw), ImageOfPdf(Pdf(draw)),
                ImageOfPdf(BookOf(1, [&](PageCanvas& page, int) { draw(page); })),
                ImageOfPdf(Pdf(withText, QStringLiteral("text.pdf")))};
    }
    static QRgb At(const QImage& page, int x, int y) { return page.pixel(x / 5, y / 5); }
};

} // namespace

TEST_F(PictureFitTest, AWholePictureStandsInTheMiddleOfItsBox)
{
    for (const QImage& page : Everywhere(Fitted(PictureFit::Whole))) {
        ASSERT_EQ(page.size(), QSize(612, 972));
        // 500 wide and 1000 high, so it begins at 1150.
        EXPECT_EQ(At(page, 1130, 700), White);
        EXPECT_EQ(At(page, 1170, 620), Red);
        EXPECT_EQ(At(page, 1630, 1070), Red);
        EXPECT_EQ(At(page, 1170, 1130), Blue);
        EXPECT_EQ(At(page, 1630, 1580), Blue);
        EXPECT_EQ(At(page, 1670, 1500), White);
    }
}

TEST_F(PictureFitTest, APictureThatFillsItsBoxIsCutOffOnTwoSides)
{
    for (const QImage& page : Everywhere(Fitted(PictureFit::Filled))) {
        ASSERT_EQ(page.size(), QSize(612, 972));
        // 2000 wide and 4000 high, of which the middle quarter shows.
        for (const int x : {420, 2380}) {
            EXPECT_EQ(At(page, x, 620), Red);
            EXPECT_EQ(At(page, x, 950), Red);
            EXPECT_EQ(At(page, x, 1250), Blue);
            EXPECT_EQ(At(page, x, 1580), Blue);
        }
        for (const auto& [x, y] : {std::pair{380, 1000}, {2420, 1000}, {1000, 580}, {1000, 1620}})
            EXPECT_EQ(At(page, x, y), White) << x << ' ' << y;
    }
}

TEST_F(PictureFitTest, AStretchedPictureIsThatOfPaintPicture)
{
    const auto plain = [](PageCanvas& page) {
        page.PaintPicture(Picture::FromImage(Tall()), 400, 600, 2000, 1000);
    };
    EXPECT_EQ(Screen(0.2, Fitted(PictureFit::Stretched)), Screen(0.2, plain));
    QFile one(Pdf(Fitted(PictureFit::Stretched), QStringLiteral("one.pdf")));
    QFile other(Pdf(plain, QStringLiteral("other.pdf")));
    ASSERT_TRUE(one.open(QIODevice::ReadOnly) && other.open(QIODevice::ReadOnly));
    EXPECT_EQ(one.readAll(), other.readAll());
}

TEST_F(PictureFitTest, WhatIsDrawnAfterACutPictureIsWhole)
{
    const auto draw = [](PageCanvas& page) {
        Fitted(PictureFit::Filled)(page);
        page.FillBoxes({FilledBox{100, 3000, 2800, 500}}, ColorBlack);
    };
    for (const QImage& page : Everywhere(draw)) {
        EXPECT_EQ(At(page, 120, 3250), 0xFF000000U);
        EXPECT_EQ(At(page, 2880, 3250), 0xFF000000U);
    }
}

TEST_F(PictureFitTest, APhotoIsEmbeddedOnceAndUnchanged)
{
    const QString photo = m_folder.filePath(QStringLiteral("photo.jpg"));
    ASSERT_TRUE(Pattern(7, 200).save(photo, nullptr, 95));
    const Picture picture = LoadPicture(photo);
    QFile cut(Pdf(Fitted(PictureFit::Filled, picture)));
    QFile whole(Pdf([&](PageCanvas& page) { page.PaintPicture(picture, 0, 0, 500, 500); },
                    QStringLiteral("whole.pdf")));
    ASSERT_TRUE(cut.open(QIODevice::ReadOnly) && whole.open(QIODevice::ReadOnly));
    const QByteArray bytes = cut.readAll();
    EXPECT_TRUE(bytes.contains("/DCTDecode"));
    EXPECT_LT(bytes.size(), whole.size() + 200);
}

TEST_F(PictureFitTest, BoxesWithoutASideAndPlacesFarAwayDrawNothing)
{
    const Picture picture = Picture::FromImage(Tall());
    for (const PictureFit fit : {PictureFit::Whole, PictureFit::Filled}) {
        const QImage page = Screen(0.2, [&](PageCanvas& canvas) {
            canvas.PaintFitted(picture, fit, 0, 0, 0, 100);
            canvas.PaintFitted(picture, fit, 0, 0, 100, -100);
            canvas.PaintFitted(picture, fit, 0, 0, 1e300, 100);
            canvas.PaintFitted(picture, fit, std::nan(""), 0, 100, 100);
        });
        QImage white(page.size(), page.format());
        white.fill(Qt::white);
        EXPECT_EQ(page, white);
    }
}

} // namespace vantrel::test
