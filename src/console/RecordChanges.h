#pragma once

#include "console/Routes.h"

namespace vantrel::console {

/// @file What is asked of records. All of it goes through the ledger, and a running station carries
/// it out. All fail like `StoreDatabase`, and with `InvalidCall` and one plain line if an entry
/// does not allow it.

/// Adds a record that was entered by hand: `{"layout": "...", "values": ["..."]}`, with "session"
/// for a session other than the first that runs. @return 201 with the number of its entry
Answer AddRecord(ConsoleStore& store, const Request& request, const PathNumbers& numbers);

/// Has an entry printed again. One that was printed again before wants `{"again": true}`.
Answer ReprintRecord(ConsoleStore& store, const Request& request, const PathNumbers& numbers);

/// Declares an entry void.
Answer VoidRecord(ConsoleStore& store, const Request& request, const PathNumbers& numbers);

} // namespace vantrel::console
