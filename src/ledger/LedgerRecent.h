#pragma once

#include "ledger/LedgerRows.h"
#include <vector>

namespace vantrel {

class StoreDatabase;

/// What changes of an entry after it came. Two that are equal show the same.
struct LedgerProgress
{
    qlonglong Id = 0;
    LedgerState State = LedgerState::Received;
    /// Cards that were begun, and when one of them changed last; 0 without cards.
    qlonglong Cards = 0;
    qint64 Changed = 0;

    friend bool operator==(const LedgerProgress&, const LedgerProgress&) = default;
};

/// How far the entries from this number on have come, newest first, at most so many. Reads neither
/// values nor texts. Fails like `StoreDatabase`.
std::vector<LedgerProgress> RecentProgress(StoreDatabase& database, qlonglong from,
                                           qlonglong atMost);

/// The numbers of entries that need a person: they failed or are doubtful, came since a time, and
/// were not printed again since. Newest first, at most so many. Fails like `StoreDatabase`.
/// @param since  milliseconds since 1970, UTC
std::vector<qlonglong> UnsettledEntries(StoreDatabase& database, qint64 since, qlonglong atMost);

} // namespace vantrel
