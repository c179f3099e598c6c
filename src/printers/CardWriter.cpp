#include "printers/CardWriter.h"
#include "base/CallIn.h"
#include "base/FolderSync.h"
#include "base/UnnamedFile.h"
#include <QFile>
#include <QScopeGuard>
#include <algorithm>
#include <system_error>
#include <utility>
#include <vector>

namespace vantrel {

namespace {

constexpr std::size_t MostWaiting = 8;
constexpr qsizetype MostBytes = qsizetype{16} * 1024 * 1024;

} // namespace

template <typename Step>
void CardWriter::Job::Try(Step&& step)
{
    if (!Outcome.Reason.isEmpty())
        return;
    try {
        std::forward<Step>(step)();
    } catch (const Failure& failure) {
        FailWith(ReasonOf(failure));
    }
}

void CardWriter::Job::FailWith(const QString& reason)
{
    File.reset();
    Outcome = {};
    Outcome.Reason = reason;
}

CardWriter::CardWriter(CardFolder& folder) : m_folder(folder) {}

CardWriter::~CardWriter()
{
    Finish();
    {
        const std::lock_guard lock(m_mutex);
        m_ending = true;
    }
    m_given.notify_one();
    if (m_thread.joinable())
        m_thread.join();
}

void CardWriter::Add(std::unique_lock<std::mutex>& lock, Job job)
{
    const qsizetype size = job.Pdf.size();
    // A card that is larger than all that may wait is taken when nothing else waits.
    m_taken.wait(lock, [&] {
        return m_bytes == 0 || (m_waiting.size() < MostWaiting && m_bytes + size <= MostBytes);
    });
    if (!m_thread.joinable()) {
        try {
            m_thread = std::thread([this] { Work(); });
        } catch (const std::system_error& error) {
            throw Failure(FailureNumber::PrinterError,
                          QStringLiteral("Printer error: ") + QString::fromUtf8(error.what()));
        }
    }
    m_bytes += size;
    m_waiting.push_back(std::move(job));
    m_given.notify_one();
}

void CardWriter::Write(const QByteArray& pdf, const JobEnd& told, std::optional<qint64> number)
{
    Job job;
    job.Pdf = pdf;
    job.Number = number;
    job.Told = told;
    std::unique_lock lock(m_mutex);
    Add(lock, std::move(job));
}

JobOutcome CardWriter::WriteNow(const QByteArray& pdf, std::optional<qint64> number)
{
    std::optional<JobOutcome> answer;
    Job job;
    job.Pdf = pdf;
    job.Number = number;
    job.Answer = &answer;
    std::unique_lock lock(m_mutex);
    Add(lock, std::move(job));
    m_taken.wait(lock, [&] { return answer.has_value(); });
    return *answer;
}

void CardWriter::Finish()
{
    std::unique_lock lock(m_mutex);
    for (;;) {
        m_taken.wait(lock, [&] { return m_waiting.empty() && !m_writing; });
        if (m_written.empty())
            return;
        lock.unlock();
        TellWritten();
        lock.lock();
    }
}

void CardWriter::TellWritten()
{
    std::unique_lock lock(m_mutex);
    // Whoever is told may let events run and so get here again, or add a card.
    while (!m_written.empty()) {
        const Job job = std::move(m_written.front());
        m_written.pop_front();
        lock.unlock();
        job.Told(job.Outcome);
        lock.lock();
    }
}

void CardWriter::Work()
{
    std::unique_lock lock(m_mutex);
    for (;;) {
        m_given.wait(lock, [&] { return m_ending || !m_waiting.empty(); });
        if (m_waiting.empty())
            return;
        Jobs jobs = std::exchange(m_waiting, {});
        m_writing = true;
        lock.unlock();
        m_taken.notify_one();
        WriteTogether(jobs);
        lock.lock();
        Report(jobs);
        m_writing = false;
        m_taken.notify_one();
    }
}

void CardWriter::WriteTogether(Jobs& jobs)
{
    for (Job& job : jobs)
        job.Try([&] { PutBytes(job); });
    SyncBytes(jobs);
    for (Job& job : jobs) {
        job.Try([&] {
            job.Outcome.File =
                job.Number ? m_folder.PutAs(*job.Number, *job.File) : m_folder.Put(*job.File);
            job.File.reset();
        });
    }
    SyncNames(jobs);
}

/// Each file is waited for in a thread of its own: a disk takes hardly longer for all of them than
/// for one, and ten times as long for one after the other.
void CardWriter::SyncBytes(Jobs& jobs)
{
    const auto sync = [](Job& job) { job.Try([&] { job.File->Sync(); }); };
    std::vector<std::thread> others;
    for (std::size_t i = 1; i < jobs.size(); ++i) {
        try {
            others.emplace_back([&sync, &job = jobs[i]] { sync(job); });
        } catch (const std::system_error&) {
            sync(jobs[i]);
        }
    }
    sync(jobs.front());
    for (std::thread& other : others)
        other.join();
}

void CardWriter::PutBytes(Job& job)
{
    const QByteArray pdf = std::exchange(job.Pdf, {});
    const auto giveRoom = qScopeGuard([&] {
        const std::lock_guard lock(m_mutex);
        m_bytes -= pdf.size();
        m_taken.notify_one();
    });
    MakeFolderDurably(m_folder.Path());
    job.File = std::make_unique<UnnamedFile>(m_folder.Path());
    job.File->Write(pdf);
    job.File->BeginSync();
}

void CardWriter::SyncNames(Jobs& jobs) const
{
    const auto isNamed = [](const Job& job) { return !job.Outcome.File.isEmpty(); };
    if (std::none_of(jobs.begin(), jobs.end(), isNamed))
        return;
    QString reason;
    try {
        SyncFolder(m_folder.Path());
    } catch (const Failure& failure) {
        reason = ReasonOf(failure);
    }
    for (Job& job : jobs) {
        if (!isNamed(job))
            continue;
        job.Outcome.HandedOver = reason.isEmpty();
        if (!job.Outcome.HandedOver) {
            // A card that is told as failed may be printed again.
            QFile::remove(m_folder.PathOf(job.Outcome.File));
            job.FailWith(reason);
        }
    }
}

void CardWriter::Report(Jobs& jobs)
{
    const bool wasEmpty = m_written.empty();
    for (Job& job : jobs) {
        if (job.Answer != nullptr)
            *job.Answer = job.Outcome;
        else
            m_written.push_back(std::move(job));
    }
    if (wasEmpty && !m_written.empty())
        CallIn(&m_teller, [this] { TellWritten(); });
}

} // namespace vantrel
