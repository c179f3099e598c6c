#include "card/CardDocument.h"
#include "card/RecordPicture.h"
#include "support/Memory.h"
#include "support/SamplePictures.h"
#include <QBuffer>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <unistd.h>

// The images of a page that show what a record names.

namespace vantrel::test {
namespace {

class RecordPicturesOnPage : public ::testing::Test
{
protected:
    RecordPicturesOnPage()
    {
        Document.Load();
        Source.Folder = m_folder.path();
    }
    CardObject& AddImage(const QString& path)
    {
        CardObject& image = Document.Add(Family::img_LXV);
        image.Tag = path;
        return image;
    }
    void Put(const QString& name, const QByteArray& bytes) const
    {
        QFile file(m_folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    void Fill(const QStringList& texts)
    {
        FieldValues values;
        for (const QString& text : texts)
            values.Add(text);
        FillRecordPictures(Document, values, Source);
    }
    QString PathOf(const QString& name) const { return m_folder.filePath(name); }

    CardDocument Document;
    PictureSource Source;

private:
    QTemporaryDir m_folder;
};

TEST_F(RecordPicturesOnPage, EachImageTakesItsOwnAndOthersStayAsTheyAre)
{
    Put(QStringLiteral("a.png"), SamplePictures()[0].Bytes);
    CardObject& named = AddImage(QStringLiteral("{1}.png"));
    CardObject& missing = AddImage(QStringLiteral("{2}.png"));
    CardObject& plain = AddImage(PathOf(QStringLiteral("a.png")));
    CardObject& camera = AddImage(QString(Marker::Camera));
    Fill({QStringLiteral("a"), QStringLiteral("b")});
    EXPECT_TRUE(named.Picture.HasHandle());
    EXPECT_EQ(named.PictureProblem, QString());
    EXPECT_FALSE(missing.Picture.HasHandle());
    EXPECT_EQ(missing.PictureProblem, QStringLiteral("\"b.png\" is not in the folder"));
    for (const CardObject* other : {&plain, &camera}) {
        EXPECT_FALSE(other->IsRecordPicture);
        EXPECT_EQ(other->PictureProblem, QString());
    }
    // The next record takes both away or brings them.
    Fill({QStringLiteral("b"), QStringLiteral("a")});
    EXPECT_FALSE(named.Picture.HasHandle());
    EXPECT_TRUE(missing.Picture.HasHandle());
    EXPECT_EQ(missing.PictureProblem, QString());
}

TEST_F(RecordPicturesOnPage, AValueThatTheRecordLacksIsTold)
{
    CardObject& image = AddImage(QStringLiteral("{3}.png"));
    Fill({QStringLiteral("a")});
    EXPECT_EQ(image.PictureProblem, QStringLiteral("The record has no value for \"{3}\""));
}

TEST_F(RecordPicturesOnPage, ColumnsNameValues)
{
    Put(QStringLiteral("a.png"), SamplePictures()[0].Bytes);
    Source.Columns = {QStringLiteral("Name"), QStringLiteral("Photo")};
    CardObject& image = AddImage(QStringLiteral("{Photo}.png"));
    Fill({QStringLiteral("x"), QStringLiteral("a")});
    EXPECT_TRUE(image.Picture.HasHandle());
}

TEST_F(RecordPicturesOnPage, WithoutAFolderOrAValueNothingChanges)
{
    CardObject& image = AddImage(QStringLiteral("{1}.png"));
    Fill({});
    EXPECT_FALSE(image.IsRecordPicture);
    Source.Folder.clear();
    Fill({QStringLiteral("a")});
    EXPECT_FALSE(image.IsRecordPicture);
}

TEST_F(RecordPicturesOnPage, APathIntoTheFolderCountsFromThere)
{
    const PictureSource source{QStringLiteral("/srv/{1}/photos"), {}};
    EXPECT_EQ(source.NameIn(QStringLiteral("/srv/{1}/photos/{1}.png")), QStringLiteral("{1}.png"));
    EXPECT_EQ(source.NameIn(QStringLiteral("/srv/{1}/photos2/{1}.png")),
              QStringLiteral("/srv/{1}/photos2/{1}.png"));
    EXPECT_TRUE(source.IsNamedByRecord(QStringLiteral("/srv/{1}/photos/{1}.png")));
    EXPECT_FALSE(source.IsNamedByRecord(QStringLiteral("/srv/{1}/photos/a.png")));
    const PictureSource root{QStringLiteral("/"), {}};
    EXPECT_EQ(root.NameIn(QStringLiteral("/{1}.png")), QStringLiteral("{1}.png"));
}

TEST_F(RecordPicturesOnPage, AValueOfMegabytesInManyPlacesTakesNoMemory)
{
    QString path;
    for (int i = 0; i < 60; ++i)
        path += QStringLiteral("{1}");
    CardObject& image = AddImage(path);
    const QString value(qsizetype{16} << 20, QLatin1Char('x'));
    const PeakMemory memory;
    Fill({value});
    EXPECT_LT(memory.Grown(), 64 * MiB);
    EXPECT_LT(image.PictureProblem.size(), 400);
}

TEST_F(RecordPicturesOnPage, ThousandsOfDifferentPhotosTakeTheMemoryOfAFew)
{
    QImage photo(300, 400, QImage::Format_RGB32);
    for (int y = 0; y < 400; ++y) {
        for (int x = 0; x < 300; ++x)
            photo.setPixel(x, y, static_cast<QRgb>(x * y * 2654435761U));
    }
    ASSERT_TRUE(photo.save(PathOf(QStringLiteral("0.jpg"))));
    LimitPictureCache(8 * 1024);
    AddImage(QStringLiteral("{1}.jpg"));
    Fill({QStringLiteral("0")});
    const PeakMemory memory;
    for (int number = 1; number <= 3000; ++number) {
        // Another file for the cache, without another copy on the disk.
        const QString path = PathOf(QString::number(number) + QStringLiteral(".jpg"));
        ASSERT_EQ(::link(QFile::encodeName(PathOf(QStringLiteral("0.jpg"))).constData(),
                         QFile::encodeName(path).constData()),
                  0);
        Fill({QString::number(number)});
        ASSERT_TRUE(Document.Find(Family::img_LXV, 1)->Picture.HasHandle());
        ASSERT_TRUE(QFile::remove(path));
    }
    EXPECT_LT(memory.Grown(), 24 * MiB + SanitizerRoom);
    LimitPictureCache(256 * 1024);
}

} // namespace
} // namespace vantrel::test
