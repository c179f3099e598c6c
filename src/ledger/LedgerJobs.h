#pragma once

#include "ledger/LedgerRows.h"

namespace vantrel {

class StoreDatabase;

/// @file What the print server reports about the jobs of cards after they were handed over.

/// The jobs of a session that were handed over in the last seven days and whose end was not seen.
/// Fails like `StoreDatabase`.
std::vector<int> OpenJobs(StoreDatabase& database, int session);

/// Notes that a job of a session was done or has failed. The card it belongs to is the latest one
/// that was handed over under that number, since a print server may begin to count anew. Does
/// nothing if there is none. Fails like `StoreDatabase`.
/// @param state  `Done` or `Failed`
/// @param reason  why it has failed
void NoteJobState(StoreDatabase& database, int session, int job, LedgerState state,
                  const QString& reason);

} // namespace vantrel
