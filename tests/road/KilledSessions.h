#pragma once

#include "road/LedgerFolder.h"

namespace vantrel::test {

/// How often stations are killed; scripts/kills.sh asks for more.
int KillCount(int shortRun);

/// How stations are killed.
struct KillPlan
{
    /// The sessions have the numbers 1 to this one.
    std::uint8_t Sessions = 1;
    /// In all.
    int Count = 0;
    /// A session is killed at a random instant before that.
    unsigned LongestLifeMs = 150;
    /// Connections of the host of each session.
    std::size_t Connections = 3;
    /// Whether records may be refused, as they are where others hold the store for too long.
    bool MayRefuse = false;
    /// Files of cards whose text is compared.
    std::size_t CardsRead = 150;
};

/// Kills the sessions at random instants while hosts send to them, and starts them again, until so
/// many were killed. Then lets them come to rest, and expects that the ledger accounts for every
/// record, every card and every number.
void RunThroughKills(StationFolder& folder, const KillPlan& kills);

} // namespace vantrel::test
