#pragma once

#include "PrintOptions.h"
#include "station/batch/RunLock.h"
#include <memory>

namespace vantrel::print {

/// What a run holds as long as one of its processes lives, so processes are started while it is
/// held: its folder, which no other run writes into, and its session number in the ledger.
class RunLocks
{
public:
    /// Fails with `FileNotFound` if the program folder has no layout database, with `PathNotFound`
    /// or `InvalidCall` if something cannot be held.
    explicit RunLocks(const PrintOptions& options);
    RunLocks(const RunLocks&) = delete;
    RunLocks& operator=(const RunLocks&) = delete;
    ~RunLocks();

    /// The session number of the entries; 0 if no ledger is kept.
    int LedgerSession() const { return m_ledger ? m_ledger->SessionNumber() : 0; }

private:
    int m_folder = -1;
    std::unique_ptr<RunLock> m_ledger;
};

} // namespace vantrel::print
