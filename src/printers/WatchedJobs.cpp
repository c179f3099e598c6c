#include "printers/WatchedJobs.h"
#include <limits>

namespace vantrel {

namespace {
/// One listing could have been read while the server was starting.
constexpr int ListingsWithoutAGoneJob = 2;
} // namespace

void WatchedJobs::Add(int jobId)
{
    if (jobId > 0)
        m_jobs.try_emplace(jobId, 0);
}

int WatchedJobs::FirstToList() const
{
    if (m_jobs.empty())
        return 1;
    const auto next = m_jobs.lower_bound(m_next);
    return next == m_jobs.end() ? m_jobs.begin()->first : next->first;
}

std::vector<EndedJob> WatchedJobs::TakeListing(int first, const JobListing& listing)
{
    std::vector<EndedJob> ended;
    auto listed = listing.Jobs.begin();
    const bool goesOn = listing.GoesOn && !listing.Jobs.empty();
    const int last = goesOn ? listing.Jobs.back().JobId : std::numeric_limits<int>::max();
    for (auto job = m_jobs.lower_bound(first); job != m_jobs.end() && job->first <= last;) {
        const int jobId = job->first;
        while (listed != listing.Jobs.end() && listed->JobId < jobId)
            ++listed;
        if (listed != listing.Jobs.end() && listed->JobId == jobId) {
            job->second = 0;
            if (listed->HasEnded)
                ended.push_back({jobId, listed->State, listed->Reason});
        } else if (++job->second == ListingsWithoutAGoneJob) {
            ended.push_back({jobId, JobState::Gone,
                             QStringLiteral("The print server does not know the job any more")});
        }
        const bool isOver = !ended.empty() && ended.back().JobId == jobId;
        job = isOver ? m_jobs.erase(job) : std::next(job);
    }
    m_next = goesOn ? last + 1 : 0;
    return ended;
}

} // namespace vantrel
