#include "base/Profile.h"
#include "road/AdminRun.h"
#include "road/BurstHost.h"
#include "road/CardAccount.h"
#include "road/LedgerFolder.h"
#include "road/StationProcess.h"
#include "station/session/Settings.h"
#include "support/Events.h"
#include "support/PrivatePostgres.h"
#include <QElapsedTimer>
#include <QSet>
#include <QThread>
#include <csignal>
#include <gtest/gtest.h>
#include <iostream>
#include <random>

// A server that is killed again and again while a station prints: no record prints twice, and no
// number is missing from the ledger.

namespace vantrel::test {
namespace {

constexpr std::size_t Connections = 3;
constexpr int Restarts = 8;
constexpr std::size_t MostCardsRead = 150;

/// Every number from the first on is on one card of the ledger, also one that is void.
void ExpectNoNumberMissing(const CardAccount& account)
{
    QSet<qlonglong> numbers;
    for (const auto& [id, entry] : account.Entries())
        for (const LedgerCard& card : entry.Cards)
            for (const QString& number : card.Numbers)
                numbers.insert(number.toLongLong());
    for (qlonglong i = 1; i <= numbers.size(); ++i)
        EXPECT_TRUE(numbers.contains(LedgerFolder::NumberBefore + i))
            << LedgerFolder::NumberBefore + i;
}

/// Each record was sent once, so it is printed once, and it is if its host was told so.
void ExpectEachPrintedOnce(const CardAccount& account, const BurstHost& host)
{
    std::map<QString, int> printed;
    for (const auto& [id, entry] : account.Entries())
        printed[entry.Values.value(0)] += entry.State == LedgerState::Printed ? 1 : 0;
    for (const auto& [value, times] : printed)
        EXPECT_LE(times, 1) << value.toStdString();
    for (const HostAnswer& answer : host.Answers())
        EXPECT_EQ(printed[answer.Value], answer.Ok ? 1 : 0)
            << answer.Value.toStdString() << ' ' << answer.Rest.toStdString();
}

TEST(ServerRestarts, LoseNoNumberAndPrintNoRecordTwice)
{
    const unsigned seed = std::random_device()();
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    PrivatePostgres server(PrivatePostgres::Commits::Durable);
    const QString address = server.NewDatabase();
    LedgerFolder folder;
    const QString home = folder.Session.ProgramFolder;
    ASSERT_EQ(RunAdmin({QStringLiteral("store"), QStringLiteral("copy"), home, address}).Code, 0);
    ASSERT_TRUE(WriteProfileValue(SettingsPath(home), QStringLiteral("Store"),
                                  QStringLiteral("Database"), address));
    const int port = folder.WithCapture();
    StationProcess station(home);
    ASSERT_TRUE(station.WaitUntilItListens(port));
    BurstHost host(port, QStringLiteral("A"), Connections, seed);
    for (int restart = 0; restart < Restarts; ++restart) {
        // Answers are under way when the server is lost.
        const std::size_t answers = host.Answers().size() + 5 + random() % 20;
        ASSERT_TRUE(host.GoOnUntil([&] { return host.Answers().size() >= answers; }));
        server.Kill();
        QElapsedTimer away;
        away.start();
        const auto awayMs = static_cast<qint64>(random() % 1500);
        while (!away.hasExpired(awayMs)) {
            host.GoOn();
            QThread::msleep(1);
        }
        server.Start();
    }
    host.BeginNothingNew();
    ASSERT_TRUE(host.GoOnUntil([&] { return host.IsAllAnswered(); }));
    // What could not be written when it came is written later.
    const QString open = QStringLiteral(
        "SELECT count(*) FROM LedgerEntries WHERE State IN ('received', 'printing')");
    ASSERT_TRUE(
        EventsUntil([&] { return PrivatePostgres::Run(address, open) == QStringLiteral("0"); }));
    station.SendSignal(SIGTERM);
    EXPECT_EQ(station.ExitCode(), 0);

    const CardAccount account(home, 1);
    account.ExpectEnded();
    account.ExpectFiles(MostCardsRead);
    ExpectNoNumberMissing(account);
    ExpectEachPrintedOnce(account, host);
    std::cout << host.Answers().size() << " answers; " << qPrintable(account.Summary()) << '\n';
}

} // namespace
} // namespace vantrel::test
