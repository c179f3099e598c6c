#include "base/Profile.h"
#include "ledger/LedgerReading.h"
#include "road/AdminRun.h"
#include "road/BurstHost.h"
#include "road/LedgerFolder.h"
#include "road/StationProcess.h"
#include "station/session/Settings.h"
#include "station/session/StoreLocation.h"
#include "store/StoreDatabase.h"
#include "support/Events.h"
#include "support/PrivatePostgres.h"
#include <QSet>
#include <csignal>
#include <gtest/gtest.h>
#include <iostream>
#include <random>

// Stations that take records and stations that print them, as processes of their own.

namespace vantrel::test {
namespace {

constexpr std::size_t Connections = 3;

/// How many records a host sends; a longer run asks for more.
std::size_t RecordCount(std::size_t shortRun)
{
    const int asked = qEnvironmentVariableIntValue("VANTREL_POOL_RECORDS");
    return asked > 0 ? static_cast<std::size_t>(asked) : shortRun;
}

void Join(const StationFolder& folder, const QString& address, const char* work)
{
    const QString path = SettingsPath(folder.Session.ProgramFolder);
    const auto set = [&](const char* key, const QString& value) {
        EXPECT_TRUE(
            WriteProfileValue(path, QStringLiteral("Store"), QLatin1StringView(key), value));
    };
    if (!address.isEmpty())
        set("Database", address);
    set("Pool", QStringLiteral("cards"));
    set("Work", QLatin1StringView(work));
}

StationStart AsSession(int number)
{
    return {.Arguments = {QString::number(number)}};
}

/// The entries of a ledger, oldest first.
std::vector<LedgerEntry> EntriesIn(const QString& location)
{
    std::vector<LedgerEntry> entries;
    ReadEntries(*OpenStoreDatabase(location), {},
                [&](const LedgerEntry& entry) { entries.push_back(entry); });
    std::reverse(entries.begin(), entries.end());
    return entries;
}

std::size_t CountIn(const QString& location, LedgerState state)
{
    LedgerFilter filter;
    filter.State = state;
    return static_cast<std::size_t>(CountEntries(*OpenStoreDatabase(location), filter));
}

bool ComesToRest(const QString& location)
{
    return EventsUntil([&] {
        return CountIn(location, LedgerState::Received) == 0 &&
               CountIn(location, LedgerState::Printing) == 0;
    });
}

/// Each record that was sent is one entry, whose card is printed once, or doubtful.
void ExpectEachOnce(const std::vector<LedgerEntry>& entries, const BurstHost& host)
{
    std::map<QString, int> found;
    QSet<QString> numbers;
    for (const LedgerEntry& entry : entries) {
        ++found[entry.Values.value(0)];
        EXPECT_TRUE(entry.State == LedgerState::Printed || entry.State == LedgerState::Doubtful)
            << entry.Id << ' ' << qPrintable(NameOf(entry.State)) << ' '
            << qPrintable(entry.Reason);
        ASSERT_EQ(entry.Cards.size(), 1U) << entry.Id;
        for (const QString& number : entry.Cards.at(0).Numbers) {
            EXPECT_FALSE(numbers.contains(number)) << qPrintable(number);
            numbers.insert(number);
        }
    }
    for (const auto& [value, times] : host.Sent())
        EXPECT_EQ(found[value], times) << qPrintable(value);
    EXPECT_EQ(found.size(), host.Sent().size());
}

/// The cards of a session, by the numbers of their entries.
std::map<qlonglong, QString> FilesOf(const std::vector<LedgerEntry>& entries, int session)
{
    std::map<qlonglong, QString> files;
    for (const LedgerEntry& entry : entries)
        if (entry.Session == session && entry.State == LedgerState::Printed)
            files[entry.Id] = entry.Cards.at(0).File;
    return files;
}

class Pool : public ::testing::Test
{
protected:
    Pool()
    {
        EXPECT_EQ(RunAdmin({QStringLiteral("store"), QStringLiteral("copy"),
                            Taking.Session.ProgramFolder, Address})
                      .Code,
                  0);
        Join(Taking, Address, "take");
        Join(First, Address, "print");
        Join(Second, Address, "print");
    }

    /// Sends records until so many are answered, and waits for the other answers.
    void Send(BurstHost& host, std::size_t records)
    {
        ASSERT_TRUE(host.GoOnUntil([&] { return host.Answers().size() >= records; }));
        host.BeginNothingNew();
        ASSERT_TRUE(host.GoOnUntil([&] { return host.IsAllAnswered(); }));
        for (const HostAnswer& answer : host.Answers()) {
            EXPECT_TRUE(answer.Ok) << qPrintable(answer.Rest);
            EXPECT_EQ(answer.Rest, QStringLiteral("0"));
        }
    }

    PrivatePostgres Server{PrivatePostgres::Commits::Durable};
    QString Address = Server.NewDatabase();
    LedgerFolder Taking;
    LedgerFolder First;
    LedgerFolder Second;
    const unsigned Seed = std::random_device()();
};

TEST_F(Pool, OfAStationThatIsKilledAnotherOnePrintsWhatItHadNotBegun)
{
    SCOPED_TRACE(Seed);
    const int port = Taking.WithCapture();
    StationProcess taking(Taking.Session.ProgramFolder);
    ASSERT_TRUE(taking.WaitUntilItListens(port));
    StationProcess first(First.Session.ProgramFolder, AsSession(2));
    StationProcess second(Second.Session.ProgramFolder, AsSession(3));
    BurstHost host(port, QStringLiteral("A"), Connections, Seed);
    const std::size_t records = RecordCount(200);
    ASSERT_TRUE(host.GoOnUntil([&] { return host.Answers().size() >= records / 2; }));
    ASSERT_TRUE(EventsUntil([&] { return First.Cards(2).size() > 10; }));
    first.SendSignal(SIGKILL);
    EXPECT_EQ(first.ExitCode(), -1);
    Send(host, records);
    ASSERT_TRUE(ComesToRest(Address));

    const std::vector<LedgerEntry> entries = EntriesIn(Address);
    ExpectEachOnce(entries, host);
    const std::size_t doubtful = CountIn(Address, LedgerState::Doubtful);
    for (const LedgerEntry& entry : entries) {
        if (entry.State == LedgerState::Doubtful) {
            EXPECT_EQ(entry.Session, 2) << entry.Id;
        }
    }
    const auto ofFirst = FilesOf(entries, 2);
    const auto ofSecond = FilesOf(entries, 3);
    EXPECT_EQ(ofFirst.size() + ofSecond.size() + doubtful, entries.size());
    EXPECT_EQ(static_cast<std::size_t>(Second.Cards(3).size()), ofSecond.size());
    // Cards that are doubtful may be there.
    const auto files = static_cast<std::size_t>(First.Cards(2).size());
    EXPECT_GE(files, ofFirst.size());
    EXPECT_LE(files, ofFirst.size() + doubtful);
    EXPECT_TRUE(Taking.Cards(1).isEmpty());
    std::cout << entries.size() << " records: " << ofFirst.size() << " and " << ofSecond.size()
              << " printed, " << doubtful << " doubtful\n";
}

TEST_F(Pool, TwoStationsShareTheWorkAndOneKeepsTheOrderOfRecords)
{
    SCOPED_TRACE(Seed);
    const int port = Taking.WithCapture();
    StationProcess taking(Taking.Session.ProgramFolder);
    ASSERT_TRUE(taking.WaitUntilItListens(port));
    BurstHost host(port, QStringLiteral("A"), Connections, Seed);
    const std::size_t records = RecordCount(200);
    ASSERT_TRUE(host.GoOnUntil([&] { return host.Answers().size() >= 10; }));
    std::size_t waited = 0;
    {
        // One station prints all that waits, before there is a second one.
        StationProcess first(First.Session.ProgramFolder, AsSession(2));
        Send(host, records / 4);
        ASSERT_TRUE(ComesToRest(Address));
        QString before;
        for (const auto& [id, file] : FilesOf(EntriesIn(Address), 2)) {
            EXPECT_LT(before, file) << id;
            before = file;
        }
        waited = EntriesIn(Address).size();
        StationProcess second(Second.Session.ProgramFolder, AsSession(3));
        // Both run when the further records come.
        ASSERT_TRUE(EventsUntil([&] { return Second.WrittenVisible() != QString(); }));
        BurstHost further(port, QStringLiteral("B"), Connections, Seed + 1);
        Send(further, records);
        ASSERT_TRUE(ComesToRest(Address));
        for (StationProcess* station : {&first, &second}) {
            station->SendSignal(SIGTERM);
            EXPECT_EQ(station->ExitCode(), 0);
        }
    }
    const std::vector<LedgerEntry> entries = EntriesIn(Address);
    EXPECT_EQ(CountIn(Address, LedgerState::Printed), entries.size());
    const std::size_t ofSecond = FilesOf(entries, 3).size();
    const std::size_t ofFirst = FilesOf(entries, 2).size() - waited;
    EXPECT_GT(ofFirst, 0U);
    EXPECT_GT(ofSecond, 0U);
    std::cout << ofFirst << " and " << ofSecond << " printed\n";
}

TEST(PoolInAFile, SessionsOfOneFolderPrintEachRecordOnce)
{
    const unsigned seed = std::random_device()();
    SCOPED_TRACE(seed);
    LedgerFolder folder;
    Join(folder, {}, "both");
    const int port = folder.WithCapture();
    const int other = folder.WithCapture(2);
    StationProcess first(folder.Session.ProgramFolder);
    StationProcess second(folder.Session.ProgramFolder, AsSession(2));
    ASSERT_TRUE(first.WaitUntilItListens(port));
    ASSERT_TRUE(second.WaitUntilItListens(other));
    BurstHost host(port, QStringLiteral("A"), Connections, seed);
    ASSERT_TRUE(host.GoOnUntil([&] { return host.Answers().size() >= RecordCount(100); }));
    host.BeginNothingNew();
    ASSERT_TRUE(host.GoOnUntil([&] { return host.IsAllAnswered(); }));
    const QString location = StoreLocation(folder.Session.ProgramFolder);
    ASSERT_TRUE(ComesToRest(location));
    const std::vector<LedgerEntry> entries = EntriesIn(location);
    ExpectEachOnce(entries, host);
    EXPECT_EQ(CountIn(location, LedgerState::Printed), entries.size());
    EXPECT_EQ(static_cast<std::size_t>(folder.Cards(1).size() + folder.Cards(2).size()),
              entries.size());
}

} // namespace
} // namespace vantrel::test
