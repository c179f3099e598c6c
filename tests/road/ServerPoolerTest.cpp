#include "base/Profile.h"
#include "road/BurstHost.h"
#include "road/CardAccount.h"
#include "road/KilledSessions.h"
#include "road/LedgerFolder.h"
#include "road/ServerStore.h"
#include "road/StationProcess.h"
#include "station/session/Settings.h"
#include "support/PrivatePooler.h"
#include "support/PrivatePostgres.h"
#include <csignal>
#include <deque>
#include <gtest/gtest.h>
#include <iostream>
#include <random>

// Records on their road where a pooler stands between the stations and their server, and lends
// fewer connections than there are stations, each for the time of a transaction.

namespace vantrel::test {
namespace {

constexpr std::uint8_t Sessions = PrivatePooler::Connections + 2;
constexpr std::size_t HostConnections = 2;
constexpr std::size_t MostCardsRead = 100;

class ServerPoolerRoad : public ::testing::Test
{
protected:
    ServerPoolerRoad() { PutStoreOnServer(Home, Direct, Pooler.Through(Direct)); }

    void Set(const char* key, const char* value)
    {
        EXPECT_TRUE(WriteProfileValue(SettingsPath(Home), QStringLiteral("Store"),
                                      QLatin1StringView(key), QLatin1StringView(value)));
    }
    std::unique_ptr<StationProcess> Start(int session) const
    {
        return std::make_unique<StationProcess>(
            Home, StationStart{.Arguments = {QString::number(session)}});
    }

    PrivatePostgres& Server = PrivatePostgres::Shared();
    QString Direct = Server.NewDatabase();
    PrivatePooler Pooler{Server};
    LedgerFolder Folder;
    const QString Home = Folder.Session.ProgramFolder;
    const unsigned Seed = std::random_device()();
};

TEST_F(ServerPoolerRoad, EveryRecordOfMoreStationsThanItHasConnectionsIsAccountedFor)
{
    SCOPED_TRACE(Seed);
    constexpr std::size_t each = 40;
    std::vector<std::unique_ptr<StationProcess>> stations;
    std::deque<BurstHost> hosts;
    for (std::uint8_t session = 1; session <= Sessions; ++session) {
        const int port = Folder.WithCapture(session);
        stations.push_back(Start(session));
        ASSERT_TRUE(stations.back()->WaitUntilItListens(port));
        hosts.emplace_back(port, QString(QChar(u'A' + session)), HostConnections, Seed + session);
    }
    const auto all = [&](auto holds) {
        // All hosts send at the same time.
        return hosts.front().GoOnUntil([&] {
            bool isSo = true;
            for (BurstHost& host : hosts) {
                host.GoOn();
                isSo = isSo && holds(host);
            }
            return isSo;
        });
    };
    ASSERT_TRUE(all([](const BurstHost& host) { return host.Answers().size() >= each; }));
    for (BurstHost& host : hosts)
        host.BeginNothingNew();
    ASSERT_TRUE(all([](const BurstHost& host) { return host.IsAllAnswered(); }));
    ASSERT_TRUE(ComesToRest(Direct));
    for (const auto& station : stations) {
        station->SendSignal(SIGTERM);
        EXPECT_EQ(station->ExitCode(), 0);
    }
    const CardAccount account(Home, Sessions);
    account.ExpectEnded();
    account.ExpectFiles(MostCardsRead);
    account.ExpectNoNumberMissing(LedgerFolder::NumberBefore + 1);
    std::size_t printed = 0;
    for (const BurstHost& host : hosts) {
        account.ExpectAnswersOrRefusalsOf(host);
        for (const HostAnswer& answer : host.Answers())
            printed += answer.Ok ? 1 : 0;
    }
    // A machine that is busy with other things may refuse some.
    EXPECT_GT(printed, 0U);
    EXPECT_EQ(account.Count(LedgerState::Printed), printed);
    std::cout << qPrintable(account.Summary()) << '\n';
}

TEST_F(ServerPoolerRoad, StationsThatAreKilledLeaveNothingInTheConnectionsThatItLends)
{
    RunThroughKills(Folder, {.Sessions = 3,
                             .Count = KillCount(20),
                             .LongestLifeMs = 400,
                             .Connections = HostConnections,
                             .MayRefuse = true,
                             .CardsRead = MostCardsRead});
}

TEST_F(ServerPoolerRoad, StartedAnewAgainAndAgainItLosesNoNumberAndLetsNoRecordPrintTwice)
{
    SCOPED_TRACE(Seed);
    constexpr int restarts = 5;
    std::mt19937 random(Seed);
    std::uniform_int_distribution<qint64> away(0, 999);
    const int port = Folder.WithCapture();
    const auto station = Start(1);
    ASSERT_TRUE(station->WaitUntilItListens(port));
    BurstHost host(port, QStringLiteral("A"), HostConnections, Seed);
    for (int restart = 0; restart < restarts; ++restart) {
        const std::size_t answers = host.Answers().size() + 5 + random() % 20;
        ASSERT_TRUE(host.GoOnUntil([&] { return host.Answers().size() >= answers; }));
        Pooler.Kill();
        host.GoOnFor(away(random));
        Pooler.Start();
    }
    host.BeginNothingNew();
    ASSERT_TRUE(host.GoOnUntil([&] { return host.IsAllAnswered(); }));
    ASSERT_TRUE(ComesToRest(Direct));
    station->SendSignal(SIGTERM);
    EXPECT_EQ(station->ExitCode(), 0);
    CardAccount(Home, 1).ExpectNothingLost(host, LedgerFolder::NumberBefore + 1, MostCardsRead);
}

TEST_F(ServerPoolerRoad, MembersOfAPoolPrintEachRecordOnce)
{
    SCOPED_TRACE(Seed);
    constexpr std::size_t records = 100;
    Set("Pool", "cards");
    Set("Work", "take");
    const int port = Folder.WithCapture();
    const auto taking = Start(1);
    ASSERT_TRUE(taking->WaitUntilItListens(port));
    Set("Work", "print");
    std::vector<std::unique_ptr<StationProcess>> printing;
    for (int session = 2; session <= Sessions; ++session)
        printing.push_back(Start(session));
    BurstHost host(port, QStringLiteral("A"), HostConnections, Seed);
    ASSERT_TRUE(host.GoOnUntil([&] { return host.Answers().size() >= records; }));
    host.BeginNothingNew();
    ASSERT_TRUE(host.GoOnUntil([&] { return host.IsAllAnswered(); }));
    ASSERT_TRUE(ComesToRest(Direct));
    const CardAccount account(Home, Sessions);
    account.ExpectEnded();
    account.ExpectFiles(MostCardsRead);
    account.ExpectNoNumberMissing(LedgerFolder::NumberBefore + 1);
    account.ExpectRecordsOf(host);
    EXPECT_EQ(account.Count(LedgerState::Printed), host.Answers().size());
    for (const HostAnswer& answer : host.Answers()) {
        EXPECT_TRUE(answer.Ok) << qPrintable(answer.Rest);
        EXPECT_EQ(account.Entries().at(answer.Id).Values.value(0), answer.Value);
    }
}

} // namespace
} // namespace vantrel::test
