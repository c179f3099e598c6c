#include "drawing/Picture.h"
#include "base/Failure.h"
#include "drawing/PageCanvas.h"
#include "drawing/PictureData.h"
#include "support/Print.h"
#include <QFile>
#include <QImageReader>
#include <QImageWriter>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace vantrel::test {

namespace {

constexpr auto SmallGif = "R0lGODlhAQABAIAAAAAAAP///yH5BAEAAAAALAAAAAABAAEAAAIBRAA7";

class PictureTest : public ::testing::Test
{
protected:
    QString Path(const QString& name) const { return m_folder.filePath(name); }

    /// Two halves, the left one in this colour and the right one white.
    static QImage Halves(int width, int height, QRgb left)
    {
        QImage image(width, height, QImage::Format_RGB32);
        image.fill(Qt::white);
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width / 2; ++x)
                image.setPixel(x, y, left);
        }
        return image;
    }

    QString Save(const QString& name, const QImage& image) const
    {
        EXPECT_TRUE(image.save(Path(name), nullptr, 95)) << name.toStdString();
        return Path(name);
    }

    static QByteArray BytesOf(const QString& path)
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }

    QString SaveBytes(const QString& name, const QByteArray& bytes) const
    {
        QFile file(Path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_EQ(file.write(bytes), bytes.size());
        return Path(name);
    }

    static int NumberOfFailure(const QString& path)
    {
        try {
            LoadPicture(path);
        } catch (const Failure& failure) {
            return failure.Number();
        }
        return 0;
    }

    static bool GoesIntoPdfAsItIs(const Picture& picture)
    {
        const unsigned char* data = nullptr;
        unsigned long size = 0;
        cairo_surface_get_mime_data(picture.Data()->Surface(), CAIRO_MIME_TYPE_JPEG, &data, &size);
        return data != nullptr && size > 0;
    }

    /// A JPEG with an EXIF block in which only the orientation stands.
    static QByteArray WithOrientation(const QByteArray& jpeg, char orientation)
    {
        QByteArray exif = QByteArray::fromHex("ffe10022"         // the block and its length
                                              "457869660000"     // Exif
                                              "4d4d002a00000008" // big endian, one directory at 8
                                              "0001"             // of one entry:
                                              "0112000300000001" // orientation, one short
                                              "00000000"         // its value
                                              "00000000");       // no further directory
        constexpr qsizetype valueAt = 29;
        exif[valueAt] = orientation;
        return jpeg.first(2) + exif + jpeg.sliced(2);
    }

private:
    QTemporaryDir m_folder;
};

} // namespace

TEST_F(PictureTest, FreshPictureHoldsNothing)
{
    const Picture picture;
    EXPECT_FALSE(picture.HasHandle());
    EXPECT_EQ(picture.WidthHundredths(), 0);
    EXPECT_EQ(picture.HeightHundredths(), 0);
    EXPECT_TRUE(picture.Image().isNull());
    EXPECT_EQ(picture, Picture());
}

TEST_F(PictureTest, EmptyPathGivesAnEmptyPicture)
{
    EXPECT_FALSE(LoadPicture(QString()).HasHandle());
}

TEST_F(PictureTest, ANullImageGivesAnEmptyPicture)
{
    EXPECT_FALSE(Picture::FromImage(QImage()).HasHandle());
}

TEST_F(PictureTest, EveryFormatThatCanBeWrittenIsRead)
{
    int formats = 0;
    for (const char* format : {"png", "jpg", "bmp", "ppm", "xpm"}) {
        ASSERT_TRUE(QImageWriter::supportedImageFormats().contains(format)) << format;
        const QString path =
            Save(QStringLiteral("photo.") + QLatin1StringView(format), Halves(40, 20, 0xFF0000FF));
        const QImage read = LoadPicture(path).Image();
        EXPECT_EQ(read.size(), QSize(40, 20)) << format;
        EXPECT_NEAR(qBlue(read.pixel(5, 10)), 255, 3) << format;
        EXPECT_NEAR(qRed(read.pixel(5, 10)), 0, 3) << format;
        EXPECT_NEAR(qRed(read.pixel(35, 10)), 255, 3) << format;
        ++formats;
    }
    EXPECT_EQ(formats, 5);
}

TEST_F(PictureTest, GifIsRead)
{
    const QByteArray gif =
        QByteArray::fromBase64("R0lGODlhAQABAIAAAAAAAP///yH5BAEAAAAALAAAAAABAAEAAAIBRAA7");
    EXPECT_EQ(LoadPicture(SaveBytes(QStringLiteral("dot.gif"), gif)).Image().size(), QSize(1, 1));
}

TEST_F(PictureTest, TheContentDecidesTheFormatNotTheName)
{
    const QByteArray png = BytesOf(Save(QStringLiteral("a.png"), Halves(10, 10, 0xFF112233)));
    EXPECT_TRUE(LoadPicture(SaveBytes(QStringLiteral("b.jpg"), png)).HasHandle());
}

TEST_F(PictureTest, NamesMayHaveBlanksAndUmlauts)
{
    const QString path = Save(QString::fromUtf8("Foto von Jürgen Groß.png"), Halves(10, 10, 0));
    EXPECT_TRUE(LoadPicture(path).HasHandle());
}

TEST_F(PictureTest, AMissingFileIsNotFound)
{
    EXPECT_EQ(NumberOfFailure(Path(QStringLiteral("nobody.png"))), FailureNumber::FileNotFound);
}

TEST_F(PictureTest, AFolderIsNoFile)
{
    EXPECT_EQ(NumberOfFailure(Path(QString())), FailureNumber::FileNotFound);
}

TEST_F(PictureTest, GarbageAndAnEmptyFileAreInvalid)
{
    EXPECT_EQ(NumberOfFailure(SaveBytes(QStringLiteral("a.jpg"), "no picture at all")),
              FailureNumber::InvalidPicture);
    EXPECT_EQ(NumberOfFailure(SaveBytes(QStringLiteral("b.png"), {})),
              FailureNumber::InvalidPicture);
}

TEST_F(PictureTest, ACutJpegIsInvalidWhereverItIsCut)
{
    const QByteArray whole = BytesOf(Save(QStringLiteral("a.jpg"), Halves(64, 64, 0xFF8040C0)));
    for (const qsizetype kept : {whole.size() / 4, whole.size() / 2, whole.size() - 2}) {
        EXPECT_EQ(NumberOfFailure(SaveBytes(QStringLiteral("cut.jpg"), whole.first(kept))),
                  FailureNumber::InvalidPicture)
            << kept;
    }
}

TEST_F(PictureTest, ACutPngIsInvalid)
{
    const QByteArray whole = BytesOf(Save(QStringLiteral("a.png"), Halves(64, 64, 0xFF8040C0)));
    EXPECT_EQ(
        NumberOfFailure(SaveBytes(QStringLiteral("cut.png"), whole.first(whole.size() * 6 / 10))),
        FailureNumber::InvalidPicture);
}

TEST_F(PictureTest, ACutBmpIsInvalid)
{
    const QByteArray whole = BytesOf(Save(QStringLiteral("a.bmp"), Halves(64, 64, 0xFF8040C0)));
    EXPECT_EQ(NumberOfFailure(SaveBytes(QStringLiteral("cut.bmp"), whole.first(whole.size() / 2))),
              FailureNumber::InvalidPicture);
}

TEST_F(PictureTest, ACutGifIsInvalid)
{
    const QByteArray whole = QByteArray::fromBase64(SmallGif);
    EXPECT_EQ(NumberOfFailure(SaveBytes(QStringLiteral("cut.gif"), whole.first(whole.size() - 6))),
              FailureNumber::InvalidPicture);
}

TEST_F(PictureTest, AnOversizedPictureIsRefusedBeforeItIsDecoded)
{
    // The head of a PPM of 900 megapixels; a decoder would ask for the memory first.
    EXPECT_EQ(NumberOfFailure(SaveBytes(QStringLiteral("a.ppm"), "P6\n30000 30000\n255\nxxx")),
              FailureNumber::InvalidPicture);
}

TEST_F(PictureTest, ItsOwnSizeIsInHundredthsOfAMillimetre)
{
    QImage image = Halves(300, 150, 0);
    image.setDotsPerMeterX(11811); // 300 dpi
    image.setDotsPerMeterY(5906);  // 150 dpi
    const Picture picture = LoadPicture(Save(QStringLiteral("a.png"), image));
    EXPECT_EQ(picture.WidthHundredths(), 2540);
    EXPECT_EQ(picture.HeightHundredths(), 2540);
}

TEST_F(PictureTest, APictureWithoutAResolutionHas96DotsToTheInch)
{
    const QByteArray ppm = "P6\n96 48\n255\n" + QByteArray(qsizetype{96} * 48 * 3, '\x40');
    const Picture picture = LoadPicture(SaveBytes(QStringLiteral("a.ppm"), ppm));
    EXPECT_EQ(picture.WidthHundredths(), 2540);
    EXPECT_EQ(picture.HeightHundredths(), 1270);
}

TEST_F(PictureTest, ACameraPictureHas96DotsToTheInchToo)
{
    EXPECT_EQ(Picture::FromImage(Halves(96, 192, 0)).HeightHundredths(), 5080);
}

TEST_F(PictureTest, AnUnchangedFileIsDecodedOnce)
{
    const QString path = Save(QStringLiteral("a.png"), Halves(20, 20, 0xFFAA0000));
    EXPECT_EQ(LoadPicture(path), LoadPicture(path));
}

TEST_F(PictureTest, AReplacedFileIsReadAnewAtOnce)
{
    // Two pictures of the same size in bytes, one right after the other.
    const QString path = Save(QStringLiteral("a.bmp"), Halves(20, 20, 0xFFAA0000));
    EXPECT_EQ(qRed(LoadPicture(path).Image().pixel(2, 2)), 0xAA);
    const QString next = Save(QStringLiteral("b.bmp"), Halves(20, 20, 0xFFBB0000));
    ASSERT_TRUE(QFile::remove(path));
    ASSERT_TRUE(QFile::rename(next, path));
    EXPECT_EQ(qRed(LoadPicture(path).Image().pixel(2, 2)), 0xBB);
}

TEST_F(PictureTest, ADeletedFileIsNotFoundThoughItWasReadBefore)
{
    const QString path = Save(QStringLiteral("a.png"), Halves(20, 20, 0));
    EXPECT_TRUE(LoadPicture(path).HasHandle());
    ASSERT_TRUE(QFile::remove(path));
    EXPECT_EQ(NumberOfFailure(path), FailureNumber::FileNotFound);
}

TEST_F(PictureTest, OnlyAJpegGoesIntoAPdfAsItIsHoweverItIsTurned)
{
    const QString jpeg = Save(QStringLiteral("a.jpg"), Halves(40, 20, 0xFF0000FF));
    EXPECT_TRUE(GoesIntoPdfAsItIs(LoadPicture(jpeg)));
    const QByteArray turned = WithOrientation(BytesOf(jpeg), 6);
    EXPECT_TRUE(GoesIntoPdfAsItIs(LoadPicture(SaveBytes(QStringLiteral("turned.jpg"), turned))));
    EXPECT_FALSE(
        GoesIntoPdfAsItIs(LoadPicture(Save(QStringLiteral("a.png"), Halves(40, 20, 0xFF0000FF)))));
}

TEST_F(PictureTest, AnyPhotoOfATurnedCameraIsShownAndDrawnUpright)
{
    QImage quarters = Halves(40, 20, 0xFF0000FF);
    for (int x = 0; x < 20; ++x) {
        for (int y = 0; y < 10; ++y)
            quarters.setPixel(x, y, 0xFF000000);
    }
    const QByteArray jpeg = BytesOf(Save(QStringLiteral("a.jpg"), quarters));
    for (char orientation = 1; orientation <= 8; ++orientation) {
        const QString path =
            SaveBytes(QStringLiteral("turned.jpg"), WithOrientation(jpeg, orientation));
        QImageReader reader(path);
        reader.setAutoTransform(true);
        const QImage expected = reader.read();
        const Picture picture = LoadPicture(path);
        ASSERT_EQ(picture.Data()->UprightSize(), expected.size()) << int{orientation};
        EXPECT_EQ(picture.Data()->StoredSize(), quarters.size()) << int{orientation};
        ASSERT_EQ(picture.Image().size(), expected.size()) << int{orientation};
        EXPECT_EQ(picture.WidthHundredths() > picture.HeightHundredths(),
                  expected.width() > expected.height());
        QImage drawn(expected.size(), QImage::Format_RGB32);
        drawn.fill(Qt::green);
        const auto page = PageCanvas::OnImage(drawn, 0.1);
        page->PaintPicture(picture, 0, 0, drawn.width() * 10.0, drawn.height() * 10.0);
        page->Finish();
        for (const double x : {0.2, 0.8}) {
            for (const double y : {0.2, 0.8}) {
                const QPoint at(static_cast<int>(x * expected.width()),
                                static_cast<int>(y * expected.height()));
                EXPECT_EQ(picture.Image().pixel(at), expected.pixel(at)) << int{orientation};
                EXPECT_NEAR(qRed(drawn.pixel(at)), qRed(expected.pixel(at)), 2) << int{orientation};
                EXPECT_NEAR(qBlue(drawn.pixel(at)), qBlue(expected.pixel(at)), 2)
                    << int{orientation};
            }
        }
    }
}

TEST_F(PictureTest, AnAlphaChannelWithoutTransparencyIsDropped)
{
    QImage image(10, 10, QImage::Format_ARGB32);
    image.fill(0xFF123456);
    EXPECT_EQ(Picture::FromImage(image).Image().format(), QImage::Format_RGB32);
    image.setPixel(3, 3, 0x80123456);
    EXPECT_EQ(Picture::FromImage(image).Image().format(), QImage::Format_ARGB32_Premultiplied);
}

} // namespace vantrel::test
