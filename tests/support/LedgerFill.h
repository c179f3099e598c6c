#pragma once

#include "ledger/LedgerRows.h"
#include "store/StoreDatabase.h"

namespace vantrel::test {

/// Adds an entry with its cards and, where they are kept, its values, as a station would leave it.
/// `Length` and `ValueCount` follow from it; an `Id` other than 0 is kept. @return its number
qlonglong AddLedgerEntry(StoreDatabase& database, LedgerEntry entry);

/// A printed entry of these values with one printed card, which bears these numbers.
LedgerEntry PrintedEntry(const QStringList& values, const QStringList& numbers = {});

/// A card in a state, with these numbers.
LedgerCard CardIn(LedgerState state, const QStringList& numbers = {});

} // namespace vantrel::test
