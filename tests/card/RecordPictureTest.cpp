#include "card/RecordPicture.h"
#include "base/Failure.h"
#include "support/FailureOf.h"
#include "support/Print.h"
#include "support/SamplePictures.h"
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace vantrel::test {

namespace {

QString Text(const char* text)
{
    return QString::fromUtf8(text);
}

FieldValues Values(const std::vector<const char*>& texts)
{
    FieldValues values;
    for (const char* text : texts)
        values.Add(Text(text));
    return values;
}

const QStringList Columns{QStringLiteral("Name"), QStringLiteral("photo no"), QStringLiteral("1")};

QString Filled(const char* path, const std::vector<const char*>& values,
               const QStringList& columns = {})
{
    return FilledPath(Text(path), Values(values), columns);
}

class RecordPictureTest : public ::testing::Test
{
protected:
    void Put(const QString& name, const QByteArray& bytes) const
    {
        QFile file(m_folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    QString ReasonFor(const QString& name) const
    {
        try {
            SafePictureIn(m_folder.path(), name);
        } catch (const Failure& failure) {
            return failure.Text();
        }
        return {};
    }

    QTemporaryDir m_folder;
};

} // namespace

TEST_F(RecordPictureTest, NumbersStandForValues)
{
    EXPECT_EQ(Filled("{1}.jpg", {"anna"}), Text("anna.jpg"));
    EXPECT_EQ(Filled("{2}/{1}-{2}.png", {"a", "b"}), Text("b/a-b.png"));
    EXPECT_EQ(Filled("{10}", {"1", "2", "3", "4", "5", "6", "7", "8", "9", "ten"}), Text("ten"));
    EXPECT_EQ(Filled("{1}", {""}), Text(""));
}

TEST_F(RecordPictureTest, NamesOfColumnsStandForValues)
{
    EXPECT_EQ(Filled("{Name}-{photo no}.jpg", {"anna", "7", "x"}, Columns), Text("anna-7.jpg"));
    // A number is that of a value, also where a column is named so.
    EXPECT_EQ(Filled("{1}", {"anna", "7", "x"}, Columns), Text("anna"));
}

TEST_F(RecordPictureTest, OtherBracesAreAPartOfThePath)
{
    for (const char* path : {"{}", "{0}", "{01}", "{-1}", "{ 1}", "{1", "1}", "{Name}", "{name}",
                             "a{b}c", "plain.jpg"}) {
        EXPECT_FALSE(HasPlaceholder(Text(path), {})) << path;
        EXPECT_EQ(Filled(path, {"anna"}), Text(path));
    }
    EXPECT_FALSE(HasPlaceholder(Text("{name}"), Columns));
    EXPECT_TRUE(HasPlaceholder(Text("{Name}"), Columns));
    EXPECT_TRUE(HasPlaceholder(Text("{{1}"), {}));
    EXPECT_EQ(Filled("{x{1}}", {"a"}), Text("{xa}"));
}

TEST_F(RecordPictureTest, BracesInAValueAreNoPlaceholder)
{
    EXPECT_EQ(Filled("{1}{2}", {"{2}", "{1}"}), Text("{2}{1}"));
}

TEST_F(RecordPictureTest, AValueThatTheRecordLacksFails)
{
    EXPECT_EQ(FailureOf([] { Filled("{2}", {"a"}); }), FailureNumber::SubscriptOutOfRange);
    EXPECT_EQ(FailureOf([] { Filled("{99999999999999999999}", {"a"}); }),
              FailureNumber::SubscriptOutOfRange);
    EXPECT_EQ(FailureOf([] { Filled("{photo no}", {"a"}, Columns); }),
              FailureNumber::SubscriptOutOfRange);
}

TEST_F(RecordPictureTest, APathOfManyBracesTakesLinearTime)
{
    const QString path = QString(qsizetype{16} << 20, QLatin1Char('{')) + QLatin1Char('}');
    EXPECT_FALSE(HasPlaceholder(path, Columns));
}

TEST_F(RecordPictureTest, PicturesOfEveryFormatAreTakenWhateverTheirNames)
{
    for (const SamplePicture& sample : SamplePictures()) {
        Put(QStringLiteral("anna"), sample.Bytes);
        const Picture picture = SafePictureIn(m_folder.path(), QStringLiteral("anna"));
        EXPECT_EQ(picture.Image().width(), SampleWidth) << sample.Kind;
    }
}

TEST_F(RecordPictureTest, APictureThatWasReplacedIsReadAgain)
{
    const std::vector<SamplePicture> samples = SamplePictures();
    Put(QStringLiteral("anna"), samples[0].Bytes);
    const Picture first = SafePictureIn(m_folder.path(), QStringLiteral("anna"));
    EXPECT_EQ(SafePictureIn(m_folder.path(), QStringLiteral("anna")), first);
    ASSERT_TRUE(QFile::remove(m_folder.filePath(QStringLiteral("anna"))));
    Put(QStringLiteral("anna"), samples[2].Bytes);
    EXPECT_FALSE(SafePictureIn(m_folder.path(), QStringLiteral("anna")) == first);
}

TEST_F(RecordPictureTest, FilesThatAreNoPicturesAreRefused)
{
    Put(QStringLiteral("text.jpg"), "root:x:0:0:root:/root:/bin/sh\n");
    Put(QStringLiteral("drawing.png"), DrawingThatLinks(QStringLiteral("/etc/passwd")));
    Put(QStringLiteral("empty.jpg"), "");
    Put(QStringLiteral("half.png"), SamplePictures()[0].Bytes.chopped(20));
    for (const char* name : {"text.jpg", "drawing.png", "empty.jpg", "half.png"})
        EXPECT_EQ(ReasonFor(Text(name)),
                  QLatin1Char('"') + Text(name) + Text("\" is no picture, or not a whole one"));
}

TEST_F(RecordPictureTest, AValueNeverLeavesTheFolder)
{
    ASSERT_TRUE(QDir(m_folder.path()).mkdir(QStringLiteral("photos")));
    Put(QStringLiteral("secret.png"), SamplePictures()[0].Bytes);
    ASSERT_TRUE(QFile::link(QStringLiteral("../secret.png"),
                            m_folder.filePath(QStringLiteral("photos/link.png"))));
    const QString photos = m_folder.filePath(QStringLiteral("photos"));
    for (const QString& value : {QStringLiteral("../secret"), QStringLiteral("link"),
                                 m_folder.filePath(QStringLiteral("secret"))}) {
        FieldValues values;
        values.Add(value);
        const QString name = FilledPath(QStringLiteral("{1}.png"), values, {});
        EXPECT_EQ(FailureOf([&] { SafePictureIn(photos, name); }), FailureNumber::PathNotFound);
    }
}

} // namespace vantrel::test
