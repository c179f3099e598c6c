#include "road/KilledSessions.h"
#include "road/BurstHost.h"
#include "road/CardAccount.h"
#include "road/StationProcess.h"
#include <QElapsedTimer>
#include <QThread>
#include <csignal>
#include <gtest/gtest.h>
#include <iostream>
#include <random>

namespace vantrel::test {
namespace {

/// Only ends a test that has failed.
constexpr int LimitMs = 120'000;

/// A session that is killed at random instants and started again, and the host that sends to it.
class KilledSession
{
    int m_port;

public:
    KilledSession(StationFolder& folder, std::uint8_t session, const KillPlan& kills, unsigned seed)
        : m_port(folder.WithCapture(session)),
          Host(m_port, QString(QChar(u'A' + session)), kills.Connections, seed),
          m_folder(folder.Session.ProgramFolder), m_session(session),
          m_longestLifeMs(kills.LongestLifeMs), m_random(seed)
    {
        Start();
    }

    /// @return whether anything moved
    bool GoOn()
    {
        const bool moved = Host.GoOn();
        if (!m_isReached && Host.IsConnected()) {
            m_isReached = true;
            m_clock.start();
        }
        const bool counts = m_isReached || m_killsAtStart;
        if (m_isKilled && counts && m_clock.elapsed() >= m_lifeMs) {
            m_station->SendSignal(SIGKILL);
            EXPECT_EQ(m_station->ExitCode(), -1);
            ++Kills;
            Start();
        }
        return moved;
    }
    void KillNoMore()
    {
        m_isKilled = false;
        Host.BeginNothingNew();
    }
    /// Ends the station in order, once it has started. @return its exit code
    int End()
    {
        EXPECT_TRUE(m_station->WaitUntilItListens(m_port));
        m_station->SendSignal(SIGTERM);
        return m_station->ExitCode();
    }

    BurstHost Host;
    int Kills = 0;

private:
    /// Mostly it is killed while it prints, now and then while it starts.
    void Start()
    {
        constexpr int oneIn = 5;
        m_killsAtStart = m_random() % oneIn == 0;
        m_lifeMs = static_cast<int>(m_random() % m_longestLifeMs);
        m_isReached = false;
        m_station = std::make_unique<StationProcess>(
            m_folder, StationStart{.Arguments = {QString::number(m_session)}});
        m_clock.start();
    }

    QString m_folder;
    int m_session;
    unsigned m_longestLifeMs;
    std::mt19937 m_random;
    std::unique_ptr<StationProcess> m_station;
    bool m_isKilled = true;
    bool m_isReached = false;
    bool m_killsAtStart = false;
    int m_lifeMs = 0;
    QElapsedTimer m_clock;
};

} // namespace

int KillCount(int shortRun)
{
    const int asked = qEnvironmentVariableIntValue("VANTREL_KILLS");
    return asked > 0 ? asked : shortRun;
}

void RunThroughKills(StationFolder& folder, const KillPlan& kills)
{
    const unsigned seed = std::random_device()();
    SCOPED_TRACE(seed);
    std::vector<std::unique_ptr<KilledSession>> killed;
    for (std::uint8_t session = 1; session <= kills.Sessions; ++session)
        killed.push_back(std::make_unique<KilledSession>(folder, session, kills, seed + session));
    const auto goOnUntil = [&](auto&& holds) {
        QElapsedTimer still;
        still.start();
        while (!holds()) {
            bool moved = false;
            for (const auto& session : killed)
                moved |= session->GoOn();
            if (moved)
                still.start();
            else
                QThread::msleep(1);
            if (still.elapsed() > LimitMs)
                return false;
        }
        return true;
    };
    const auto killsSoFar = [&] {
        int sum = 0;
        for (const auto& session : killed)
            sum += session->Kills;
        return sum;
    };
    const auto answersSoFar = [&] {
        std::size_t sum = 0;
        for (const auto& session : killed)
            sum += session->Host.Answers().size();
        return sum;
    };
    // A slow machine may answer little within a station's short life, so it is killed more often.
    ASSERT_TRUE(goOnUntil([&] {
        return killsSoFar() >= kills.Count &&
               answersSoFar() > static_cast<std::size_t>(kills.Count);
    }));
    for (const auto& session : killed)
        session->KillNoMore();
    ASSERT_TRUE(goOnUntil([&] {
        return std::all_of(killed.begin(), killed.end(),
                           [](const auto& session) { return session->Host.IsAllAnswered(); });
    }));
    for (const auto& session : killed)
        EXPECT_EQ(session->End(), 0);

    const CardAccount account(folder.Session.ProgramFolder, kills.Sessions);
    account.ExpectEnded();
    account.ExpectNoNumberMissing(LedgerFolder::NumberBefore + 1);
    std::size_t sent = 0;
    for (const auto& session : killed) {
        if (kills.MayRefuse) {
            account.ExpectAnswersOrRefusalsOf(session->Host);
        } else {
            account.ExpectRecordsOf(session->Host);
            account.ExpectAnswersOf(session->Host);
        }
        for (const auto& [value, times] : session->Host.Sent())
            sent += static_cast<std::size_t>(times);
    }
    account.ExpectFiles(kills.CardsRead);
    EXPECT_EQ(folder.StoreIntegrity(), QStringLiteral("ok"));
    std::cout << killsSoFar() << " kills, " << sent << " records sent, " << answersSoFar()
              << " answered; " << qPrintable(account.Summary()) << '\n';
}

} // namespace vantrel::test
