#include "road/LockedStore.h"
#include "road/StationFolder.h"
#include "road/StationProcess.h"
#include "station/session/Settings.h"
#include "support/Events.h"
#include "support/Host.h"
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QThread>
#include <csignal>
#include <gtest/gtest.h>
#include <random>

namespace vantrel::test {
namespace {

constexpr int Kills = 50;
constexpr int FirstNumber = 1000; // raised before it prints

/// Sends records one after the other for a random while, then kills the station.
void KillAtARandomMoment(StationProcess& station, int port, std::mt19937& random)
{
    std::uniform_int_distribution<int> while_(5, 60);
    QElapsedTimer since;
    since.start();
    const int until = while_(random);
    while (!since.hasExpired(until)) {
        const Host host(port);
        if (host.IsConnected())
            host.Send("<Anna+7>");
        QThread::msleep(4);
    }
    station.SendSignal(SIGKILL);
    EXPECT_EQ(station.ExitCode(), -1);
}

/// The automatic number of each card, in the order the cards were made.
std::vector<int> NumbersOf(const QStringList& cards)
{
    std::vector<int> numbers;
    for (const QString& card : cards) {
        const QStringList words = TextOfPdf(card).split(QLatin1Char(' '));
        EXPECT_EQ(words.size(), 3) << qPrintable(card);
        numbers.push_back(words.last().toInt());
    }
    return numbers;
}

TEST(Fault, AKillAtAnyMomentTearsNothingAndGivesNoOlderNumberAgain)
{
    StationFolder folder;
    folder.AddAutoNumber(FirstNumber);
    const int port = folder.WithCapture();
    const unsigned seed = std::random_device()();
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    for (int kill = 0; kill < Kills; ++kill) {
        StationProcess station(folder.Session.ProgramFolder);
        ASSERT_TRUE(station.WaitUntilItListens(port));
        KillAtARandomMoment(station, port, random);
        ASSERT_EQ(folder.StoreIntegrity(), QStringLiteral("ok"));
    }
    const std::vector<int> numbers = NumbersOf(folder.Cards());
    ASSERT_GT(numbers.size(), static_cast<std::size_t>(Kills));
    int given = 0;
    int twice = 0;
    for (const int number : numbers) {
        // A card goes out before its number is saved: the one in hand at a kill can come again.
        EXPECT_GE(number, given);
        EXPECT_LE(number, given == 0 ? number : given + 1);
        twice += number == given ? 1 : 0;
        given = number;
    }
    EXPECT_LE(twice, Kills);
}

TEST(Fault, AStoreLockedForALittleHoldsTheCardUpAndLosesNothing)
{
    StationFolder folder;
    folder.AddAutoNumber(FirstNumber);
    const int port = folder.WithCapture();
    StationProcess station(folder.Session.ProgramFolder);
    ASSERT_TRUE(station.WaitUntilItListens(port));
    {
        const LockedStore locked(folder.Session.ProgramFolder);
        SendRecord(port, "<Anna+7>");
        QThread::sleep(3);
    }
    EXPECT_EQ(folder.TextOfCard(1), QStringLiteral("Anna 7 1001"));
    SendRecord(port, "<Bert+8>");
    EXPECT_EQ(folder.TextOfCard(2), QStringLiteral("Bert 8 1002"));
    EXPECT_EQ(folder.StoreIntegrity(), QStringLiteral("ok"));
}

TEST(Fault, AStoreLockedForHalfAMinuteEndsNoStation)
{
    StationFolder folder;
    folder.AddAutoNumber(FirstNumber);
    const int port = folder.WithCapture();
    StationProcess station(folder.Session.ProgramFolder);
    ASSERT_TRUE(station.WaitUntilItListens(port));
    {
        const LockedStore locked(folder.Session.ProgramFolder);
        SendRecord(port, "<Anna+7>");
        QThread::sleep(30);
    }
    EXPECT_EQ(folder.TextOfCard(1), QStringLiteral("Anna 7 1001"));
    EXPECT_TRUE(station.IsRunning());
    SendRecord(port, "<Bert+8>");
    EXPECT_TRUE(EventsUntil([&] { return folder.Cards().size() == 2; }));
    EXPECT_TRUE(TextOfPdf(folder.Cards().last()).startsWith(QStringLiteral("Bert 8")));
    EXPECT_EQ(folder.StoreIntegrity(), QStringLiteral("ok"));
}

TEST(Fault, FourSessionsOnOneStorePrintEveryRecord)
{
    constexpr int sessions = 4;
    constexpr int records = 25;
    StationFolder folder;
    folder.AddAutoNumber(FirstNumber);
    std::vector<int> ports;
    std::vector<std::unique_ptr<StationProcess>> stations;
    for (int number = 1; number <= sessions; ++number) {
        ports.push_back(folder.WithCapture(static_cast<std::uint8_t>(number)));
        const StationStart start{.Arguments = {QString::number(number)}};
        stations.push_back(std::make_unique<StationProcess>(folder.Session.ProgramFolder, start));
    }
    for (int session = 0; session < sessions; ++session)
        ASSERT_TRUE(stations[static_cast<std::size_t>(session)]->WaitUntilItListens(
            ports[static_cast<std::size_t>(session)]));
    for (int record = 1; record <= records; ++record) {
        for (const int port : ports)
            SendRecord(port, "<Anna+" + QByteArray::number(record) + ">");
        // A host waits for its cards before it sends the next record.
        for (int number = 1; number <= sessions; ++number)
            ASSERT_TRUE(EventsUntil([&] { return folder.Cards(number).size() == record; }))
                << record << " of session " << number;
    }
    for (int number = 1; number <= sessions; ++number)
        EXPECT_TRUE(TextOfPdf(folder.Cards(number).last()).startsWith(QStringLiteral("Anna 25")));
    EXPECT_EQ(folder.StoreIntegrity(), QStringLiteral("ok"));
}

/// Writes a whole settings file anew.
void WriteFile(const QString& path, const QByteArray& content)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
}

QByteArray RandomBytes(qsizetype count)
{
    std::mt19937 random(17);
    std::uniform_int_distribution<int> byte(0, 255);
    QByteArray bytes(count, Qt::Uninitialized);
    for (char& each : bytes)
        each = static_cast<char>(byte(random));
    return bytes;
}

TEST(Fault, SettingsFilesOfAnyContentLetTheStationStart)
{
    const QByteArray contents[] = {"", RandomBytes(20000), QByteArray(10'000'000, 'x'),
                                   QByteArray(10'000'000, '\n')};
    for (const QByteArray& content : contents) {
        StationFolder folder;
        folder.WithCapture();
        WriteFile(SettingsPath(folder.Session.ProgramFolder), content);
        WriteFile(SessionStatusPath(folder.Session.ProgramFolder), content);
        StationProcess station(folder.Session.ProgramFolder);
        EXPECT_TRUE(folder.WaitUntilLoadedAndHidden()) << content.size();
        EXPECT_TRUE(station.IsRunning());
        station.SendSignal(SIGTERM);
        EXPECT_EQ(station.ExitCode(), 0);
    }
}

} // namespace
} // namespace vantrel::test
