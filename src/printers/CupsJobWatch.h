#pragma once

#include "printers/WatchedJobs.h"
#include <QObject>
#include <chrono>
#include <memory>
#include <mutex>
#include <thread>

namespace vantrel {

/// Tells how jobs at the CUPS server end. A thread of its own lists the server's jobs, all with one
/// request, from time to time while jobs are watched; nothing here waits for the server. A server
/// that is away or does not answer is asked less and less often, and the ends are told when it is
/// back.
class CupsJobWatch : public QObject
{
    Q_OBJECT

public:
    struct Pace
    {
        /// Time between two requests.
        std::chrono::milliseconds Between{2000};
        /// The longest time between two requests to a server that does not answer.
        std::chrono::milliseconds LongestBetween{30000};
        /// How long one request waits for its answer.
        std::chrono::milliseconds Patience{10000};
        /// The largest number of jobs in one answer.
        int JobsAtOnce = 1000;
    };

    /// Watches the server that libcups uses in the calling thread.
    explicit CupsJobWatch(QObject* parent = nullptr);
    CupsJobWatch(const Pace& pace, QObject* parent);
    CupsJobWatch(const CupsJobWatch&) = delete;
    CupsJobWatch& operator=(const CupsJobWatch&) = delete;
    /// Ends the watch; further ends are not told. Does not wait for a server that hangs.
    ~CupsJobWatch() override;

    /// Watches a job that the server has accepted, by its number there. Numbers below 1 and jobs
    /// that are watched already are passed over.
    void Watch(int jobId);

Q_SIGNALS:
    /// Comes once for each watched job, in this object's thread, when its end is seen.
    void Seen(int jobId, vantrel::JobState state, const QString& reason);

private:
    /// What this object and the thread share. The thread may outlive the object if the server
    /// hangs.
    struct Shared;
    static void Work(const std::shared_ptr<Shared>& shared);
    static void LookOnce(Shared& shared, std::unique_lock<std::mutex>& lock);

    std::shared_ptr<Shared> m_shared;
    /// Starts with the first job.
    std::thread m_thread;
};

} // namespace vantrel
