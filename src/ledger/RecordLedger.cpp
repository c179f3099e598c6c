#include "ledger/RecordLedger.h"
#include "base/Failure.h"
#include "ledger/LedgerTables.h"
#include "store/Connection.h"
#include "store/StoreDatabase.h"
#include <QCryptographicHash>
#include <QDateTime>
#include <QLoggingCategory>
#include <QMessageAuthenticationCode>
#include <QScopeGuard>
#include <QSet>
#include <algorithm>

namespace vantrel {

namespace {

Q_LOGGING_CATEGORY(ledgerLog, "vantrel.ledger")

/// Characters of what is missing on a card; a page may have any number of objects.
constexpr qsizetype LongestRemark = 1000;
/// Runs that wait to be written while the ledger cannot be; then the oldest are forgotten.
constexpr std::size_t MostRuns = 10'000;

} // namespace

void RecordLedger::Open(Connection& connection, const LedgerTerms& terms)
{
    m_connection = &connection;
    m_terms = terms;
    m_tablesMade = false;
    if (!std::exchange(m_refusal, QString()).isEmpty())
        m_trouble.clear();
    if (!m_terms.On)
        return;
    try {
        MakeTables(connection.Database());
        m_tablesMade = true;
    } catch (const Failure& failure) {
        m_trouble = failure.Text();
        throw;
    }
}

RecordRunPtr RecordLedger::Begin(LedgerEntry entry)
{
    auto run = std::make_shared<RecordRun>();
    run->Entry = std::move(entry);
    if (m_runs.size() >= MostRuns)
        ForgetOldest();
    m_runs.push_back(run);
    return run;
}

// Its host has its answer already.
void RecordLedger::ForgetOldest()
{
    const auto oldest = std::find_if(m_runs.begin(), m_runs.end(), [](const RecordRunPtr& run) {
        return run->IsSettled() && !run->Settled;
    });
    if (oldest == m_runs.end())
        return;
    m_runs.erase(oldest);
    if (m_lost++ == 0)
        qCWarning(ledgerLog) << "The ledger is out of order for too long: the oldest records that "
                                "could not be written are not kept.";
}

RecordRunPtr RecordLedger::Resume(LedgerEntry entry)
{
    RecordRunPtr run = Begin(std::move(entry));
    run->m_entryRow = {.Stored = true, .Dirty = false};
    run->m_wasInLedger = true;
    // Such as were void when a server was lost.
    run->Entry.Cards.clear();
    for (const QString& value : std::exchange(run->Entry.Values, {}))
        run->AddSearchText(value);
    return run;
}

void RecordLedger::SetValues(RecordRun& run, int count,
                             const std::function<QString(int position)>& valueAt,
                             const QString& framing)
{
    LedgerEntry& entry = run.Entry;
    run.m_valuesKnown = true;
    entry.ValueCount = count;
    entry.HasValues = m_terms.KeepValues;
    if (!m_terms.On)
        return;
    if (m_terms.KeepValues) {
        entry.Framing = framing;
        ListWriter list;
        for (int position = 1; position <= count; ++position) {
            const QString value = valueAt(position);
            list.Add(value);
            run.AddSearchText(value);
        }
        run.ValuesText = list.Text();
        return;
    }
    entry.Hash = QString::fromLatin1(
        QMessageAuthenticationCode::hash(entry.Raw, m_terms.HashKey, QCryptographicHash::Sha256)
            .toHex());
    entry.Raw.clear();
}

std::size_t RecordLedger::BeginCard(RecordRun& run, LedgerCard card, const QString& content)
{
    card.Changed = QDateTime::currentMSecsSinceEpoch();
    if (m_terms.On && !content.isEmpty())
        run.m_pages.emplace_back(card.PageHash, content);
    run.m_cardsUnderWay += card.State == LedgerState::Printing ? 1 : 0;
    run.Entry.Cards.push_back(std::move(card));
    run.m_cardRows.emplace_back();
    // The entry is found by the numbers on its cards.
    run.m_entryRow.Dirty = true;
    run.Judge();
    return run.Entry.Cards.size() - 1;
}

void RecordLedger::SetNumbers(RecordRun& run, std::size_t index, const QStringList& numbers)
{
    run.Entry.Cards.at(index).Numbers = numbers;
}

void RecordLedger::RefuseCard(RecordRun& run, std::size_t index, const QString& reason)
{
    LedgerCard& card = run.Entry.Cards.at(index);
    card.Numbers.clear();
    card.PageHash.clear();
    EndCard(run, index, {.State = LedgerState::Failed, .Reason = reason});
}

void RecordLedger::Postpone(RecordRun& run)
{
    run.IsPostponed = true;
    run.Entry.Cards.clear();
    run.m_cardRows.clear();
    run.m_pages.clear();
    run.m_cardsUnderWay = 0;
    run.m_entryRow.Dirty = false;
}

void RecordLedger::NoteOnCard(RecordRun& run, std::size_t index, const QString& remark)
{
    QString& reason = run.Entry.Cards.at(index).Reason;
    if (reason.size() >= LongestRemark)
        return;
    reason += reason.isEmpty() ? remark : QLatin1Char(' ') + remark;
    reason.truncate(LongestRemark);
    run.m_cardRows.at(index).Dirty = true;
}

void RecordLedger::EndCard(RecordRun& run, std::size_t index, const CardOutcome& outcome)
{
    LedgerCard& card = run.Entry.Cards.at(index);
    if (card.State == LedgerState::Printing)
        --run.m_cardsUnderWay;
    card.State = outcome.State;
    if (!outcome.Reason.isEmpty() || outcome.State == LedgerState::Failed)
        card.Reason = outcome.Reason;
    card.Job = outcome.Job;
    card.File = outcome.File;
    card.Changed = QDateTime::currentMSecsSinceEpoch();
    run.m_cardRows.at(index).Dirty = true;
    run.Judge();
    if (!m_terms.On)
        Settle();
}

bool RecordLedger::EndJob(int job, LedgerState state, const QString& reason)
{
    for (const RecordRunPtr& run : m_runs) {
        const auto& cards = run->Entry.Cards;
        const auto card = std::find_if(cards.begin(), cards.end(), [&](const LedgerCard& one) {
            return one.Job == job && one.State == LedgerState::Printed;
        });
        if (card == cards.end())
            continue;
        EndCard(*run, static_cast<std::size_t>(card - cards.begin()),
                {.State = state, .Reason = reason, .Job = job, .File = {}});
        return true;
    }
    return false;
}

void RecordLedger::EndRoad(RecordRun& run)
{
    run.m_roadEnded = true;
    run.Judge();
    if (!m_terms.On)
        Settle();
}

void RecordLedger::Drop(const RecordRunPtr& run)
{
    m_runs.erase(std::remove(m_runs.begin(), m_runs.end(), run), m_runs.end());
}

void RecordLedger::Committed()
{
    m_tablesMade = m_terms.On;
    m_trouble.clear();
    m_doubts.clear();
    const auto commit = [](RowState& row) {
        if (row.IsThere())
            row = {.Stored = true, .Dirty = false};
    };
    for (const RecordRunPtr& run : m_runs) {
        commit(run->m_entryRow);
        std::for_each(run->m_cardRows.begin(), run->m_cardRows.end(), commit);
        run->m_pages.clear();
    }
    Settle();
}

void RecordLedger::RolledBack()
{
    if (m_terms.On && m_connection->IsOpen() && m_connection->Database().IsCommitInDoubt())
        NoteDoubts();
    const auto forget = [](RowState& row, qlonglong& id) {
        if (std::exchange(row.Fresh, false))
            id = 0;
    };
    for (const RecordRunPtr& run : m_runs) {
        forget(run->m_entryRow, run->Entry.Id);
        for (std::size_t i = 0; i < run->m_cardRows.size(); ++i)
            forget(run->m_cardRows[i], run->Entry.Cards[i].Id);
    }
}

/// Settled runs. One that is to be told waits for those of the same source before it, so that a
/// host gets its answers in the order of its records.
std::vector<RecordRunPtr> RecordLedger::RunsToTell() const
{
    std::vector<RecordRunPtr> settled;
    QSet<QString> waiting;
    for (const RecordRunPtr& run : m_runs) {
        const bool waits = run->Settled && waiting.contains(run->Entry.Source);
        if (run->IsSettled() && !waits)
            settled.push_back(run);
        else if (run->Settled)
            waiting.insert(run->Entry.Source);
    }
    return settled;
}

// A settled run's answer may be sent by code that takes the next record, so the list is complete
// before the first one is told.
void RecordLedger::Settle()
{
    const std::vector<RecordRunPtr> settled = RunsToTell();
    if (settled.empty())
        return;
    // Both lists have the same order.
    auto next = settled.begin();
    m_runs.erase(std::remove_if(m_runs.begin(), m_runs.end(),
                                [&](const RecordRunPtr& run) {
                                    const bool isNext = next != settled.end() && run == *next;
                                    next += isNext ? 1 : 0;
                                    return isNext;
                                }),
                 m_runs.end());
    for (const RecordRunPtr& run : settled) {
        if (m_outcome)
            m_outcome(run->Entry);
        if (const auto tell = std::exchange(run->Settled, nullptr))
            tell(run->Entry);
    }
}

void RecordLedger::SettleUnwritten()
{
    std::vector<std::pair<RecordRunPtr, decltype(RecordRun::Settled)>> settled;
    for (const RecordRunPtr& run : RunsToTell()) {
        if (run->Settled)
            settled.emplace_back(run, std::exchange(run->Settled, nullptr));
    }
    for (const auto& [run, tell] : settled)
        tell(run->Entry);
}

bool RecordLedger::HasChanges() const
{
    const auto isDirty = [](const RowState& row) { return row.Dirty; };
    const auto hasChanges = [&](const RecordRunPtr& run) {
        return run->IsComplete() &&
               (isDirty(run->m_entryRow) ||
                std::any_of(run->m_cardRows.begin(), run->m_cardRows.end(), isDirty));
    };
    return m_terms.On && (HasDoubts() || std::any_of(m_runs.begin(), m_runs.end(), hasChanges));
}

bool RecordLedger::HasManyChanges() const
{
    return m_runs.size() >= ManyRuns;
}

void RecordLedger::Flush()
{
    if (!HasChanges())
        return;
    auto rollBack = qScopeGuard([this] {
        m_connection->RollbackTrans();
        RolledBack();
    });
    try {
        m_connection->BeginTransWithNext(LockToWrite());
        Write();
        m_connection->CommitTrans();
    } catch (const Failure& failure) {
        m_trouble = failure.Text();
        throw;
    }
    rollBack.dismiss();
    Committed();
}

} // namespace vantrel
