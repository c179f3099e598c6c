#pragma once

#include "ledger/LedgerRows.h"

namespace vantrel {

class StoreDatabase;

/// @file What people and stations do to entries that are in the ledger. Each change is one durable
/// commit and goes well together with stations that print meanwhile. Besides their own refusals all
/// of these fail like `StoreDatabase`. A refusal is a `Failure` with `InvalidCall` and one plain
/// line.

enum class ReprintMode {
    /// An entry is printed again only once.
    Once,
    /// As often as it is asked for.
    Again,
};

/// The first entry, whose cards a reprint of this one shows, without its bytes. Refuses what
/// `AskReprint` refuses, but not an entry that was printed again before.
LedgerEntry EntryToReprint(StoreDatabase& database, qlonglong id);

/// Adds an entry in the state `Received` with the record of another one, which a running station of
/// its session prints, or any of its pool; what was printed from a file is printed again by session
/// 1. It names the
/// first entry, also if it is a reprint that is printed again.
/// Refuses an entry that is unknown, whose values were not kept, or that is not finished, and with
/// `Once` one that was printed again without failing.
/// @return the number of the new entry
qlonglong AskReprint(StoreDatabase& database, qlonglong id, ReprintMode mode);

/// The entry by which a record was printed again without failing, or is about to be; nothing if
/// there is none.
std::optional<qlonglong> FindReprint(StoreDatabase& database, qlonglong id);

/// @return that the first entry of a record was printed again already by `reprint`, for whom asks
/// for that once more; `id` is any entry of the record, also `reprint` itself. Refuses an unknown
/// entry.
QString PrintedAgainAlready(StoreDatabase& database, qlonglong id, qlonglong reprint);

/// Makes an entry and all its cards void. One that is received is then never printed. Refuses an
/// entry that is unknown or being printed.
void VoidEntry(StoreDatabase& database, qlonglong id);

/// Makes doubtful the entries of a session that are being printed, and their cards that are. For
/// the start of the session, which nobody else runs.
void MakeDoubtful(StoreDatabase& database, int session);

/// The same for what a session that does not run was printing of one pool. Must be called inside a
/// transaction. @return the number of entries
int MakeDoubtfulInPool(StoreDatabase& database, int session, const QString& pool);

/// Removes entries with their records and cards. Must be called inside a transaction.
void RemoveEntries(StoreDatabase& database, const std::vector<qlonglong>& ids);

/// Removes finished entries that arrived more than `days` days ago, or all finished ones without a
/// number of days, with their cards and the pages that no card needs any more. Writers can come in
/// between. Then the file is written anew and its log is emptied, so that nothing of what was
/// removed is left in the database's files; meanwhile others cannot write. Fails with `StoreBusy`
/// if the file stays in use by others; the entries are then removed but may be left in it.
/// @return the number of entries that were removed
qlonglong PurgeEntries(StoreDatabase& database, std::optional<int> days);

/// Removes at most so many of the finished entries that arrived more than `days` days ago, and the
/// pages that no card needs any more; 0 days keeps all. What was removed is overwritten, but may
/// stay in the log until that is written over. For a station, now and then.
/// @return the number of entries that were removed
qlonglong RemoveOldEntries(StoreDatabase& database, int days, qlonglong atMost);

} // namespace vantrel
