#include "drawing/JpegMarkers.h"
#include <QBuffer>
#include <QImage>
#include <QImageWriter>
#include <gtest/gtest.h>

namespace vantrel::test {

namespace {

QByteArray Jpeg(QImage::Format format, bool isProgressive = false)
{
    QImage image(32, 32, format);
    image.fill(Qt::darkCyan);
    QBuffer buffer;
    EXPECT_TRUE(buffer.open(QIODevice::WriteOnly));
    QImageWriter writer(&buffer, "JPG");
    writer.setProgressiveScanWrite(isProgressive);
    EXPECT_TRUE(writer.write(image));
    return buffer.data();
}

} // namespace

TEST(JpegMarkers, ComponentsAndCodingAreRead)
{
    const auto colour = ReadJpegMarkers(Jpeg(QImage::Format_RGB32));
    ASSERT_TRUE(colour.has_value());
    EXPECT_EQ(colour->Components, 3);
    EXPECT_EQ(colour->BitsPerSample, 8);
    EXPECT_TRUE(colour->IsCommonCoding);
    const auto grey = ReadJpegMarkers(Jpeg(QImage::Format_Grayscale8));
    ASSERT_TRUE(grey.has_value());
    EXPECT_EQ(grey->Components, 1);
}

TEST(JpegMarkers, EveryBeginningOfAFileIsNoWholeFile)
{
    const QByteArray whole = Jpeg(QImage::Format_RGB32);
    for (qsizetype kept = 0; kept < whole.size(); ++kept)
        EXPECT_FALSE(ReadJpegMarkers(QByteArrayView(whole).first(kept))) << kept;
}

TEST(JpegMarkers, BytesBehindTheEndDoNotMatter)
{
    EXPECT_TRUE(ReadJpegMarkers(Jpeg(QImage::Format_RGB32).append("trailer")));
}

TEST(JpegMarkers, FillBytesMayStandBeforeAMarker)
{
    QByteArray jpeg = Jpeg(QImage::Format_RGB32);
    jpeg.insert(2, "\xFF\xFF\xFF");
    EXPECT_TRUE(ReadJpegMarkers(jpeg));
}

TEST(JpegMarkers, ASegmentOfAnInvalidLengthEndsTheReading)
{
    EXPECT_FALSE(ReadJpegMarkers(QByteArray::fromHex("ffd8ffe00001ffd9")));
    EXPECT_FALSE(ReadJpegMarkers(QByteArray::fromHex("ffd8ffd9"))) << "no picture in it";
    EXPECT_FALSE(ReadJpegMarkers(QByteArray::fromHex("ffd8123456")));
}

TEST(JpegMarkers, ABareFileIsTheSameWithoutWhatStandsBehindItsEnd)
{
    for (const QImage::Format format : {QImage::Format_RGB32, QImage::Format_Grayscale8}) {
        for (const bool isProgressive : {false, true}) {
            const QByteArray jpeg = Jpeg(format, isProgressive);
            EXPECT_EQ(BareJpeg(jpeg), jpeg);
            EXPECT_EQ(BareJpeg(QByteArray(jpeg + "trailer")), jpeg);
        }
    }
}

TEST(JpegMarkers, CommentsAndFillBytesAreDroppedBeforeEachSegmentAndScan)
{
    const QByteArray jpeg = Jpeg(QImage::Format_RGB32, true);
    const QByteArray comment = QByteArray::fromHex("fffffffe0006416e6e61");
    QByteArray full;
    int comments = 0;
    for (qsizetype at = 0; at < jpeg.size(); ++at) {
        const auto next = at + 1 < jpeg.size() ? static_cast<unsigned char>(jpeg[at + 1]) : 0;
        // Tables, frames and scans begin so, and nothing within coded pixels or these tables does.
        if (jpeg[at] == '\xFF' && next >= 0xC0 && (next < 0xD0 || next > 0xD8)) {
            full += comment;
            ++comments;
        }
        full += jpeg[at];
    }
    EXPECT_GT(comments, 12) << "a picture of several scans";
    EXPECT_TRUE(ReadJpegMarkers(full));
    EXPECT_EQ(BareJpeg(full), jpeg);
}

TEST(JpegMarkers, HeadersThatAreTooShortAreDropped)
{
    const QByteArray jpeg = Jpeg(QImage::Format_RGB32);
    constexpr qsizetype behindHeader = 20;
    QByteArray odd = jpeg.first(2) + QByteArray::fromHex("ffe000074a46494600ffee000741646f6265");
    odd += jpeg.sliced(behindHeader);
    EXPECT_EQ(BareJpeg(odd), jpeg.first(2) + jpeg.sliced(behindHeader));
}

} // namespace vantrel::test
