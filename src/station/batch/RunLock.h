#pragma once

#include <QString>

namespace vantrel {

class StoreDatabase;

/// Marks a run of rows of a program folder as alive, and gives it the session number under which
/// its entries stand in the ledger. Runs at the same time have different ones.
class RunLock
{
public:
    /// Fails with `PathNotFound` if the folder cannot be written, with `InvalidCall` if too many
    /// runs are alive.
    explicit RunLock(const QString& programFolder);
    RunLock(const RunLock&) = delete;
    RunLock& operator=(const RunLock&) = delete;
    /// The system also releases the lock if the program is killed.
    ~RunLock();

    int SessionNumber() const { return m_session; }

private:
    int m_session = 0;
    int m_descriptor = -1;
};

/// Ends the entries of a run that was killed, by its session number. A card with a file of its own
/// is printed if that file is there and void if it is not; what was handed to the print server, or
/// not, is doubtful. Fails like `StoreDatabase`.
void EndCardsOfRun(StoreDatabase& database, int session);

/// The same for all runs of a program folder that were killed. Does nothing where there is no such
/// run. Never fails: what cannot be ended now is ended later.
void EndDeadRuns(const QString& programFolder, StoreDatabase& database);

} // namespace vantrel
