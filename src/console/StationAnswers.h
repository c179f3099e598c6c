#pragma once

#include "console/Routes.h"

namespace vantrel::console {

/// @file What is told of stations. All fail like `StoreDatabase`.

/// Every station and whether it runs.
Answer ListStations(ConsoleStore& store, const Request& request, const PathNumbers& numbers);

/// What the console has counted, for programs that watch it, in the format OpenMetrics.
Answer ShowMetrics(ConsoleStore& store, const Request& request, const PathNumbers& numbers);

/// Tells a watching program whether all is well: 200 and "ok" while every station that should run
/// does, else 503 and those that do not, one a line. Nothing of records.
Answer ShowHealth(ConsoleStore& store, const Request& request, const PathNumbers& numbers);

} // namespace vantrel::console
