#pragma once

#include "console/Routes.h"

namespace vantrel::console {

/// @file What is told of records. All fail like `StoreDatabase`.

/// The records that the query chooses, see `FilterOf`, newest first. The list ends earlier when it
/// becomes too long; "before" the last one goes on. With "brief=1" only the beginning of each
/// record's values is told.
Answer ListRecords(ConsoleStore& store, const Request& request, const PathNumbers& numbers);

/// The beginning of the newest records that failed or are doubtful and were not printed again
/// since: of the last seven days, at most fifty.
Answer ListUnsettled(ConsoleStore& store, const Request& request, const PathNumbers& numbers);

/// One record with its bytes and framing; with "brief=1" without them and with as much of it as a
/// person reads.
Answer ShowRecord(ConsoleStore& store, const Request& request, const PathNumbers& numbers);

} // namespace vantrel::console
