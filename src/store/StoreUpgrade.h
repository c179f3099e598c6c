#pragma once

#include "store/StoreTable.h"

namespace vantrel {

class StoreDatabase;

/// What `BringUpToDate` has found.
enum class StoreFound { Nothing, OlderVersion, PresentVersion };

/// Makes a layout store in a database on a server, or brings one of an older version up to date, in
/// one transaction; of several programs that do so at once one does it. The rows that are there
/// stay. Fails with `InvalidCall` for a store of a later version, otherwise like `StoreDatabase`.
/// @param furtherTables  tables that belong to a store beside those of the layouts
/// @param version  the version to make, for tests of older ones
StoreFound BringUpToDate(StoreDatabase& database, std::span<const StoreTable> furtherTables);
StoreFound BringUpToDate(StoreDatabase& database, std::span<const StoreTable> furtherTables,
                         qlonglong version);

} // namespace vantrel
