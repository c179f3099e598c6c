#pragma once

#include "printers/WatchedJobs.h"

namespace vantrel {

class Session;

/// @file The ledger of a running station: what all roads of records share.

/// Opens the ledger if the station keeps one. A ledger that cannot be opened is told, and is tried
/// again with the next record.
void OpenLedger(Session& session);

/// Writes the ledger's changes durably. If that fails, the station says so; hosts are answered all
/// the same, unless records must not be taken without a ledger.
void WriteLedger(Session& session);
/// The same, unless another record is at hand with whose card the changes will be written.
void WriteLedgerSoon(Session& session);

/// Follows the jobs at the print server from now on, also those that were handed over before the
/// session began: their cards are done once their jobs are, and fail with them. Does nothing if no
/// ledger is kept.
void FollowJobs(Session& session);

/// Notes how a job of this session has ended at the print server.
void NoteJobEnd(Session& session, int job, JobState state, const QString& reason);

/// Shows in the log and in the status bar that the ledger cannot be written, or that it can be
/// again. Does nothing if that has been told.
void TellLedgerState(Session& session);

} // namespace vantrel
