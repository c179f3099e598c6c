#include "printers/CupsJobWatch.h"
#include "printers/CupsPrinter.h"
#include "support/Events.h"
#include "support/Print.h"
#include "support/PrivateCups.h"
#include <QFile>
#include <QLocalServer>
#include <QLocalSocket>
#include <QThread>
#include <cups/cups.h>
#include <gtest/gtest.h>
#include <map>

namespace vantrel::test {

namespace {

const QString Queue = QStringLiteral("Cards");

struct Sight
{
    int Times = 0;
    JobState State = JobState::Done;
    QString Reason;
};

class CupsJobWatchTest : public ::testing::Test
{
protected:
    /// As in real use, but more often.
    static CupsJobWatch::Pace Often()
    {
        CupsJobWatch::Pace pace;
        pace.Between = std::chrono::milliseconds(20);
        pace.LongestBetween = std::chrono::milliseconds(100);
        return pace;
    }

    /// Starts a watch of the private server, which is there by now.
    void Start(const CupsJobWatch::Pace& pace = Often())
    {
        Watch = std::make_unique<CupsJobWatch>(pace, nullptr);
        QObject::connect(Watch.get(), &CupsJobWatch::Seen,
                         [this, here = QThread::currentThread()](int jobId, JobState state,
                                                                 const QString& reason) {
                             EXPECT_EQ(QThread::currentThread(), here);
                             const int times = Seen[jobId].Times + 1;
                             Seen[jobId] = {times, state, reason};
                         });
    }

    /// @return the number of a job that the queue has accepted
    int Print(const QString& queue = Queue)
    {
        CupsPrinter printer(queue);
        int jobId = 0;
        printer.Print(QStringLiteral("x"));
        printer.EndDocAndTell([&](const JobOutcome& outcome) {
            EXPECT_TRUE(outcome.HandedOver) << outcome.Reason.toStdString();
            jobId = outcome.JobId;
        });
        return jobId;
    }

    /// The end of a job, waited for.
    Sight EndOf(int jobId)
    {
        EXPECT_TRUE(EventsUntil([&] { return Seen.count(jobId) == 1; })) << jobId;
        return Seen[jobId];
    }

    static void Cancel(int jobId, bool forget = false)
    {
        EXPECT_LT(
            cupsCancelJob2(CUPS_HTTP_DEFAULT, Queue.toUtf8().constData(), jobId, forget ? 1 : 0),
            IPP_STATUS_REDIRECTION_OTHER_SITE)
            << cupsLastErrorString();
    }

    /// In place of the stopped server: closes two connections without an answer.
    void RefuseTwoRequests() const
    {
        QFile::remove(Cups.SocketPath());
        QLocalServer refusing;
        ASSERT_TRUE(refusing.listen(Cups.SocketPath()));
        for (int i = 0; i < 2; ++i) {
            ASSERT_TRUE(EventsUntil([&] { return refusing.hasPendingConnections(); }));
            delete refusing.nextPendingConnection();
        }
    }

    PrivateCups Cups;
    std::map<int, Sight> Seen;
    std::unique_ptr<CupsJobWatch> Watch;
};

} // namespace

TEST_F(CupsJobWatchTest, ACompletedJobIsDone)
{
    Cups.AddQueue(Queue);
    Start();
    const int job = Print();
    Watch->Watch(job);
    const Sight end = EndOf(job);
    EXPECT_EQ(end.State, JobState::Done);
    EXPECT_EQ(end.Reason, QString());
}

TEST_F(CupsJobWatchTest, ACanceledJobHasFailed)
{
    Cups.AddQueue(Queue);
    Cups.Pause(Queue);
    Start();
    const int job = Print();
    Watch->Watch(job);
    Cancel(job);
    const Sight end = EndOf(job);
    EXPECT_EQ(end.State, JobState::Failed);
    EXPECT_EQ(end.Reason, QStringLiteral("Canceled"));
}

TEST_F(CupsJobWatchTest, AnAbortedJobHasFailedForTheServersReason)
{
    Cups.AddQueue(Queue, PrivateCups::Device::Fails);
    Cups.Configure(Queue, QStringLiteral("printer-error-policy=abort-job"));
    Start();
    const int job = Print();
    Watch->Watch(job);
    const Sight end = EndOf(job);
    EXPECT_EQ(end.State, JobState::Failed);
    // Releases of the server differ in their keyword for it.
    EXPECT_TRUE(end.Reason == QStringLiteral("Aborted: The ribbon is torn") ||
                end.Reason == QStringLiteral("Aborted by system: The ribbon is torn"))
        << end.Reason.toStdString();
}

TEST_F(CupsJobWatchTest, AJobThatWaitsIsToldWhenItHasPrinted)
{
    const QString other = QStringLiteral("Badges");
    Cups.AddQueue(Queue);
    Cups.AddQueue(other);
    Cups.Pause(Queue);
    Start();
    const int waits = Print();
    Watch->Watch(waits);
    for (int i = 0; i < 3; ++i) {
        const int prints = Print(other);
        Watch->Watch(prints);
        EXPECT_EQ(EndOf(prints).State, JobState::Done);
    }
    EXPECT_EQ(Seen.count(waits), 0);
    Cups.Resume(Queue);
    EXPECT_EQ(EndOf(waits).State, JobState::Done);
}

TEST_F(CupsJobWatchTest, AJobIsToldOnce)
{
    Cups.AddQueue(Queue);
    Start();
    const int job = Print();
    Watch->Watch(job);
    Watch->Watch(job);
    EndOf(job);
    for (int i = 0; i < 3; ++i) {
        const int next = Print();
        Watch->Watch(next);
        EndOf(next);
    }
    EXPECT_EQ(Seen[job].Times, 1);
}

TEST_F(CupsJobWatchTest, JobsThatOneAnswerDoesNotHoldAreAllTold)
{
    Cups.AddQueue(Queue);
    Cups.Pause(Queue);
    CupsJobWatch::Pace pace = Often();
    pace.JobsAtOnce = 3;
    Start(pace);
    QList<int> jobs;
    for (int i = 0; i < 20; ++i) {
        jobs.append(Print());
        Watch->Watch(jobs.constLast());
    }
    Cancel(jobs[13]);
    EXPECT_EQ(EndOf(jobs[13]).State, JobState::Failed);
    EXPECT_EQ(Seen.size(), 1);
    Cups.Resume(Queue);
    for (const int job : jobs)
        EXPECT_EQ(EndOf(job).State, job == jobs[13] ? JobState::Failed : JobState::Done) << job;
}

TEST_F(CupsJobWatchTest, AJobThatTheServerHasForgottenIsGone)
{
    Cups.AddQueue(Queue);
    Cups.Pause(Queue);
    Start();
    const int forgotten = Print();
    const int kept = Print();
    Cancel(forgotten, true);
    Watch->Watch(forgotten);
    Watch->Watch(kept);
    const Sight end = EndOf(forgotten);
    EXPECT_EQ(end.State, JobState::Gone);
    EXPECT_EQ(end.Reason, QStringLiteral("The print server does not know the job any more"));
    EXPECT_EQ(Seen.count(kept), 0);
}

TEST_F(CupsJobWatchTest, AServerThatRestartsCostsNoEnd)
{
    Cups.AddQueue(Queue);
    Cups.Pause(Queue);
    Start();
    const int job = Print();
    const int canceled = Print();
    Watch->Watch(job);
    Watch->Watch(canceled);
    Cancel(canceled);
    EndOf(canceled);
    Cups.Stop();
    RefuseTwoRequests();
    Cups.Start();
    Cups.Resume(Queue);
    EXPECT_EQ(EndOf(job).State, JobState::Done);
    EXPECT_EQ(Seen[canceled].Times, 1);
}

TEST_F(CupsJobWatchTest, AServerThatIsAwayAtFirstDelaysTheEnd)
{
    Cups.AddQueue(Queue);
    const int job = Print();
    Cups.WaitForJobs(1);
    Cups.Stop();
    Start();
    Watch->Watch(job);
    RefuseTwoRequests();
    EXPECT_EQ(Seen.size(), 0);
    Cups.Start();
    EXPECT_EQ(EndOf(job).State, JobState::Done);
}

} // namespace vantrel::test
