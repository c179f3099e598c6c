#pragma once

#include "TextTable.h"
#include "ledger/LedgerCounts.h"
#include "ledger/LedgerRows.h"
#include <optional>

namespace vantrel::admin {

/// The columns of a list of entries, and an entry's row in it.
std::span<const TextTable::Column> EntryColumns();
QStringList EntryRow(const LedgerEntry& entry);

/// The columns of counts, and one row of them.
std::span<const TextTable::Column> CountColumns();
QStringList CountRow(const LedgerCount& count);

/// Writes all of one entry for people.
/// @param reprint  the entry by which it was printed again
void WriteEntry(const LedgerEntry& entry, std::optional<qlonglong> reprint,
                const TextTable::Write& write);

} // namespace vantrel::admin
