#include "printers/WatchedJobs.h"
#include "support/Print.h"
#include <QStringList>
#include <gtest/gtest.h>

namespace vantrel::test {

namespace {

JobListing::Job Active(int jobId)
{
    JobListing::Job job;
    job.JobId = jobId;
    return job;
}

JobListing::Job Completed(int jobId)
{
    JobListing::Job job = Active(jobId);
    job.HasEnded = true;
    return job;
}

JobListing::Job Canceled(int jobId)
{
    JobListing::Job job = Completed(jobId);
    job.State = JobState::Failed;
    job.Reason = QStringLiteral("Canceled");
    return job;
}

/// As in "7 done", "8 failed Canceled".
QStringList TextOf(const std::vector<EndedJob>& ended)
{
    QStringList text;
    for (const EndedJob& job : ended) {
        const QString number = QString::number(job.JobId);
        if (job.State == JobState::Done)
            text.append(number + QStringLiteral(" done") + job.Reason);
        else if (job.State == JobState::Failed)
            text.append(number + QStringLiteral(" failed ") + job.Reason);
        else
            text.append(number + QStringLiteral(" gone"));
    }
    return text;
}

WatchedJobs Watching(const QList<int>& numbers)
{
    WatchedJobs jobs;
    for (const int number : numbers)
        jobs.Add(number);
    return jobs;
}

} // namespace

TEST(WatchedJobs, AJobThatHasEndedIsToldOnceAndNotWatchedAnyMore)
{
    WatchedJobs jobs = Watching({7, 8, 9});
    const JobListing listing{{Completed(7), Canceled(8), Active(9)}};
    EXPECT_EQ(TextOf(jobs.TakeListing(7, listing)),
              (QStringList{QStringLiteral("7 done"), QStringLiteral("8 failed Canceled")}));
    EXPECT_EQ(TextOf(jobs.TakeListing(9, listing)), QStringList());
    EXPECT_FALSE(jobs.IsEmpty());
    EXPECT_EQ(TextOf(jobs.TakeListing(9, {{Completed(9)}})), QStringList{QStringLiteral("9 done")});
    EXPECT_TRUE(jobs.IsEmpty());
}

TEST(WatchedJobs, JobsOfOthersAreNotTold)
{
    WatchedJobs jobs = Watching({20});
    EXPECT_EQ(TextOf(jobs.TakeListing(20, {{Active(20), Completed(21), Canceled(22)}})),
              QStringList());
}

TEST(WatchedJobs, AJobThatTwoListingsLackIsGone)
{
    WatchedJobs jobs = Watching({5, 6});
    const JobListing withoutFive{{Active(6)}};
    EXPECT_EQ(TextOf(jobs.TakeListing(5, withoutFive)), QStringList());
    EXPECT_EQ(TextOf(jobs.TakeListing(5, withoutFive)), QStringList{QStringLiteral("5 gone")});
    EXPECT_EQ(jobs.FirstToList(), 6);
}

TEST(WatchedJobs, AJobThatIsListedAgainIsNotGone)
{
    WatchedJobs jobs = Watching({5});
    const JobListing nothing;
    const JobListing listed{{Active(5)}};
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(TextOf(jobs.TakeListing(5, nothing)), QStringList());
        EXPECT_EQ(TextOf(jobs.TakeListing(5, listed)), QStringList());
    }
}

TEST(WatchedJobs, NumbersThatOneListingDoesNotHoldAreListedInTurns)
{
    WatchedJobs jobs = Watching({1, 2, 3, 50, 51, 90});
    EXPECT_EQ(jobs.FirstToList(), 1);
    jobs.TakeListing(1, {{Active(1), Active(2), Active(3)}, true});
    EXPECT_EQ(jobs.FirstToList(), 50) << "jobs in between are of no interest";
    EXPECT_EQ(TextOf(jobs.TakeListing(50, {{Active(50), Completed(51), Active(52)}, true})),
              QStringList{QStringLiteral("51 done")});
    EXPECT_EQ(jobs.FirstToList(), 90);
    jobs.TakeListing(90, {{Active(90)}, false});
    EXPECT_EQ(jobs.FirstToList(), 1) << "from the beginning again";
}

TEST(WatchedJobs, AListingSaysNothingOfJobsBehindItsEnd)
{
    WatchedJobs jobs = Watching({1, 9});
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(TextOf(jobs.TakeListing(1, {{Active(1), Active(2)}, true})), QStringList());
    EXPECT_EQ(jobs.FirstToList(), 9);
}

TEST(WatchedJobs, AHundredThousandJobsAreToldByListingsOfAThousand)
{
    constexpr int count = 100'000;
    constexpr int atOnce = 1000;
    WatchedJobs jobs;
    for (int i = 1; i <= count; ++i)
        jobs.Add(i);
    int told = 0;
    int listings = 0;
    for (; !jobs.IsEmpty(); ++listings) {
        const int first = jobs.FirstToList();
        JobListing listing;
        for (int i = first; i < first + atOnce; ++i)
            listing.Jobs.push_back(Completed(i));
        listing.GoesOn = first + atOnce <= count;
        for (const EndedJob& job : jobs.TakeListing(first, listing))
            EXPECT_EQ(job.JobId, ++told);
    }
    EXPECT_EQ(told, count);
    EXPECT_EQ(listings, count / atOnce);
}

TEST(WatchedJobs, NumbersThatNoJobHasArePassedOver)
{
    EXPECT_TRUE(Watching({0, -1}).IsEmpty());
    EXPECT_EQ(WatchedJobs().FirstToList(), 1);
}

} // namespace vantrel::test
