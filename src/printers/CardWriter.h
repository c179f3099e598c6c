#pragma once

#include "printers/CardFolder.h"
#include "printers/JobOutcome.h"
#include <QByteArray>
#include <QObject>
#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>

namespace vantrel {

class UnnamedFile;

/// Puts cards into a folder so that they survive a power cut, in a thread of its own. The cards are
/// numbered in the order of the calls. All cards that wait are written together: each file is
/// forced to the disk before it gets its name, and then the folder once for all of them. All
/// functions are called in the thread that made the writer.
class CardWriter
{
public:
    /// @param folder  used by the writer's thread only, until the writer is destroyed
    explicit CardWriter(CardFolder& folder);
    CardWriter(const CardWriter&) = delete;
    CardWriter& operator=(const CardWriter&) = delete;
    /// Finishes like `Finish`.
    ~CardWriter();

    /// Adds a card; its outcome is told by this thread's event loop or in `Finish`. Waits while
    /// eight cards or 16 MiB wait for the disk. Fails with `PrinterError` if no thread can be
    /// started.
    /// @param number  of its file; the next free one without it
    void Write(const QByteArray& pdf, const JobEnd& told, std::optional<qint64> number = {});
    /// Adds a card and waits for its outcome. Fails like `Write`.
    JobOutcome WriteNow(const QByteArray& pdf, std::optional<qint64> number = {});
    /// Waits until all cards are written and their outcomes told, also of those that were added
    /// meanwhile.
    void Finish();

private:
    struct Job
    {
        QByteArray Pdf;
        std::optional<qint64> Number;
        /// Is told the outcome; or else the outcome is put here.
        JobEnd Told;
        std::optional<JobOutcome>* Answer = nullptr;
        std::unique_ptr<UnnamedFile> File;
        JobOutcome Outcome;

        /// Runs a step of the job unless an earlier one has failed.
        template <typename Step>
        void Try(Step&& step);
        void FailWith(const QString& reason);
    };
    using Jobs = std::deque<Job>;

    /// Waits until there is room for the job, and adds it.
    void Add(std::unique_lock<std::mutex>& lock, Job job);
    void TellWritten();

    // In the thread:
    void Work();
    void WriteTogether(Jobs& jobs);
    void PutBytes(Job& job);
    static void SyncBytes(Jobs& jobs);
    void SyncNames(Jobs& jobs) const;
    void Report(Jobs& jobs);

    CardFolder& m_folder;
    /// Receives the calls that tell outcomes.
    QObject m_teller;

    std::mutex m_mutex;
    /// Wakes the thread: a job waits, or the writer is ending.
    std::condition_variable m_given;
    /// Wakes the caller: there is room, or jobs are written.
    std::condition_variable m_taken;
    // Guarded by the mutex:
    Jobs m_waiting;
    /// Size of the cards whose bytes are not in a file yet.
    qsizetype m_bytes = 0;
    bool m_writing = false;
    /// Jobs whose outcome has not been told.
    Jobs m_written;
    bool m_ending = false;

    /// Starts with the first job.
    std::thread m_thread;
};

} // namespace vantrel
