#include "base/FileStamp.h"
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

void Write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

TEST(FileStamp, StaysTheSameWhileTheFileIsUnchanged)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.txt"));
    Write(path, "True");
    EXPECT_TRUE(StampOfFile(path).IsFile);
    EXPECT_EQ(StampOfFile(path), StampOfFile(path));
}

TEST(FileStamp, ChangesWhenAnotherFileReplacesIt)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.txt"));
    const QString next = folder.filePath(QStringLiteral("b.txt"));
    Write(path, "1");
    Write(next, "0");
    const FileStamp before = StampOfFile(path);
    ASSERT_EQ(::rename(QFile::encodeName(next).constData(), QFile::encodeName(path).constData()),
              0);
    EXPECT_NE(StampOfFile(path), before);
}

TEST(FileStamp, IsEmptyForAMissingFile)
{
    const QTemporaryDir folder;
    EXPECT_EQ(StampOfFile(folder.filePath(QStringLiteral("none"))), FileStamp());
    EXPECT_EQ(StampOfFile(folder.path()), FileStamp());
}

} // namespace
} // namespace vantrel::test
