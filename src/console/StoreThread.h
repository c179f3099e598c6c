#pragma once

#include "console/Answer.h"
#include <QObject>
#include <QThread>
#include <atomic>
#include <functional>

namespace vantrel::console {

class ConsoleStore;

/// A thread that reads and writes the ledger for the console, so that a long search keeps nobody
/// else's connection waiting for a byte. Work is done in its order.
class StoreThread : public QObject
{
public:
    using Work = std::function<Answer(ConsoleStore&)>;

    /// @param store  must outlive this object; used in that thread only from now on
    explicit StoreThread(ConsoleStore& store);
    /// Waits for the work in hand; what waits behind it is not done.
    ~StoreThread() override;

    /// Lets `work` run in that thread and hands its answer to `done` in this one. A failure becomes
    /// a refusal. If too much work waits, `done` gets a refusal at once.
    void Ask(Work work, std::function<void(Answer)> done);
    /// Lets `work` run in that thread, without an answer. It must not fail.
    void Do(std::function<void(ConsoleStore&)> work);

private:
    ConsoleStore& m_store;
    QThread m_thread;
    /// Lives in the thread until that has ended.
    QObject m_worker;
    int m_waiting = 0;
    std::atomic<bool> m_ends = false;
};

} // namespace vantrel::console
