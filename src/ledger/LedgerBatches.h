#pragma once

#include "ledger/LedgerRows.h"
#include <functional>

namespace vantrel {

class StoreDatabase;

/// @file Entries of cards that are printed from a file. Such a run keeps its entries under a
/// session number of its own, beyond those of stations, as long as it lives.

/// The session number of the first run; others at the same time have the next ones.
inline constexpr int FirstRunSession = 1001;
inline constexpr int MostRunsAtOnce = 64;
/// The session of a station that prints an entry again which a run has printed.
inline constexpr int SessionOfReprints = 1;

/// Sets the state of all entries of a session that are being printed, and of their cards that are:
/// each card to what `judge` says of it, without a file unless it is printed, and each entry to
/// `Failed`, `Doubtful`, `Void` or `Printed`, the first of these in which one of its cards is. In
/// one durable commit; fails like `StoreDatabase`.
void EndCardsOf(StoreDatabase& database, int session,
                const std::function<LedgerState(const LedgerCard&)>& judge);

} // namespace vantrel
