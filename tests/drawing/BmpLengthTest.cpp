#include "drawing/BmpLength.h"
#include <QBuffer>
#include <QImage>
#include <gtest/gtest.h>
#include <limits>

namespace vantrel::test {

namespace {

QByteArray Bmp(QSize size, QImage::Format format)
{
    QImage image(size, format);
    image.fill(0);
    QBuffer buffer;
    EXPECT_TRUE(buffer.open(QIODevice::WriteOnly));
    EXPECT_TRUE(image.save(&buffer, "BMP"));
    return buffer.data();
}

} // namespace

TEST(BmpLength, IsThatOfAWholeFile)
{
    for (const QImage::Format format :
         {QImage::Format_RGB32, QImage::Format_Indexed8, QImage::Format_Mono}) {
        const QByteArray whole = Bmp({37, 11}, format);
        EXPECT_EQ(LeastBmpLength(whole), whole.size()) << format;
    }
}

TEST(BmpLength, LinesFromTopToBottomAreAsLong)
{
    QByteArray upside = Bmp({37, 11}, QImage::Format_RGB32);
    upside.replace(22, 4, QByteArray::fromHex("f5ffffff")); // -11
    EXPECT_EQ(LeastBmpLength(upside), upside.size());
}

TEST(BmpLength, TheOldHeaderIsRead)
{
    // 3 x 2 pixels of 24 bits: two lines of 12 bytes behind 26 bytes of headers.
    const QByteArray old = QByteArray::fromHex("424d320000000000"
                                               "00001a0000000c00"
                                               "0000030002000100"
                                               "1800") +
                           QByteArray(24, '\0');
    EXPECT_EQ(LeastBmpLength(old), old.size());
}

TEST(BmpLength, SidesThatNoFileCanHoldAreBeyondEveryLength)
{
    QByteArray enormous = Bmp({37, 11}, QImage::Format_RGB32);
    enormous.replace(18, 4, QByteArray::fromHex("ffffff7f")); // width 2147483647
    enormous.replace(22, 4, QByteArray::fromHex("ffffff7f")); // height 2147483647
    enormous.replace(28, 2, QByteArray::fromHex("ffff"));     // 65535 bits a pixel
    EXPECT_EQ(LeastBmpLength(enormous), std::numeric_limits<qint64>::max());
    EXPECT_FALSE(IsWholeBmp(enormous));
}

TEST(BmpLength, CompressedAndOtherFilesHaveNone)
{
    QByteArray compressed = Bmp({37, 11}, QImage::Format_RGB32);
    compressed[30] = 1;
    EXPECT_EQ(LeastBmpLength(compressed), std::nullopt);
    EXPECT_EQ(LeastBmpLength("BM"), std::nullopt);
    EXPECT_EQ(LeastBmpLength(QByteArray(34, 'x')), std::nullopt);
}

} // namespace vantrel::test
