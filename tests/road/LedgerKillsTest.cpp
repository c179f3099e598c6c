#include "road/KilledSessions.h"
#include "road/ServerStore.h"
#include "support/PrivatePostgres.h"
#include <gtest/gtest.h>

// Whatever is killed whenever, the ledger accounts for every record and every card.

namespace vantrel::test {
namespace {

/// A server answers each question by itself, so what takes a while takes longer.
constexpr unsigned LifeOnServerMs = 800;

KillPlan KillsOf(std::uint8_t sessions)
{
    constexpr int shortRun = 25;
    KillPlan kills{.Sessions = sessions, .Count = KillCount(shortRun)};
    if (StoresAreOnServer())
        kills.LongestLifeMs = LifeOnServerMs;
    return kills;
}

TEST(LedgerKills, EveryAnsweredRecordHasItsCardAndNoNumberComesTwice)
{
    LedgerFolder folder;
    RunThroughKills(folder, KillsOf(1));
}

TEST(LedgerKills, TwoSessionsOnOneStoreLoseNothingAndShareNoNumber)
{
    LedgerFolder folder;
    RunThroughKills(folder, KillsOf(2));
}

TEST(ServerKills, ManySessionsOnOneLayoutLoseNothingAndShareNoNumber)
{
    constexpr int shortRun = 8;
    constexpr std::uint8_t few = 6;
    constexpr std::uint8_t many = 20;
    const int kills = KillCount(shortRun);
    PrivatePostgres server(PrivatePostgres::Commits::Durable);
    const QString address = server.NewDatabase();
    LedgerFolder folder;
    PutStoreOnServer(folder.Session.ProgramFolder, address, address);
    RunThroughKills(folder, {.Sessions = kills > shortRun ? many : few,
                             .Count = kills,
                             // They share the machine's cores.
                             .LongestLifeMs = 4 * LifeOnServerMs,
                             .Connections = 1,
                             .MayRefuse = true,
                             .CardsRead = 50});
}

} // namespace
} // namespace vantrel::test
