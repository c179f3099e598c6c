#include "printers/CupsJobWatch.h"
#include "base/CallIn.h"
#include "printers/CupsJobList.h"
#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <mutex>
#include <system_error>

namespace vantrel {

namespace {
/// How long the end of the program waits for a request that is being given up.
constexpr std::chrono::milliseconds FarewellTime{1500};
} // namespace

struct CupsJobWatch::Shared
{
    Pace TimesAndSizes;
    CupsServerAddress Server;
    /// Read by libcups; see `RequestLimit::Stop`.
    int Stop = 0;

    std::mutex Mutex;
    /// Wakes the thread: a job is watched, or the watch ends.
    std::condition_variable Given;
    /// Wakes the one who waits for the thread's end.
    std::condition_variable Over;
    // Guarded by the mutex:
    WatchedJobs Jobs;
    /// Who is told; null when the watch has ended.
    CupsJobWatch* Owner = nullptr;
    bool IsOver = false;
    std::chrono::milliseconds Delay{0};
};

CupsJobWatch::CupsJobWatch(QObject* parent) : CupsJobWatch(Pace{}, parent) {}

CupsJobWatch::CupsJobWatch(const Pace& pace, QObject* parent)
    : QObject(parent), m_shared(std::make_shared<Shared>())
{
    m_shared->TimesAndSizes = pace;
    m_shared->Server = CupsServerAddress::OfThisThread();
    m_shared->Owner = this;
    m_shared->Delay = pace.Between;
}

CupsJobWatch::~CupsJobWatch()
{
    std::unique_lock lock(m_shared->Mutex);
    m_shared->Owner = nullptr;
    if (!m_thread.joinable())
        return;
    std::atomic_ref<int>(m_shared->Stop) = 1;
    m_shared->Given.notify_one();
    const bool isOver =
        m_shared->Over.wait_for(lock, FarewellTime, [this] { return m_shared->IsOver; });
    lock.unlock();
    // Looking up the server's name, for one, cannot be given up.
    if (isOver)
        m_thread.join();
    else
        m_thread.detach();
}

void CupsJobWatch::Watch(int jobId)
{
    const std::lock_guard lock(m_shared->Mutex);
    m_shared->Jobs.Add(jobId);
    // A server that has accepted a job is not away.
    m_shared->Delay = m_shared->TimesAndSizes.Between;
    m_shared->Given.notify_one();
    if (m_thread.joinable())
        return;
    try {
        m_thread = std::thread([shared = m_shared] { Work(shared); });
    } catch (const std::system_error&) {
        // A machine that can start no thread now may start one with the next job.
    }
}

void CupsJobWatch::Work(const std::shared_ptr<Shared>& shared)
{
    std::unique_lock lock(shared->Mutex);
    const auto isEnding = [&] { return shared->Owner == nullptr; };
    while (!isEnding()) {
        shared->Given.wait(lock, [&] { return isEnding() || !shared->Jobs.IsEmpty(); });
        using Clock = std::chrono::steady_clock;
        const Clock::time_point begin = Clock::now();
        // Each new job wakes the thread, which then goes on waiting, though no longer than usual.
        while (!isEnding() && Clock::now() < begin + shared->Delay)
            shared->Given.wait_until(lock, begin + shared->Delay);
        if (!isEnding())
            LookOnce(*shared, lock);
    }
    shared->IsOver = true;
    shared->Over.notify_one();
}

void CupsJobWatch::LookOnce(Shared& shared, std::unique_lock<std::mutex>& lock)
{
    const Pace& pace = shared.TimesAndSizes;
    const int first = shared.Jobs.FirstToList();
    lock.unlock();
    const std::optional<JobListing> listing =
        ListCupsJobs(shared.Server, first, pace.JobsAtOnce, {pace.Patience, &shared.Stop});
    lock.lock();
    if (!listing) {
        shared.Delay = std::min(shared.Delay * 2, pace.LongestBetween);
        return;
    }
    shared.Delay = pace.Between;
    for (const EndedJob& job : shared.Jobs.TakeListing(first, *listing)) {
        if (CupsJobWatch* owner = shared.Owner) {
            CallIn(owner, [owner, job] { Q_EMIT owner->Seen(job.JobId, job.State, job.Reason); });
        }
    }
}

} // namespace vantrel
