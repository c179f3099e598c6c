#include "platform/FileStamp.h"
#include "support/TestSession.h"
#include <QFile>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

void Write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

TEST(FileStamp, StaysWhileTheFileDoes)
{
    const TestSession station;
    const QString path = station.Session.PathInFolder(QStringLiteral("a.txt"));
    Write(path, "True");
    EXPECT_TRUE(StampOfFile(path).IsFile);
    EXPECT_EQ(StampOfFile(path), StampOfFile(path));
}

TEST(FileStamp, TellsAFileThatWasPutInThePlaceOfAnother)
{
    const TestSession station;
    const QString path = station.Session.PathInFolder(QStringLiteral("a.txt"));
    const QString next = station.Session.PathInFolder(QStringLiteral("b.txt"));
    Write(path, "1");
    Write(next, "0");
    const FileStamp before = StampOfFile(path);
    ASSERT_EQ(::rename(QFile::encodeName(next).constData(), QFile::encodeName(path).constData()),
              0);
    EXPECT_NE(StampOfFile(path), before);
}

TEST(FileStamp, OfNoFileIsTheEmptyOne)
{
    const TestSession station;
    EXPECT_EQ(StampOfFile(station.Session.PathInFolder(QStringLiteral("none"))), FileStamp());
    EXPECT_EQ(StampOfFile(station.Session.ProgramFolder), FileStamp());
}

} // namespace
} // namespace vantrel::test
