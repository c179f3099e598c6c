#pragma once

#include "ledger/LedgerReading.h"
#include <QByteArray>
#include <functional>

namespace vantrel {

/// Writes the entries of a filter, newest first, as CSV (RFC 4180) in UTF-8: a line of names, then
/// a line for each card and one for each entry without cards. Each value of the record has a column
/// of its own, up to `ExportedValues`; if a record has more, a last column holds the rest as a JSON
/// array. Values are written as they are: a spreadsheet takes one that begins with "=" for a
/// formula. Calls `write` for each line. Fails like `ReadEntries`, or as `write` does.
void ExportEntries(StoreDatabase& database, const LedgerFilter& filter,
                   const std::function<void(const QByteArray&)>& write);

/// The most values of a record that have columns of their own.
inline constexpr int ExportedValues = 200;

} // namespace vantrel
