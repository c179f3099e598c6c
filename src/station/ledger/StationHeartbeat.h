#pragma once

#include <QString>

namespace vantrel {

class Session;

/// The name under which the ledger knows the machine of a program folder's stations: its host name;
/// in a store on a server a colon and the folder follow, since others may be on the same machine.
QString MachineName(const QString& programFolder);

/// Takes the number of this session for itself in the ledger of a store on a server, where stations
/// of other machines may have the same one. Does nothing for a file, whose sessions have numbers of
/// their own. Fails with `InvalidCall` if another station has it, otherwise like `StoreDatabase`.
void ClaimSession(Session& session);

/// Writes into the ledger that this session runs: now, then every ten seconds, and that it has
/// ended when the event loop ends in order. Does nothing if no ledger is kept. Never fails; while
/// the ledger cannot be written the station is silent. A number that another station had when the
/// session began is claimed again.
void TellThatItRuns(Session& session);

} // namespace vantrel
