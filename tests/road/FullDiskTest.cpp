#include "road/SmallDisk.h"
#include "road/StationFolder.h"
#include "road/StationProcess.h"
#include "support/Events.h"
#include <QDir>
#include <csignal>
#include <gtest/gtest.h>
#include <iostream>
#include <sys/resource.h>

// While a disk is full, the cards that come then are lost, and nothing else.

namespace vantrel::test {
namespace {

constexpr int FirstNumber = 1000; // raised before it prints
constexpr qint64 BlockBytes = 4096;
/// From no room at all to more than a card and its number take.
constexpr int MostBlocks = 24;
constexpr int CardsBefore = 3;
constexpr int CardsAfter = 3;

/// A station with a numbered card, and a routine that limits the room it can write to.
class StationWithoutRoom
{
public:
    explicit StationWithoutRoom(const std::function<void()>& beforeProgram = {})
        : m_port(WithNumber(Folder)), Station(Folder.Session.ProgramFolder,
                                              {.TellsSkips = true, .BeforeProgram = beforeProgram})
    {
        EXPECT_TRUE(Station.WaitUntilItListens(m_port));
    }

    void ExpectCards(int count)
    {
        for (int card = 0; card < count; ++card) {
            const qsizetype before = Folder.Cards().size();
            SendRecord(m_port, "<Anna+7>");
            ASSERT_TRUE(EventsUntil([&] { return Folder.Cards().size() > before; }));
        }
    }
    /// Sends a record and waits until it is a card, or until the station reports a step that it
    /// passed over.
    void SendIntoWant()
    {
        const qsizetype cards = Folder.Cards().size();
        const qsizetype lines = Station.ErrorLines().size();
        SendRecord(m_port, "<Bert+8>");
        EXPECT_TRUE(EventsUntil(
            [&] { return Folder.Cards().size() > cards || Station.ErrorLines().size() > lines; }));
    }
    /// Every card is whole, no number is older than one that was given, nothing else is left.
    void ExpectWholeCards(qsizetype cardsAfter) const
    {
        const QStringList cards = Folder.Cards();
        int given = 0;
        for (const QString& card : cards) {
            const QStringList words = TextOfPdf(card).split(QLatin1Char(' '));
            ASSERT_EQ(words.size(), 3) << qPrintable(card);
            const int number = words[2].toInt();
            EXPECT_GE(number, given) << qPrintable(card);
            // Where there is room again, each number rises.
            EXPECT_TRUE(number > given || cards.indexOf(card) < cards.size() - cardsAfter + 1);
            given = number;
        }
        const QDir printed(Folder.Session.PathInFolder(QStringLiteral("Printed/Session 1")));
        EXPECT_EQ(printed.entryList(QDir::Files | QDir::Hidden).size(), cards.size());
        EXPECT_EQ(Folder.StoreIntegrity(), QStringLiteral("ok"));
    }

    StationFolder Folder;

private:
    static int WithNumber(StationFolder& folder)
    {
        folder.AddAutoNumber(FirstNumber);
        folder.SetStatus("Visible", QStringLiteral("False"));
        return folder.WithCapture();
    }

    int m_port;

public:
    StationProcess Station;
};

/// Lets the station use ever more room, then as much as it needs.
void RunThroughWant(StationWithoutRoom& station, const std::function<void(qint64)>& leave,
                    const std::function<void()>& makeRoom)
{
    station.ExpectCards(CardsBefore);
    for (int blocks = 0; blocks <= MostBlocks; ++blocks) {
        leave(blocks * BlockBytes);
        station.SendIntoWant();
        ASSERT_TRUE(station.Station.IsRunning()) << blocks;
    }
    // The disk is filled once more, so that the first card with room follows one without.
    leave(0);
    station.SendIntoWant();
    makeRoom();
    // The station finishes the last record before it takes the next one.
    station.ExpectCards(CardsAfter + 1);
    station.ExpectWholeCards(CardsAfter);
    EXPECT_TRUE(station.Station.IsRunning());
}

/// No file may grow beyond so many bytes: what a station meets on a full disk, without a disk.
void RunThroughLimit()
{
    StationWithoutRoom station([] { std::signal(SIGXFSZ, SIG_IGN); });
    const auto limit = [&](rlim_t bytes) {
        const rlimit file{bytes, RLIM_INFINITY};
        ASSERT_EQ(::prlimit(static_cast<pid_t>(station.Station.Id()), RLIMIT_FSIZE, &file, nullptr),
                  0);
    };
    RunThroughWant(
        station, [&](qint64 bytes) { limit(static_cast<rlim_t>(bytes)); },
        [&] { limit(RLIM_INFINITY); });
}

TEST(StationDisk, AFullDiskCostsTheCardsThatComeThenAndTearsNoFile)
{
    constexpr int mebibytes = 8;
    const SmallDisk disk(mebibytes);
    if (!disk.IsThere()) {
        std::cout << "nothing can be mounted here: a limit on files stands for the full disk\n";
        RunThroughLimit();
        return;
    }
    StationWithoutRoom station;
    RunThroughWant(
        station, [&](qint64 bytes) { disk.FillUpTo(bytes); }, [&] { disk.MakeRoom(); });
}

TEST(StationDisk, ALimitOnFileSizesCostsTheCardsThatComeThenAndTearsNoFile)
{
    RunThroughLimit();
}

} // namespace
} // namespace vantrel::test
