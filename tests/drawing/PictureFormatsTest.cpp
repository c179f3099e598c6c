#include "drawing/PictureFormats.h"
#include "base/Failure.h"
#include "drawing/Picture.h"
#include "drawing/WholeTiff.h"
#include "support/Print.h"
#include "support/SamplePictures.h"
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QSet>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace vantrel::test {

namespace {

class PictureFormatsTest : public ::testing::Test
{
protected:
    QString Save(const QString& name, const QByteArray& bytes) const
    {
        QFile file(m_folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_EQ(file.write(bytes), bytes.size());
        return file.fileName();
    }

    /// @return the failure's number, 0 for a picture
    static int NumberOfFailure(const QString& path)
    {
        try {
            LoadPicture(path);
        } catch (const Failure& failure) {
            return failure.Number();
        }
        return 0;
    }

    /// Fails the test for each beginning of the file that is accepted as a picture.
    void ExpectNoBeginningIsAPicture(const char* kind, const QByteArray& whole) const
    {
        EXPECT_EQ(NumberOfFailure(Save(QStringLiteral("whole"), whole)), 0) << kind;
        // A line end behind a text's last sign is no part of the picture.
        const bool isText = whole.endsWith(";\n") || whole.startsWith("P1");
        int taken = 0;
        for (qsizetype kept = whole.size() - (isText ? 2 : 1); kept >= 0; --kept) {
            const QString path = Save(QStringLiteral("cut %1").arg(kept), whole.first(kept));
            if (NumberOfFailure(path) != FailureNumber::InvalidPicture && ++taken == 1)
                ADD_FAILURE() << kind << " of " << whole.size() << " bytes, cut at " << kept;
            EXPECT_TRUE(QFile::remove(path));
        }
        EXPECT_EQ(taken, 0) << kind;
    }

private:
    QTemporaryDir m_folder;
};

} // namespace

TEST_F(PictureFormatsTest, EachFormatOfTheTableIsReadWhateverItsFileIsCalled)
{
    QSet<QByteArray> seen;
    for (const SamplePicture& sample : SamplePictures()) {
        const PictureFormat* format = FindPictureFormat(sample.Bytes.first(PictureHeadBytes));
        ASSERT_NE(format, nullptr) << sample.Kind;
        EXPECT_STREQ(format->Name, sample.Format) << sample.Kind;
        seen.insert(format->Name);
        for (const char* name : {"photo.svg", "photo.jpg", "photo"}) {
            const QString path = Save(QLatin1StringView(name), sample.Bytes);
            ASSERT_EQ(NumberOfFailure(path), 0) << sample.Kind << ' ' << name;
            EXPECT_EQ(LoadPicture(path).Image().size(), QSize(SampleWidth, SampleHeight))
                << sample.Kind;
            EXPECT_TRUE(QFile::remove(path));
        }
    }
    for (const PictureFormat& format : PictureFormats())
        EXPECT_TRUE(seen.contains(format.Name)) << format.Name;
}

TEST_F(PictureFormatsTest, APictureCutAtAnyByteIsNoPicture)
{
    for (const SamplePicture& sample : SamplePictures())
        ExpectNoBeginningIsAPicture(sample.Kind, sample.Bytes);
}

TEST_F(PictureFormatsTest, AGifOfSeveralImagesCutAtAnyByteIsNoPicture)
{
    ExpectNoBeginningIsAPicture("GIF of several images", GifOfSeveralImages());
}

TEST_F(PictureFormatsTest, BytesBehindTheEndDoNotMatter)
{
    for (const SamplePicture& sample : SamplePictures())
        EXPECT_EQ(NumberOfFailure(Save(QString::fromLatin1(sample.Kind), sample.Bytes + "behind")),
                  0)
            << sample.Kind;
}

TEST_F(PictureFormatsTest, ADrawingIsNoPictureWhateverItIsCalled)
{
    QImage secret(40, 40, QImage::Format_RGB32);
    secret.fill(Qt::red);
    const QString other = Save(QStringLiteral("other.png"), {});
    ASSERT_TRUE(secret.save(other));
    const QByteArray drawing = DrawingThatLinks(other);
    for (const QByteArray& content :
         {drawing, drawing.sliced(drawing.indexOf("<svg")), QByteArray("\xEF\xBB\xBF" + drawing),
          QByteArray("\n" + drawing)}) {
        for (const char* name : {"a.svg", "a.png", "a.jpg", "a.gif", "a"})
            EXPECT_EQ(NumberOfFailure(Save(QLatin1StringView(name), content)),
                      FailureNumber::InvalidPicture)
                << name;
    }
}

TEST_F(PictureFormatsTest, APackedDrawingIsNoPicture)
{
    const QString drawing =
        Save(QStringLiteral("a.svg"), DrawingThatLinks(QStringLiteral("b.png")));
    for (const char* ending : {".svgz", ".svg.gz", ".png", ".gz"}) {
        QProcess gzip;
        gzip.setStandardOutputFile(drawing + QLatin1StringView(ending));
        gzip.start(QStringLiteral("gzip"), {QStringLiteral("-c"), drawing});
        ASSERT_TRUE(gzip.waitForFinished());
        EXPECT_EQ(NumberOfFailure(drawing + QLatin1StringView(ending)),
                  FailureNumber::InvalidPicture)
            << ending;
    }
}

TEST_F(PictureFormatsTest, ATiffThatNamesTheSameBytesAgainAndAgainIsNotWhole)
{
    const auto little = [](quint32 number, int bytes) {
        QByteArray written;
        for (int i = 0; i < bytes; ++i)
            written += static_cast<char>(number >> (8 * i));
        return written;
    };
    constexpr quint32 count = 1000;
    constexpr quint32 numbersAt = 8 + 2 + 12 + 4;
    constexpr quint32 directoriesAt = numbersAt + 4 * count;
    // One directory refers to a thousand more, each of 256 entries and begun two bytes further on.
    QByteArray file = QByteArray("II*\0", 4) + little(8, 4) + little(1, 2);
    file += little(330, 2) + little(4, 2) + little(count, 4) + little(numbersAt, 4) + little(0, 4);
    for (quint32 i = 0; i < count; ++i)
        file += little(directoriesAt + 2 * i, 4);
    for (quint32 i = 0; i < count; ++i)
        file += little(256, 2);
    file += QByteArray(4000, '\0');
    EXPECT_FALSE(IsWholeTiff(file));
}

TEST_F(PictureFormatsTest, ATiffWhoseDirectoriesGoInACircleComesToAnEnd)
{
    EXPECT_TRUE(IsWholeTiff(QByteArray::fromHex("49492a00080000000100"
                                                "00010300010000000100000008000000")));
}

} // namespace vantrel::test
