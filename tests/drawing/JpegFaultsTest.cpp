#include "base/Failure.h"
#include "drawing/JpegMarkers.h"
#include "drawing/Picture.h"
#include <QBuffer>
#include <QFile>
#include <QImageReader>
#include <QImageWriter>
#include <QLoggingCategory>
#include <QTemporaryDir>
#include <gtest/gtest.h>

// A photo is taken if and only if the whole of it can be decoded, although it is not decoded.

namespace vantrel::test {
namespace {

struct Kind
{
    const char* Name;
    QImage::Format Format;
    bool IsProgressive;
};

class JpegFaults : public ::testing::TestWithParam<Kind>
{
protected:
    // Of damaged pixels the reader with which the station is compared tells much.
    JpegFaults() { QLoggingCategory::setFilterRules(QStringLiteral("qt.gui.imageio*=false")); }
    ~JpegFaults() override { QLoggingCategory::setFilterRules(QString()); }

    static QByteArray Photo()
    {
        QImage image(40, 24, QImage::Format_RGB32);
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                image.setPixel(x, y, qRgb(x * 6, y * 10, (x * y) % 256));
        }
        QByteArray bytes;
        QBuffer buffer(&bytes);
        QImageWriter writer(&buffer, "jpeg");
        writer.setProgressiveScanWrite(GetParam().IsProgressive);
        writer.write(image.convertToFormat(GetParam().Format));
        return bytes;
    }
    /// What is taken if every photo is decoded.
    static bool CanBeDecoded(QByteArray file)
    {
        QBuffer buffer(&file);
        QImageReader reader(&buffer, "jpeg");
        reader.setAutoDetectImageFormat(false);
        const QSize size = reader.size();
        return ReadJpegMarkers(file) && qint64{size.width()} * size.height() <= 64 << 20 &&
               size.width() < 32768 && size.height() < 32768 && !reader.read().isNull();
    }
    bool IsTaken(const QByteArray& file)
    {
        QFile written(m_folder.filePath(QString::number(++m_files)));
        EXPECT_TRUE(written.open(QIODevice::WriteOnly));
        written.write(file);
        written.close();
        bool isTaken = true;
        try {
            LoadPicture(written.fileName());
        } catch (const Failure& failure) {
            EXPECT_EQ(failure.Number(), FailureNumber::InvalidPicture);
            isTaken = false;
        }
        written.remove();
        return isTaken;
    }
    void Compare(const QByteArray& file, const std::string& fault)
    {
        const bool isTaken = IsTaken(file);
        EXPECT_EQ(isTaken, CanBeDecoded(file)) << fault;
        ++(isTaken ? Taken : Refused);
    }

    int Taken = 0;
    int Refused = 0;

private:
    QTemporaryDir m_folder;
    int m_files = 0;
};

TEST_P(JpegFaults, APhotoCutAnywhereIsRefused)
{
    const QByteArray photo = Photo();
    EXPECT_TRUE(IsTaken(photo));
    for (qsizetype size = 0; size < photo.size(); ++size)
        EXPECT_FALSE(IsTaken(photo.first(size))) << size;
}

TEST_P(JpegFaults, AWrongByteIsRefusedIfItCannotBeDecoded)
{
    const QByteArray photo = Photo();
    for (qsizetype at = 0; at < photo.size(); ++at) {
        const auto byte = static_cast<unsigned char>(photo[at]);
        for (const int wrong : {0, 1, 0x7F, 0xFF, byte ^ 0x10, byte + 1}) {
            QByteArray file = photo;
            file[at] = static_cast<char>(wrong);
            Compare(file, GetParam().Name + std::string(" byte ") + std::to_string(at) + " as " +
                              std::to_string(wrong & 0xFF));
        }
    }
    EXPECT_GT(Taken, 100);
    EXPECT_GT(Refused, 100);
}

TEST_P(JpegFaults, ALostOrDoubledPartIsRefusedIfItCannotBeDecoded)
{
    const QByteArray photo = Photo();
    for (qsizetype at = 0; at < photo.size(); at += 3) {
        for (const qsizetype size : {1, 2, 17}) {
            const std::string where = GetParam().Name + std::string(" ") + std::to_string(at) +
                                      "+" + std::to_string(size);
            QByteArray less = photo;
            Compare(less.remove(at, size), where + " lost");
            QByteArray more = photo;
            Compare(more.insert(at, photo.sliced(at).left(size)), where + " doubled");
        }
    }
}

INSTANTIATE_TEST_SUITE_P(
    EveryKind, JpegFaults,
    ::testing::Values(Kind{"colour", QImage::Format_RGB32, false},
                      Kind{"grey", QImage::Format_Grayscale8, false},
                      Kind{"progressive", QImage::Format_RGB32, true},
                      Kind{"progressive grey", QImage::Format_Grayscale8, true}),
    [](const auto& kind) {
        return QString::fromLatin1(kind.param.Name).remove(QLatin1Char(' ')).toStdString();
    });

} // namespace
} // namespace vantrel::test
