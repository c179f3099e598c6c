#include "console/StoreThread.h"
#include "base/CallIn.h"
#include "base/Failure.h"
#include "console/ConsoleStore.h"
#include "console/Query.h"

namespace vantrel::console {

namespace {

constexpr int MostWaiting = 200;

/// @param trouble  what keeps the console from answering, empty if there is much to do
Answer NotNow(const QString& trouble = {})
{
    Answer refusal =
        Refusal(503, trouble.isEmpty() ? QStringLiteral("The console is busy.") : trouble);
    refusal.Headers.emplace_back("Retry-After", "2");
    return refusal;
}

Answer AnswerOf(const StoreThread::Work& work, ConsoleStore& store)
{
    try {
        store.BeginAnswer();
        return work(store);
    } catch (const NotTaken& refusal) {
        return Refusal(refusal.Status, refusal.Reason);
    } catch (const Failure& failure) {
        if (failure.Number() == FailureNumber::StoreBusy)
            return NotNow(store.Database().Trouble());
        // What an entry does not allow.
        if (failure.Number() == FailureNumber::InvalidCall)
            return Refusal(409, failure.Text());
        return Refusal(500, failure.Text());
    }
}

} // namespace

StoreThread::StoreThread(ConsoleStore& store) : m_store(store)
{
    m_worker.moveToThread(&m_thread);
    m_thread.start();
}

StoreThread::~StoreThread()
{
    m_ends = true;
    EndThread(m_thread);
}

void StoreThread::Ask(Work work, std::function<void(Answer)> done)
{
    if (m_waiting >= MostWaiting) {
        done(NotNow());
        return;
    }
    ++m_waiting;
    const auto run = [this, work = std::move(work), done = std::move(done)] {
        if (m_ends)
            return;
        const auto tell = [this, answer = AnswerOf(work, m_store), done] {
            --m_waiting;
            done(answer);
        };
        CallIn(this, tell);
    };
    CallIn(&m_worker, run);
}

void StoreThread::Do(std::function<void(ConsoleStore&)> work)
{
    const auto run = [this, work = std::move(work)] {
        if (!m_ends)
            work(m_store);
    };
    CallIn(&m_worker, run);
}

} // namespace vantrel::console
