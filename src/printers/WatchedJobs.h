#pragma once

#include <QString>
#include <map>
#include <vector>

namespace vantrel {

/// How a job that was handed over ended.
enum class JobState {
    /// The server has seen it completed.
    Done,
    /// It was canceled or aborted.
    Failed,
    /// The server does not know it any more; how it ended is unknown.
    Gone,
};

/// The end of a job.
struct EndedJob
{
    int JobId = 0;
    JobState State = JobState::Done;
    /// Why it failed or is gone, in plain English; empty if it is done.
    QString Reason;
};

/// Jobs as a server lists them, with rising numbers from a first one on.
struct JobListing
{
    struct Job
    {
        int JobId = 0;
        bool HasEnded = false;
        /// If it has ended.
        JobState State = JobState::Done;
        QString Reason;
    };
    std::vector<Job> Jobs;
    /// Whether the list goes on behind the last of these jobs.
    bool GoesOn = false;
};

/// The jobs whose end somebody waits for. Their numbers may lie so far apart that one listing does
/// not hold them all; then one listing after the other is read, in turns.
class WatchedJobs
{
public:
    /// Numbers are greater than 0; others, and those that are watched already, are passed over.
    void Add(int jobId);
    bool IsEmpty() const { return m_jobs.empty(); }
    /// The number from which on jobs are to be listed next.
    int FirstToList() const;
    /// Takes a listing from the number `first` on. A job that two listings lack is gone.
    /// @return the jobs that have ended; they are not watched any more
    std::vector<EndedJob> TakeListing(int first, const JobListing& listing);

private:
    /// The job's number, and how many listings lacked it.
    std::map<int, int> m_jobs;
    int m_next = 0;
};

} // namespace vantrel
