#include "base/Profile.h"
#include "road/LedgerFolder.h"
#include "road/ServerStore.h"
#include "road/StationProcess.h"
#include "station/session/Settings.h"
#include "support/PrivatePostgres.h"
#include "support/SlowLine.h"
#include <QElapsedTimer>
#include <QThread>
#include <algorithm>
#include <csignal>
#include <gtest/gtest.h>
#include <iostream>

// What a station asks of its server, counted at the server and on the line.

namespace vantrel::test {
namespace {

/// The end of a transaction in the server's log.
constexpr const char* Commit = ": COMMIT";

/// Seconds of an idle station that are counted, and cards of a busy one.
int Asked(const char* variable, int shortRun)
{
    const int asked = qEnvironmentVariableIntValue(variable);
    return asked > 0 ? asked : shortRun;
}

class ServerLoad : public ::testing::Test
{
protected:
    ServerLoad()
    {
        PutStoreOnServer(Folder.Session.ProgramFolder, Address,
                         PrivatePostgres::Through(Address, Line.Port()));
        Server.Set(QStringLiteral("log_statement"), QStringLiteral("all"));
    }

    /// How often the server was asked something that contains this.
    qsizetype Statements(const QByteArray& text = QByteArray()) const
    {
        const QList<QByteArray> lines = Server.Log().split('\n');
        return std::count_if(lines.begin(), lines.end(), [&](const QByteArray& line) {
            return (line.contains("LOG:  statement: ") || line.contains("LOG:  execute ")) &&
                   line.contains(text);
        });
    }

    /// Counts what a station asks that has nothing to do.
    void CountIdle(const StationStart& start = {})
    {
        const int seconds = Asked("VANTREL_IDLE_SECONDS", 12);
        const int port = Folder.WithCapture();
        StationProcess station(Folder.Session.ProgramFolder, start);
        ASSERT_TRUE(station.WaitUntilItListens(port));
        QThread::sleep(1);
        const qsizetype before = Statements();
        const SlowLine::Traffic idle = Line.Count();
        QElapsedTimer clock;
        clock.start();
        QThread::sleep(static_cast<unsigned long>(seconds));
        const qsizetype asked = Statements() - before;
        const double passed = static_cast<double>(clock.elapsed()) / 1000;
        const SlowLine::Traffic traffic = Line.Count();
        std::cout << asked << " statements in " << passed << " s of an idle station, "
                  << traffic.RoundTrips - idle.RoundTrips << " round trips, "
                  << traffic.BytesToServer - idle.BytesToServer << " bytes to the server, "
                  << traffic.BytesToProgram - idle.BytesToProgram << " from it\n";
        // What comes once in ten seconds may fall into a short span twice.
        constexpr double onceMore = 6;
        EXPECT_LE(static_cast<double>(asked), passed + onceMore);
        EXPECT_GT(asked, 0);
        EXPECT_EQ(traffic.Connections, idle.Connections);
    }

    PrivatePostgres Server;
    QString Address = Server.NewDatabase();
    SlowLine Line{Server.Socket()};
    LedgerFolder Folder;
};

TEST_F(ServerLoad, AnIdleStationAsksLessThanOnceASecond)
{
    CountIdle();
}

TEST_F(ServerLoad, AnIdleStationThatShowsItsPoolAsksLittleMore)
{
    EXPECT_TRUE(WriteProfileValue(SettingsPath(Folder.Session.ProgramFolder),
                                  QStringLiteral("Store"), QStringLiteral("Pool"),
                                  QStringLiteral("cards")));
    // With windows, though nobody sees them.
    CountIdle({.Environment = {{QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("minimal")}}});
    EXPECT_GT(Statements("COUNT(*) FROM (SELECT 1 FROM"), 0);
}

TEST_F(ServerLoad, ACardTakesFewRoundTrips)
{
    const int cards = Asked("VANTREL_CARDS", 20);
    const int port = Folder.WithCapture();
    StationProcess station(Folder.Session.ProgramFolder);
    ASSERT_TRUE(station.WaitUntilItListens(port));
    AskingHost host(port);
    host.Ask(QStringLiteral("Ada"));
    const auto measure = [&](const char* how, auto&& send) {
        const SlowLine::Traffic before = Line.Count();
        const qsizetype commits = Statements(Commit);
        const qsizetype statements = Statements();
        send();
        const SlowLine::Traffic after = Line.Count();
        const auto each = [cards](auto count) {
            return static_cast<double>(count) / static_cast<double>(cards);
        };
        const double trips = each(after.RoundTrips - before.RoundTrips);
        std::cout << cards << " cards " << how << ": " << each(Statements(Commit) - commits)
                  << " commits, " << each(Statements() - statements) << " statements, " << trips
                  << " round trips, " << each(after.BytesToServer - before.BytesToServer)
                  << " bytes to the server, " << each(after.BytesToProgram - before.BytesToProgram)
                  << " from it, for each card\n";
        return trips;
    };
    // A machine that is busy with other things may refuse some.
    int printed = 0;
    const double oneByOne = measure("one by one", [&] {
        for (int i = 0; i < cards; ++i)
            printed += host.Ask(QStringLiteral("Ada")).startsWith(QStringLiteral("OK ")) ? 1 : 0;
    });
    const double burst = measure("in a burst", [&] {
        for (int i = 0; i < cards; ++i)
            host.Send(QStringLiteral("Bea"));
        for (int i = 0; i < cards; ++i)
            printed += host.Answer().startsWith(QStringLiteral("OK ")) ? 1 : 0;
    });
    EXPECT_GT(printed, 0);
    constexpr double most = 50;
    EXPECT_LE(oneByOne, most);
    EXPECT_LE(burst, most);
    EXPECT_GT(oneByOne, 0);
}

} // namespace
} // namespace vantrel::test
