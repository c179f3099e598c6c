#include "printers/CardWriter.h"
#include "DiskCalls.h"
#include "support/Print.h"
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QThread>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <future>
#include <gtest/gtest.h>

namespace vantrel::test {

namespace {

class CardWriterTest : public ::testing::Test
{
protected:
    /// Gives the writer a card of so many bytes.
    void Give(qsizetype bytes = 100)
    {
        Writer.Write(QByteArray(bytes, 'c'), [this](const JobOutcome& outcome) {
            EXPECT_TRUE(outcome.HandedOver) << outcome.Reason.toStdString();
            ++Told;
        });
        ++Given;
    }

    /// Counts the cards that were given, and not yet forced to the disk, while others are forced
    /// there.
    void CountAhead(DiskCalls& disk)
    {
        disk.BeforeBytes([this] {
            // A slow disk: the one who gives has all the time to run ahead.
            QThread::msleep(2);
            const std::lock_guard lock(Counting);
            MostAhead = std::max(MostAhead, Given - Forced);
            ++Forced;
        });
    }

    /// Gives a card, and eight more while the disk is busy with the first. For each of these a step
    /// is done before it is forced to the disk.
    void GiveEightWhileTheDiskIsBusy(DiskCalls& disk, const std::function<void()>& step)
    {
        std::promise<void> begun;
        std::promise<void> allGiven;
        std::atomic<int> calls = 0;
        disk.BeforeBytes([&] {
            if (calls++ == 0) {
                begun.set_value();
                allGiven.get_future().wait();
            } else {
                step();
            }
        });
        Give();
        begun.get_future().wait();
        for (int i = 0; i < 8; ++i)
            Give();
        allGiven.set_value();
        Writer.Finish();
        disk.BeforeBytes(nullptr);
    }

    QTemporaryDir Disk;
    CardFolder Folder{Disk.path()};
    int Told = 0;
    std::atomic<int> Given = 0;
    std::mutex Counting;
    int Forced = 0;
    int MostAhead = 0;
    CardWriter Writer{Folder};
};

} // namespace

TEST_F(CardWriterTest, CardsThatWaitShareOneSyncOfTheirFolder)
{
    DiskCalls disk;
    GiveEightWhileTheDiskIsBusy(disk, [] {});
    EXPECT_EQ(Told, 9);
    const QStringList seen = disk.Seen();
    EXPECT_EQ(seen.count(QStringLiteral("bytes to disk")), 9);
    EXPECT_EQ(seen.filter(QStringLiteral("names to disk")).size(), 2);
}

TEST_F(CardWriterTest, CardsThatWaitAreForcedToTheDiskAtOnce)
{
    DiskCalls disk;
    std::condition_variable come;
    int inside = 0;
    GiveEightWhileTheDiskIsBusy(disk, [&] {
        std::unique_lock lock(Counting);
        ++inside;
        come.notify_all();
        // One after the other they would never all be here; the limit only ends a failed test.
        EXPECT_TRUE(come.wait_for(lock, std::chrono::seconds(20), [&] { return inside == 8; }));
    });
    EXPECT_EQ(Told, 9);
    EXPECT_EQ(inside, 8);
}

TEST_F(CardWriterTest, EightCardsWaitAtMost)
{
    DiskCalls disk;
    CountAhead(disk);
    for (int i = 0; i < 60; ++i)
        Give();
    Writer.Finish();
    EXPECT_EQ(Told, 60);
    // Eight are in the thread's hands, eight wait, and the next one was just let in.
    EXPECT_LE(MostAhead, 8 + 8 + 1);
    EXPECT_GT(MostAhead, 1);
}

TEST_F(CardWriterTest, SixteenMegabytesWaitAtMost)
{
    DiskCalls disk;
    CountAhead(disk);
    for (int i = 0; i < 12; ++i)
        Give(qsizetype{6} * 1024 * 1024);
    Writer.Finish();
    EXPECT_EQ(Told, 12);
    // Two of this size wait, two are in the thread's hands, and the next one was just let in.
    EXPECT_LE(MostAhead, 2 + 2 + 1);
}

TEST_F(CardWriterTest, ACardLargerThanAllThatMayWaitIsWritten)
{
    constexpr qsizetype size = qsizetype{17} * 1024 * 1024;
    Give();
    Give(size);
    Give();
    Writer.Finish();
    EXPECT_EQ(Told, 3);
    EXPECT_EQ(QFile(Disk.filePath(QStringLiteral("card-000002.pdf"))).size(), size);
}

TEST_F(CardWriterTest, ACardThatIsWaitedForHasItsOutcomeAtOnce)
{
    Give();
    const JobOutcome outcome = Writer.WriteNow("second");
    EXPECT_TRUE(outcome.HandedOver);
    EXPECT_EQ(outcome.File, QStringLiteral("card-000002.pdf"));
    EXPECT_TRUE(QFile::exists(Disk.filePath(outcome.File)));
    EXPECT_EQ(Told, 0);
}

} // namespace vantrel::test
