#pragma once

#include "console/Routes.h"

namespace vantrel::console {

/// The cards issued, failed, doubtful, void and reprinted, by day and layout; "since" and "until"
/// choose the time. Fails like `StoreDatabase`.
Answer ListCounts(ConsoleStore& store, const Request& request, const PathNumbers& numbers);

/// The names of the layouts, on which a record can be entered. Fails like `Recordset`.
Answer ListLayouts(ConsoleStore& store, const Request& request, const PathNumbers& numbers);

} // namespace vantrel::console
