#include "support/SamplePictures.h"
#include <QBuffer>
#include <QImage>
#include <QImageWriter>
#include <gtest/gtest.h>

namespace vantrel::test {

namespace {

QImage Pixels(QImage::Format format)
{
    QImage image(SampleWidth, SampleHeight, QImage::Format_RGB32);
    for (int y = 0; y < SampleHeight; ++y) {
        for (int x = 0; x < SampleWidth; ++x)
            image.setPixel(x, y, qRgb(x * 11, y * 19, (x * y) % 256));
    }
    return image.convertToFormat(format);
}

QByteArray Written(const char* format, QImage::Format pixels = QImage::Format_RGB32,
                   int compression = -1, const QByteArray& subType = {})
{
    QBuffer buffer;
    EXPECT_TRUE(buffer.open(QIODevice::WriteOnly));
    QImageWriter writer(&buffer, format);
    writer.setCompression(compression);
    writer.setSubType(subType);
    EXPECT_TRUE(writer.write(Pixels(pixels))) << format;
    return buffer.data();
}

QByteArray Little(int number, int bytes)
{
    QByteArray written;
    for (; bytes > 0; --bytes) {
        written += static_cast<char>(number);
        number >>= 8;
    }
    return written;
}

/// One image of a GIF whose codes are one byte each: with at most 128 colours, and reset so often
/// that the codes never grow.
QByteArray GifImage()
{
    constexpr int beginAnew = 128;
    constexpr int endCode = 129;
    constexpr int codesUntilTheyGrow = 100;
    QByteArray codes;
    for (int pixel = 0; pixel < SampleWidth * SampleHeight; ++pixel) {
        if (pixel % codesUntilTheyGrow == 0)
            codes += static_cast<char>(beginAnew);
        codes += static_cast<char>(pixel % 16);
    }
    codes += static_cast<char>(endCode);
    QByteArray image = "," + Little(0, 4) + Little(SampleWidth, 2) + Little(SampleHeight, 2) + '\0';
    image += '\7';
    constexpr qsizetype blockBytes = 90;
    for (qsizetype at = 0; at < codes.size(); at += blockBytes) {
        const QByteArray block = codes.mid(at, blockBytes);
        image += static_cast<char>(block.size()) + block;
    }
    return image + '\0';
}

QByteArray GifHead()
{
    QByteArray head =
        "GIF89a" + Little(SampleWidth, 2) + Little(SampleHeight, 2) + QByteArray::fromHex("f60000");
    for (int colour = 0; colour < 128; ++colour)
        head += QByteArray(3, static_cast<char>(colour * 2));
    // A pause and a comment, as picture editors write them.
    return head + QByteArray::fromHex("21f9040000000000") + QByteArray("!\xFE\5Hello\0", 9);
}

/// A bitmap of 16 colours at most, its lines packed in this way: whole lines of one colour, and a
/// row of single pixels.
QByteArray PackedBmp(int bitsPerPixel, int packing)
{
    QByteArray lines;
    for (int y = 0; y + 1 < SampleHeight; ++y)
        lines += static_cast<char>(SampleWidth) + QByteArray(1, static_cast<char>(y)) +
                 QByteArray(2, '\0');
    lines += QByteArray("\0\5", 2) +
             (bitsPerPixel == 8 ? QByteArray("\1\2\3\4\5\0", 6) : QByteArray("\x12\x34\x50\0", 4));
    lines += QByteArray("\xF\1\0\0\0\1", 6);
    const int pixelsAt = 14 + 40 + 16 * 4;
    QByteArray file = "BM" + Little(pixelsAt + static_cast<int>(lines.size()), 4) + Little(0, 4) +
                      Little(pixelsAt, 4);
    file += Little(40, 4) + Little(SampleWidth, 4) + Little(SampleHeight, 4) + Little(1, 2) +
            Little(bitsPerPixel, 2) + Little(packing, 4) +
            Little(static_cast<int>(lines.size()), 4) + Little(0, 8) + Little(16, 4) + Little(0, 4);
    for (int colour = 0; colour < 16; ++colour)
        file += Little(colour * 0x0F0A05, 4);
    return file + lines;
}

/// A bitmap of 32 bits whose colours are given by masks.
QByteArray MaskedBmp()
{
    const int pixelsAt = 14 + 40 + 12;
    QByteArray file = "BM" + Little(0, 8) + Little(pixelsAt, 4);
    file += Little(40, 4) + Little(SampleWidth, 4) + Little(SampleHeight, 4) + Little(1, 2) +
            Little(32, 2) + Little(3, 4) + Little(0, 20);
    file += Little(0xFF0000, 4) + Little(0xFF00, 4) + Little(0xFF, 4);
    return file + QByteArray(qsizetype{SampleWidth} * SampleHeight * 4, '\x55');
}

/// A portable file of numbers as text.
QByteArray Numbers(char kind, int samplesOfAPixel, const QByteArray& number)
{
    QByteArray file = QByteArray("P") + kind + "\n# Hello\n" + QByteArray::number(SampleWidth) +
                      " " + QByteArray::number(SampleHeight) + "\n" + (kind == '1' ? "" : "255\n");
    for (int i = 0; i < SampleWidth * SampleHeight * samplesOfAPixel; ++i)
        file += number + (i % 10 == 9 ? '\n' : ' ');
    return file;
}

} // namespace

std::vector<SamplePicture> SamplePictures()
{
    constexpr auto bits = QImage::Format_Mono;
    constexpr auto grey = QImage::Format_Grayscale8;
    constexpr auto table = QImage::Format_Indexed8;
    constexpr auto clear = QImage::Format_ARGB32;
    return {
        {"PNG", "png", Written("png")},
        {"transparent PNG", "png", Written("png", clear)},
        {"JPEG", "jpeg", Written("jpg")},
        {"grey JPEG", "jpeg", Written("jpg", grey)},
        {"BMP", "bmp", Written("bmp")},
        {"BMP of 256 colours", "bmp", Written("bmp", table)},
        {"BMP packed by bytes", "bmp", PackedBmp(8, 1)},
        {"BMP packed by half bytes", "bmp", PackedBmp(4, 2)},
        {"BMP with masks", "bmp", MaskedBmp()},
        {"GIF", "gif", GifHead() + GifImage() + ';'},
        {"TIFF", "tiff", Written("tiff", clear, 0)},
        {"packed TIFF", "tiff", Written("tiff", QImage::Format_RGB32, 1)},
        {"grey TIFF", "tiff", Written("tiff", grey)},
        {"WebP", "webp", Written("webp")},
        {"transparent WebP", "webp", Written("webp", clear)},
        {"icon", "ico", Written("ico", clear)},
        {"PBM", "ppm", Written("pbm", bits)},
        {"PGM", "ppm", Written("pgm", grey)},
        {"PPM", "ppm", Written("ppm")},
        {"PBM as text", "ppm", Numbers('1', 1, "1")},
        {"PGM as text", "ppm", Numbers('2', 1, "100")},
        {"PPM as text", "ppm", Numbers('3', 3, "27")},
        {"XPM", "xpm", Written("xpm")},
        {"XBM", "xbm", Written("xbm", bits)},
        {"XBM with a remark", "xbm", "/* Hello */\n" + Written("xbm", bits)},
    };
}

QByteArray GifOfSeveralImages()
{
    return GifHead() + GifImage() + GifImage() + GifImage() + ';';
}

QByteArray DrawingThatLinks(const QString& path)
{
    return R"(<?xml version="1.0"?>
<svg xmlns="http://www.w3.org/2000/svg" xmlns:xlink="http://www.w3.org/1999/xlink" width="40" height="40">
<image x="0" y="0" width="40" height="40" xlink:href=")" +
           path.toUtf8() + R"("/>
</svg>
)";
}

} // namespace vantrel::test
