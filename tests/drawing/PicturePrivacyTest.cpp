#include "PageTest.h"
#include "drawing/CairoCanvas.h"
#include "support/PdfReading.h"
#include "support/Print.h"
#include <QBuffer>
#include <QColorSpace>
#include <vector>

// Data in a photo's file besides the photo, such as who was where, must not come onto a card.

namespace vantrel::test {

namespace {

constexpr double CardWidth = 153;
constexpr double CardHeight = 243;
/// A mark in all data that must not come onto a card.
constexpr auto Remark = "Remark of Anna, 12 Mill Lane";

QByteArray Segment(int marker, const QByteArray& content)
{
    const auto length = static_cast<int>(content.size()) + 2;
    QByteArray segment;
    for (const int byte : {0xFF, marker, length / 256, length % 256})
        segment += static_cast<char>(byte);
    return segment + content;
}

/// The camera stood on its right side: the left half belongs on top.
QByteArray ExifWithRemark()
{
    return QByteArray::fromHex("4578696600004d4d002a00000008000101120003000000010006000000000000") +
           Remark;
}

QByteArray ColourProfile()
{
    return QByteArray("ICC_PROFILE\0\1\1", 14) + QColorSpace(QColorSpace::SRgb).iccProfile();
}

/// The left half is black.
QByteArray Photo()
{
    QImage halves(32, 16, QImage::Format_RGB32);
    halves.fill(Qt::white);
    for (int y = 0; y < 16; ++y) {
        for (int x = 0; x < 16; ++x)
            halves.setPixel(x, y, 0xFF000000);
    }
    QBuffer buffer;
    EXPECT_TRUE(buffer.open(QIODevice::WriteOnly));
    EXPECT_TRUE(halves.save(&buffer, "JPG", 95));
    return buffer.data();
}

/// With all that cameras and picture editors write around a photo.
QByteArray PhotoWithRemarks()
{
    constexpr int comment = 0xFE;
    constexpr int firstApplication = 0xE0;
    const QByteArray plain = Photo();
    constexpr qsizetype behindJfif = 20;
    QByteArray full = plain.first(2);
    // Six bytes are a small picture of two pixels; the rest has no meaning.
    full +=
        Segment(firstApplication, QByteArray("JFIF\0\1\1\0\0\1\0\1\2\1", 14) + "pixels" + Remark);
    full += Segment(firstApplication, QByteArray("JFXX\0\x10", 6) + Remark);
    full += Segment(firstApplication + 1, ExifWithRemark());
    full +=
        Segment(firstApplication + 1, QByteArray("http://ns.adobe.com/xap/1.0/\0", 29) + Remark);
    full += Segment(firstApplication + 2, ColourProfile());
    full += Segment(firstApplication + 2, QByteArray("FPXR\0", 5) + Remark);
    for (int application = firstApplication + 3; application <= firstApplication + 15;
         ++application)
        full += Segment(application, Remark);
    full += Segment(firstApplication + 14, QByteArray("Adobe\0\x64\0\0\0\0\1", 12) + Remark);
    full += Segment(comment, Remark);
    return full + plain.sliced(behindJfif) + Remark;
}

class PicturePrivacyTest : public PageTest
{
protected:
    QString Save(const QByteArray& bytes)
    {
        QString path = m_folder.filePath(QStringLiteral("photo.jpg"));
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_EQ(file.write(bytes), bytes.size());
        return path;
    }

    /// The same photo by the station's own writer of pages, and by cairo.
    std::vector<QString> CardsWith(const QByteArray& photo)
    {
        const Picture picture = LoadPicture(Save(photo));
        const QString own =
            Pdf([&](PageCanvas& page) { page.PaintPicture(picture, 200, 200, 1000, 2000); });
        QString cairo = m_folder.filePath(QStringLiteral("cairo.pdf"));
        QFile file(cairo);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        const auto page = CairoCanvas::OnPdf(
            CardWidth, CardHeight, [&file](const char* bytes, std::size_t count) {
                return file.write(bytes, static_cast<qint64>(count)) == static_cast<qint64>(count);
            });
        page->PaintPicture(picture, 200, 200, 1000, 2000);
        page->Finish();
        return {own, cairo};
    }

    /// The photo as it stands in a card.
    QByteArray PhotoOf(const QString& card)
    {
        OutputOf(QStringLiteral("pdfimages"),
                 {QStringLiteral("-all"), card, m_folder.filePath(QStringLiteral("out"))});
        return BytesOf(m_folder.filePath(QStringLiteral("out-000.jpg")));
    }

    static QByteArray BytesOf(const QString& path)
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
        return file.readAll();
    }
};

} // namespace

TEST_F(PicturePrivacyTest, NoRemarkInAPhotosFileComesOntoACard)
{
    const QByteArray photo = PhotoWithRemarks();
    ASSERT_EQ(photo.count(Remark), 21);
    for (const QString& card : CardsWith(photo)) {
        EXPECT_FALSE(BytesOf(card).contains("Remark")) << card.toStdString();
        EXPECT_FALSE(PhotoOf(card).contains("pixels")) << card.toStdString();
        EXPECT_FALSE(PhotoOf(card).contains("Exif")) << card.toStdString();
    }
}

TEST_F(PicturePrivacyTest, TheColourInformationOfAPhotoStays)
{
    for (const QString& card : CardsWith(PhotoWithRemarks())) {
        const QByteArray photo = PhotoOf(card);
        EXPECT_TRUE(photo.contains(ColourProfile())) << card.toStdString();
        EXPECT_TRUE(photo.contains(QByteArray("\xFF\xEE\0\x0E"
                                              "Adobe",
                                              9)))
            << card.toStdString();
        EXPECT_TRUE(photo.contains(QByteArray("\xFF\xE0\0\x10JFIF", 8))) << card.toStdString();
    }
}

TEST_F(PicturePrivacyTest, APhotoWithRemarksStillStandsUpright)
{
    for (const QString& card : CardsWith(PhotoWithRemarks())) {
        const QImage page = ImageOfPdf(card);
        EXPECT_LT(qGray(page.pixel(140, 80)), 10) << card.toStdString();
        EXPECT_GT(qGray(page.pixel(140, 400)), 245) << card.toStdString();
    }
}

TEST_F(PicturePrivacyTest, APhotoWithoutRemarksIsTheSameByteForByte)
{
    for (const QString& card : CardsWith(Photo()))
        EXPECT_EQ(PhotoOf(card), Photo()) << card.toStdString();
}

} // namespace vantrel::test
