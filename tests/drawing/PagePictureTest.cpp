#include "PageTest.h"
#include "base/Failure.h"
#include "support/PdfReading.h"
#include "support/Print.h"

namespace vantrel::test {

namespace {

class PagePictureTest : public PageTest
{};

} // namespace

TEST_F(PagePictureTest, APictureIsStretchedIntoItsRectangle)
{
    QImage halves = Solid(0xFFFF0000, 40, 10);
    for (int y = 0; y < 10; ++y) {
        for (int x = 20; x < 40; ++x)
            halves.setPixel(x, y, 0xFF0000FF);
    }
    const QString path = Pdf([&](PageCanvas& page) {
        page.PaintPicture(Picture::FromImage(halves), 200, 400, 1000, 2000);
    });
    const QImage page = ImageOfPdf(path, 4);
    EXPECT_EQ(page.pixel(38, 200), 0xFFFFFFFFU);
    EXPECT_EQ(page.pixel(42, 200), 0xFFFF0000U);
    EXPECT_EQ(page.pixel(230, 470), 0xFF0000FFU);
    EXPECT_EQ(page.pixel(244, 200), 0xFFFFFFFFU);
    EXPECT_EQ(page.pixel(100, 77), 0xFFFFFFFFU);
    EXPECT_EQ(page.pixel(100, 83), 0xFFFF0000U);
    EXPECT_EQ(page.pixel(100, 484), 0xFFFFFFFFU);
}

TEST_F(PagePictureTest, AStretchedPictureKeepsItsColourUpToItsEdge)
{
    const QImage image = Screen(0.2, [](PageCanvas& page) {
        page.PaintPicture(Picture::FromImage(Solid(0xFF204060, 2, 2)), 500, 500, 1000, 1000);
    });
    EXPECT_EQ(image.pixel(100, 100), 0xFF204060U);
    EXPECT_EQ(image.pixel(299, 299), 0xFF204060U);
    EXPECT_EQ(image.pixel(99, 100), 0xFFFFFFFFU);
}

TEST_F(PagePictureTest, TransparentPixelsShowThePage)
{
    const QString path = Pdf([](PageCanvas& page) {
        page.PaintPicture(Picture::FromImage(Solid(0x80000000)), 0, 0, 1000, 1000);
    });
    EXPECT_NEAR(qRed(ImageOfPdf(path).pixel(100, 100)), 127, 2);
}

TEST_F(PagePictureTest, HalfTransparentPixelsKeepTheirColour)
{
    const QString path = Pdf([](PageCanvas& page) {
        page.PaintPicture(Picture::FromImage(Solid(0x80FF0000)), 0, 0, 1000, 1000);
    });
    const QRgb seen = ImageOfPdf(path).pixel(100, 100);
    EXPECT_NEAR(qRed(seen), 255, 2);
    EXPECT_NEAR(qGreen(seen), 127, 2);
    EXPECT_NEAR(qBlue(seen), 127, 2);
}

TEST_F(PagePictureTest, EveryPixelOfAPngIsInThePdfOnEachCard)
{
    QImage pixels(37, 23, QImage::Format_RGB888);
    for (int y = 0; y < pixels.height(); ++y) {
        for (int x = 0; x < pixels.width(); ++x)
            pixels.setPixel(x, y, qRgb(x * 6, y * 11, (x * y) % 256));
    }
    const QString photo = m_folder.filePath(QStringLiteral("photo.png"));
    ASSERT_TRUE(pixels.save(photo));
    for (int card = 0; card < 2; ++card) {
        const QString path =
            Pdf([&](PageCanvas& page) { page.PaintPicture(LoadPicture(photo), 0, 0, 900, 900); });
        OutputOf(QStringLiteral("pdfimages"),
                 {QStringLiteral("-png"), path, m_folder.filePath(QStringLiteral("out"))});
        const QImage back(m_folder.filePath(QStringLiteral("out-000.png")));
        EXPECT_EQ(back.convertToFormat(QImage::Format_RGB888), pixels) << card;
    }
}

TEST_F(PagePictureTest, AGreyJpegStaysGrey)
{
    const QString photo = m_folder.filePath(QStringLiteral("photo.jpg"));
    QImage grey(40, 40, QImage::Format_Grayscale8);
    grey.fill(0x60);
    ASSERT_TRUE(grey.save(photo, nullptr, 95));
    const QString path =
        Pdf([&](PageCanvas& page) { page.PaintPicture(LoadPicture(photo), 0, 0, 1000, 1000); });
    const QString images = OutputOf(QStringLiteral("pdfimages"), {QStringLiteral("-list"), path});
    EXPECT_TRUE(images.contains(QStringLiteral("gray"))) << images.toStdString();
    EXPECT_TRUE(images.contains(QStringLiteral("jpeg"))) << images.toStdString();
    EXPECT_NEAR(qGray(ImageOfPdf(path).pixel(100, 100)), 0x60, 2);
}

TEST_F(PagePictureTest, APictureThatIsPaintedTwiceIsStoredOnce)
{
    const Picture picture = Picture::FromImage(Solid(0xFF204060, 300, 400));
    const auto sizeOf = [&](int times) {
        return QFile(Pdf([&](PageCanvas& page) {
                   for (int i = 0; i < times; ++i)
                       page.PaintPicture(picture, i * 1000, 0, 900, 900);
               }))
            .size();
    };
    EXPECT_LT(sizeOf(2) - sizeOf(1), 100);
}

TEST_F(PagePictureTest, AJpegStandsInThePdfAsItIs)
{
    const QString photo = m_folder.filePath(QStringLiteral("photo.jpg"));
    ASSERT_TRUE(Solid(0xFF306090, 300, 400).save(photo));
    const QString path =
        Pdf([&](PageCanvas& page) { page.PaintPicture(LoadPicture(photo), 200, 200, 900, 1200); });
    OutputOf(QStringLiteral("pdfimages"),
             {QStringLiteral("-all"), path, m_folder.filePath(QStringLiteral("out"))});
    QFile before(photo);
    QFile after(m_folder.filePath(QStringLiteral("out-000.jpg")));
    ASSERT_TRUE(before.open(QIODevice::ReadOnly));
    ASSERT_TRUE(after.open(QIODevice::ReadOnly));
    EXPECT_EQ(before.readAll(), after.readAll());
}

TEST_F(PagePictureTest, ATurnedJpegStandsUprightInThePdf)
{
    QImage halves = Solid(0xFFFFFFFF, 32, 16);
    for (int y = 0; y < 16; ++y) {
        for (int x = 0; x < 16; ++x)
            halves.setPixel(x, y, 0xFF000000);
    }
    const QString photo = m_folder.filePath(QStringLiteral("photo.jpg"));
    ASSERT_TRUE(halves.save(photo, nullptr, 95));
    QFile file(photo);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    const QByteArray jpeg = file.readAll();
    // Orientation 6: the camera stood on its right side, the left half belongs on top.
    const QByteArray exif = QByteArray::fromHex(
        "ffe100224578696600004d4d002a00000008000101120003000000010006000000000000");
    ASSERT_TRUE(file.seek(0));
    file.write(jpeg.first(2) + exif + jpeg.sliced(2));
    file.close();
    const QImage page = ImageOfPdf(Pdf([&](PageCanvas& canvas) {
        canvas.PaintPicture(LoadPicture(photo), 200, 200, 1000, 2000);
    }));
    EXPECT_LT(qGray(page.pixel(140, 80)), 10);
    EXPECT_GT(qGray(page.pixel(140, 400)), 245);
}

TEST_F(PagePictureTest, APictureMayBeFreedBeforeThePageIsFinished)
{
    const QString path = Pdf([](PageCanvas& page) {
        for (const QRgb color : {0xFF102030U, 0xFF405060U})
            page.PaintPicture(Picture::FromImage(Solid(color)), color == 0xFF102030U ? 0 : 1000, 0,
                              900, 900);
    });
    const QImage page = ImageOfPdf(path);
    EXPECT_EQ(page.pixel(90, 90), 0xFF102030U);
    EXPECT_EQ(page.pixel(290, 90), 0xFF405060U);
}

TEST_F(PagePictureTest, AnEmptyPictureIsInvalid)
{
    Pdf([](PageCanvas& page) {
        try {
            page.PaintPicture(Picture(), 0, 0, 100, 100);
            ADD_FAILURE() << "an empty picture was painted";
        } catch (const Failure& failure) {
            EXPECT_EQ(failure.Number(), FailureNumber::InvalidPicture);
        }
    });
}

} // namespace vantrel::test
