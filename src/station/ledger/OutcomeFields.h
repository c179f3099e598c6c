#pragma once

#include "ledger/LedgerRows.h"
#include "service/Journal.h"

namespace vantrel {

/// The line of the journal that tells the outcome of a record. Of its values it names at most what
/// the reason does.
/// @param now  the time of the outcome, in milliseconds since 1970, UTC
std::vector<JournalField> OutcomeFields(const LedgerEntry& entry, qint64 now);

} // namespace vantrel
