#include "base/ByteSource.h"
#include "support/FailureOf.h"
#include "support/Print.h"
#include <QFile>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <array>
#include <gtest/gtest.h>
#include <unistd.h>

namespace vantrel::test {

TEST(ByteSourceTest, AFileIsReadToItsEnd)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("rows.csv"));
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("abcde");
    }
    ByteSource source(path);
    std::array<char, 3> bytes{};
    EXPECT_EQ(source.Read(bytes.data(), 3), 3);
    EXPECT_EQ(bytes[2], 'c');
    EXPECT_EQ(source.Read(bytes.data(), 3), 2);
    EXPECT_EQ(source.Read(bytes.data(), 3), 0);
}

TEST(ByteSourceTest, AMissingFileAndAFolderFailWithTheSystemsReason)
{
    const QTemporaryDir folder;
    const QString missing = folder.filePath(QStringLiteral("none"));
    EXPECT_EQ(FailureTextOf([&] { ByteSource source(missing); }),
              missing + QStringLiteral(": No such file or directory"));
    EXPECT_EQ(FailureTextOf([&] {
                  ByteSource source(folder.path());
                  char byte = 0;
                  source.Read(&byte, 1);
              }),
              folder.path() + QStringLiteral(": Is a directory"));
}

TEST(ByteSourceTest, AHyphenIsStandardInput)
{
    std::array<int, 2> pipe{};
    ASSERT_EQ(::pipe(pipe.data()), 0);
    const int before = ::dup(STDIN_FILENO);
    const auto restore = qScopeGuard([&] {
        ::dup2(before, STDIN_FILENO);
        ::close(before);
    });
    ASSERT_EQ(::dup2(pipe[0], STDIN_FILENO), STDIN_FILENO);
    ::close(pipe[0]);
    ASSERT_EQ(::write(pipe[1], "xy", 2), 2);
    ::close(pipe[1]);
    ByteSource source(QStringLiteral("-"));
    std::array<char, 8> bytes{};
    EXPECT_EQ(source.Read(bytes.data(), 8), 2);
    EXPECT_EQ(source.Read(bytes.data(), 8), 0);
}

} // namespace vantrel::test
