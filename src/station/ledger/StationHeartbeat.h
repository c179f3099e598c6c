#pragma once

namespace vantrel {

class Session;

/// Writes into the ledger that this session runs: now, then every ten seconds, and that it has
/// ended when the event loop ends in order. Does nothing if no ledger is kept. Never fails; while
/// the ledger cannot be written the station is silent.
void TellThatItRuns(Session& session);

} // namespace vantrel
