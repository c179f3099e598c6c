#include "platform/JpegMarkers.h"
#include <QBuffer>
#include <QImage>
#include <gtest/gtest.h>

namespace vantrel::test {

namespace {

QByteArray Jpeg(QImage::Format format)
{
    QImage image(32, 32, format);
    image.fill(Qt::darkCyan);
    QBuffer buffer;
    EXPECT_TRUE(buffer.open(QIODevice::WriteOnly));
    EXPECT_TRUE(image.save(&buffer, "JPG"));
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

TEST(JpegMarkers, WhatStandsBehindTheEndIsNoMatter)
{
    EXPECT_TRUE(ReadJpegMarkers(Jpeg(QImage::Format_RGB32).append("trailer")));
}

TEST(JpegMarkers, FillBytesMayStandBeforeAMarker)
{
    QByteArray jpeg = Jpeg(QImage::Format_RGB32);
    jpeg.insert(2, "\xFF\xFF\xFF");
    EXPECT_TRUE(ReadJpegMarkers(jpeg));
}

TEST(JpegMarkers, ASegmentThatIsTooShortToBeOneEndsTheWalk)
{
    EXPECT_FALSE(ReadJpegMarkers(QByteArray::fromHex("ffd8ffe00001ffd9")));
    EXPECT_FALSE(ReadJpegMarkers(QByteArray::fromHex("ffd8ffd9"))) << "no picture in it";
    EXPECT_FALSE(ReadJpegMarkers(QByteArray::fromHex("ffd8123456")));
}

} // namespace vantrel::test
