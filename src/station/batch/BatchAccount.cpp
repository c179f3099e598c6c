#include "station/batch/BatchAccount.h"
#include "base/CsvLine.h"
#include "base/Skip.h"
#include "ledger/LedgerBatches.h"
#include "ledger/LedgerTending.h"
#include "station/batch/NumberBlocks.h"
#include "station/layout/PageDescription.h"
#include "station/ledger/FramingText.h"
#include "station/session/Session.h"
#include "store/StoreDatabase.h"
#include <QDateTime>
#include <QScopeGuard>

namespace vantrel {

namespace {

/// The row as a line of a table: what the ledger keeps as the bytes of the record.
QByteArray BytesOfRow(const BatchRow& row)
{
    CsvLine line;
    for (const QString& value : row.Values)
        line.Add(value);
    return line.Bytes();
}

CardOutcome OutcomeOf(const JobOutcome& job)
{
    CardOutcome outcome;
    outcome.State = job.HandedOver ? LedgerState::Printed : LedgerState::Failed;
    outcome.Reason = job.Reason;
    if (job.JobId != 0)
        outcome.Job = job.JobId;
    return outcome;
}

} // namespace

BatchAccount::BatchAccount(Session& session, BatchTarget target, RowPlan plan, BatchPlace place,
                           int ledgerSession)
    : m_session(session), m_target(std::move(target)), m_plan(std::move(plan)),
      m_place(std::move(place)), m_ledgerSession(ledgerSession), m_pages(PagesWithNumbers(m_plan)),
      m_keepsLedger(session.Options.Ledger)
{}

LedgerCard BatchAccount::CardOf(const Batch& batch, std::size_t row, std::size_t index) const
{
    const PlannedCard& planned = m_plan.at(index);
    LedgerCard card;
    card.Layout = planned.Layout;
    card.Page = planned.Page;
    card.Copy = planned.Copy;
    card.Printer = m_place.Device;
    card.Numbers = NumbersOnCard(batch, m_plan, row, index);
    card.File = m_place.Book;
    if (m_place.FileOf)
        card.File =
            m_place.FileOf(batch.FirstFile + static_cast<qint64>(row * m_plan.size() + index));
    return card;
}

RecordRunPtr BatchAccount::AddRow(const BatchRow& values, const QString& framing)
{
    LedgerEntry entry;
    entry.Received = QDateTime::currentMSecsSinceEpoch();
    entry.Session = m_ledgerSession;
    entry.Source = QStringLiteral("%1:%2").arg(m_place.Source, QString::number(values.Line));
    entry.Layout = m_target.Layout;
    entry.Raw = BytesOfRow(values);
    entry.Length = entry.Raw.size();
    RecordRunPtr run = m_session.Ledger.Begin(std::move(entry));
    m_session.Ledger.SetValues(
        *run, static_cast<int>(values.Values.size()),
        [&](int position) { return values.Values.at(position - 1); }, framing);
    return run;
}

BatchAccount::Runs BatchAccount::AddRows(const Batch& batch)
{
    // Each page is described once for all rows.
    std::vector<PageDescription> pages;
    for (const PlannedCard& card : m_plan) {
        pages.emplace_back();
        Skip("describe page",
             [&] { pages.back() = DescribePage(m_session.LayoutDb, card.Layout, card.Page); });
    }
    const QString framing =
        FramingTextOfRow({.Folder = m_session.Pictures.Folder, .Columns = batch.Columns});
    Runs runs;
    for (std::size_t row = 0; row < batch.Rows.size(); ++row) {
        const RecordRunPtr run = AddRow(batch.Rows[row], framing);
        for (std::size_t index = 0; index < m_plan.size(); ++index) {
            LedgerCard card = CardOf(batch, row, index);
            card.PageHash = pages[index].Hash;
            // The description is written once for all rows of the batch.
            m_session.Ledger.BeginCard(*run, std::move(card),
                                       row == 0 ? pages[index].Content : QString());
        }
        runs.push_back(run);
    }
    return runs;
}

void BatchAccount::Commit(Batch& batch, bool withLedger)
{
    Connection& store = m_session.LayoutDb;
    batch.Numbers = m_pages;
    Runs runs;
    auto undo = qScopeGuard([&] {
        store.RollbackTrans();
        m_session.Ledger.RolledBack();
        Drop(runs);
    });
    store.BeginTrans();
    TakeNumbersOfRows(store, m_plan, batch.Rows.size(), batch.Numbers);
    if (withLedger) {
        runs = AddRows(batch);
        m_session.Ledger.Write();
    }
    store.CommitTrans();
    undo.dismiss();
    if (withLedger) {
        m_session.Ledger.Committed();
        m_runs.emplace(batch.Rows.front().Number, std::move(runs));
    }
}

void BatchAccount::Begin(Batch& batch)
{
    if (m_keepsLedger) {
        try {
            Commit(batch, true);
            return;
        } catch (const Failure& failure) {
            // Without its server there is no card either; when it is back, so is the ledger.
            const bool isAway = !m_session.LayoutDb.Database().Trouble().isEmpty();
            if (m_session.Options.LedgerMust || isAway)
                throw;
            m_keepsLedger = false;
            m_trouble = failure.Text();
        }
    }
    if (!m_pages.empty())
        Commit(batch, false);
}

/// What is known of the row's cards, in memory. In a book a card is printed when the book is
/// closed, so only a failure is known before.
void BatchAccount::NoteResult(RecordRun& run, const RowResult& result)
{
    const bool isInBook = !m_place.Book.isEmpty();
    for (std::size_t index = 0; index < m_plan.size(); ++index) {
        CardOutcome outcome{.State = LedgerState::Failed, .Reason = result.Reason};
        if (index < result.Cards.size())
            outcome = OutcomeOf(result.Cards[index].Job);
        const QString remark = index < result.Cards.size() ? result.Cards[index].Remark : QString();
        if (!remark.isEmpty())
            m_session.Ledger.NoteOnCard(run, index, remark);
        if (isInBook && outcome.State == LedgerState::Printed)
            continue;
        if (outcome.State == LedgerState::Printed)
            outcome.File = run.Entry.Cards[index].File;
        m_session.Ledger.EndCard(run, index, outcome);
    }
    m_session.Ledger.EndRoad(run);
}

void BatchAccount::DropRowsBehind(const Batch& batch, std::size_t used, Runs& runs)
{
    std::vector<qlonglong> ids;
    for (std::size_t row = used; row < runs.size(); ++row)
        ids.push_back(runs[row]->Entry.Id);
    if (used < runs.size())
        Drop({runs.begin() + static_cast<std::ptrdiff_t>(used), runs.end()});
    runs.resize(std::min(used, runs.size()));
    StoreDatabase& database = m_session.LayoutDb.Database();
    RemoveEntries(database, ids);
    GiveNumbersBack(m_session.LayoutDb, batch, used);
}

void BatchAccount::End(const Batch& batch, const std::vector<RowResult>& results)
{
    Runs runs;
    if (auto known = m_runs.extract(batch.Rows.front().Number))
        runs = std::move(known.mapped());
    const auto forget = qScopeGuard([&] { Drop(runs); });
    if (runs.empty() && (m_pages.empty() || results.size() == batch.Rows.size()))
        return;
    for (std::size_t row = 0; row < std::min(results.size(), runs.size()); ++row)
        NoteResult(*runs[row], results[row]);
    Connection& store = m_session.LayoutDb;
    auto rollBack = qScopeGuard([&] {
        store.RollbackTrans();
        m_session.Ledger.RolledBack();
    });
    store.BeginTrans();
    if (results.size() < batch.Rows.size())
        DropRowsBehind(batch, results.size(), runs);
    if (!runs.empty())
        m_session.Ledger.Write();
    store.CommitTrans();
    rollBack.dismiss();
    m_session.Ledger.Committed();
}

void BatchAccount::EndBook(bool isWritten)
{
    const LedgerState state = isWritten ? LedgerState::Printed : LedgerState::Void;
    if (m_session.Options.Ledger)
        EndCardsOf(m_session.LayoutDb.Database(), m_ledgerSession,
                   [state](const LedgerCard&) { return state; });
}

void BatchAccount::Drop(const Runs& runs)
{
    for (const RecordRunPtr& run : runs)
        m_session.Ledger.Drop(run);
}

} // namespace vantrel
