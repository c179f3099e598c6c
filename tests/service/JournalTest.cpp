#include "service/Journal.h"
#include <QByteArray>
#include <QString>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vantrel::test {
namespace {

class LogOfService : public ::testing::Test
{
protected:
    ~LogOfService() override { qunsetenv("JOURNAL_STREAM"); }

    static void NameStream(qulonglong device, qulonglong inode)
    {
        qputenv("JOURNAL_STREAM",
                QByteArray(QByteArray::number(device) + ':' + QByteArray::number(inode)));
    }
};

TEST_F(LogOfService, IsTheJournalIfStderrIsItsStream)
{
    struct stat errors
    {};
    ASSERT_EQ(::fstat(STDERR_FILENO, &errors), 0);
    NameStream(errors.st_dev, errors.st_ino);
    EXPECT_TRUE(IsLogTheJournal());
    NameStream(errors.st_dev, errors.st_ino + 1);
    EXPECT_FALSE(IsLogTheJournal());
    NameStream(errors.st_dev + 1, errors.st_ino);
    EXPECT_FALSE(IsLogTheJournal());
}

TEST_F(LogOfService, IsNotTheJournalWhereNoneIsNamed)
{
    EXPECT_FALSE(IsLogTheJournal());
    qputenv("JOURNAL_STREAM", "");
    EXPECT_FALSE(IsLogTheJournal());
}

} // namespace
} // namespace vantrel::test
