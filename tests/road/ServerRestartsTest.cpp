#include "road/BurstHost.h"
#include "road/CardAccount.h"
#include "road/LedgerFolder.h"
#include "road/ServerStore.h"
#include "road/StationProcess.h"
#include "support/PrivatePostgres.h"
#include <csignal>
#include <gtest/gtest.h>
#include <random>

// A server that is killed again and again while a station prints: no record prints twice, and no
// number is missing from the ledger.

namespace vantrel::test {
namespace {

constexpr std::size_t Connections = 3;
constexpr int Restarts = 8;
constexpr std::size_t MostCardsRead = 150;

TEST(ServerRestarts, LoseNoNumberAndPrintNoRecordTwice)
{
    const unsigned seed = std::random_device()();
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    std::uniform_int_distribution<qint64> away(0, 1499);
    PrivatePostgres server(PrivatePostgres::Commits::Durable);
    const QString address = server.NewDatabase();
    LedgerFolder folder;
    const QString home = folder.Session.ProgramFolder;
    PutStoreOnServer(home, address, address);
    const int port = folder.WithCapture();
    StationProcess station(home);
    ASSERT_TRUE(station.WaitUntilItListens(port));
    BurstHost host(port, QStringLiteral("A"), Connections, seed);
    for (int restart = 0; restart < Restarts; ++restart) {
        // Answers are under way when the server is lost.
        const std::size_t answers = host.Answers().size() + 5 + random() % 20;
        ASSERT_TRUE(host.GoOnUntil([&] { return host.Answers().size() >= answers; }));
        server.Kill();
        host.GoOnFor(away(random));
        server.Start();
    }
    host.BeginNothingNew();
    ASSERT_TRUE(host.GoOnUntil([&] { return host.IsAllAnswered(); }));
    ASSERT_TRUE(ComesToRest(address));
    station.SendSignal(SIGTERM);
    EXPECT_EQ(station.ExitCode(), 0);

    CardAccount(home, 1).ExpectNothingLost(host, LedgerFolder::NumberBefore + 1, MostCardsRead);
}

} // namespace
} // namespace vantrel::test
