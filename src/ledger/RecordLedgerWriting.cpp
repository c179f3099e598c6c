#include "base/Failure.h"
#include "ledger/LedgerTables.h"
#include "ledger/RecordLedger.h"
#include "store/Connection.h"
#include "store/StoreDatabase.h"
#include <iterator>

// Writing the changes: first the entries, which get their numbers or turn out to be void, then what
// belongs to them. All of each is sent at once, since a server is asked while others wait for what
// the transaction has locked.

namespace vantrel {

namespace {

using Gives = StoreStep::Gives;

const QString InsertEntry = QStringLiteral(
    "INSERT INTO LedgerEntries (State, Received, SessionNumber, ReprintOf, Length, ValueCount, "
    "Source, Layout, Reason, Hash, SearchText) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
const QString InsertRecord = QStringLiteral(
    "INSERT INTO LedgerRecords (EntryID, Framing, RecordValues, Raw) VALUES (?, ?, ?, ?)");
const QString UpdateEntry = QStringLiteral(
    "UPDATE LedgerEntries SET State = ?, Reason = ?, SearchText = ? WHERE ID = ? AND State <> "
    "'void' AND SessionNumber = ?");
const QString InsertIntoPool =
    QStringLiteral("INSERT INTO LedgerPools (EntryID, Pool) VALUES (?, ?)");
const QString InsertCard = QStringLiteral(
    "INSERT INTO LedgerCards (EntryID, State, Page, Copy, Job, Changed, Layout, Printer, Numbers, "
    "PageHash, File, Reason) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
const QString UpdateCard = QStringLiteral(
    "UPDATE LedgerCards SET State = ?, Job = ?, Changed = ?, File = ?, Reason = ? WHERE ID = ?");
const QString FindPage = QStringLiteral("SELECT 1 FROM LedgerPages WHERE Hash = ?");
// Another station may print the same page for the first time at the same moment.
const QString InsertPage = QStringLiteral(
    "INSERT INTO LedgerPages (Hash, Content) VALUES (?, ?) ON CONFLICT (Hash) DO NOTHING");

/// A text column must not be null, and a null `QString` would be.
QString NotNull(const QString& text)
{
    return text.isNull() ? QStringLiteral("") : text;
}

QVariant OrNull(const auto& value)
{
    return value ? QVariant(*value) : QVariant();
}

StoreStep StepOf(const LedgerEntry& entry, const QString& searchText)
{
    return {Gives::Added,
            InsertEntry,
            {NameOf(entry.State), entry.Received, entry.Session, OrNull(entry.ReprintOf),
             entry.Length, entry.ValueCount, NotNull(entry.Source), NotNull(entry.Layout),
             NotNull(entry.Reason), NotNull(entry.Hash), searchText}};
}

/// What a new entry has beside its row.
void AddParts(const RecordRun& run, std::vector<StoreStep>& steps)
{
    const LedgerEntry& entry = run.Entry;
    if (entry.HasValues) {
        const QByteArray raw = entry.Raw.isNull() ? QByteArray("") : entry.Raw;
        steps.push_back({Gives::Changed,
                         InsertRecord,
                         {entry.Id, NotNull(entry.Framing), NotNull(run.ValuesText), raw}});
    }
    if (!entry.Pool.isEmpty())
        steps.push_back({Gives::Changed, InsertIntoPool, {entry.Id, entry.Pool}});
}

StoreStep StepOf(const LedgerCard& card, qlonglong entry, bool isNew)
{
    if (!isNew)
        return {Gives::Changed,
                UpdateCard,
                {NameOf(card.State), OrNull(card.Job), card.Changed, NotNull(card.File),
                 NotNull(card.Reason), card.Id}};
    return {Gives::Added,
            InsertCard,
            {entry, NameOf(card.State), card.Page, card.Copy, OrNull(card.Job), card.Changed,
             NotNull(card.Layout), NotNull(card.Printer), ListText(card.Numbers),
             NotNull(card.PageHash), NotNull(card.File), NotNull(card.Reason)}};
}

} // namespace

void RecordLedger::MakeTables(StoreDatabase& database)
{
    MakeLedgerTables(database);
    // Removed entries must leave nothing behind in the file.
    database.OverwriteDeleted();
}

// While it is unknown whether a transaction was committed, it may still be under way at the server.
// Of many records the pages are not all added in one order.
StoreLock RecordLedger::LockToWrite() const
{
    return HasDoubts() || !m_tablesMade || HasManyChanges() ? StoreLock::OfStore()
                                                            : StoreLock::OfOwnRows();
}

/// Writes the rows of the entries, and looks which pages are there: these are taken out of `pages`.
/// @return the runs whose entry is new
std::vector<RecordRun*> RecordLedger::WriteEntries(StoreDatabase& database,
                                                   const std::vector<RecordRun*>& runs,
                                                   PageContents& pages)
{
    std::vector<StoreStep> steps;
    std::vector<RecordRun*> written;
    for (RecordRun* run : runs) {
        const LedgerEntry& entry = run->Entry;
        const RowState& row = run->m_entryRow;
        if (!row.Dirty)
            continue;
        written.push_back(run);
        if (row.Stored || row.Fresh)
            steps.push_back({Gives::Changed,
                             UpdateEntry,
                             {NameOf(entry.State), NotNull(entry.Reason), run->SearchText(),
                              entry.Id, entry.Session}});
        else
            steps.push_back(StepOf(entry, run->SearchText()));
    }
    for (const auto& [hash, content] : pages)
        steps.push_back({Gives::Found, FindPage, {hash}});
    const std::vector<qlonglong> given = database.RunAll(steps);

    auto found = given.begin() + std::ssize(written);
    std::erase_if(pages, [&](const auto& /*page*/) { return *found++ != 0; });
    std::vector<RecordRun*> added;
    for (std::size_t i = 0; i < written.size(); ++i) {
        RecordRun& run = *written[i];
        RowState& row = run.m_entryRow;
        if (row.Stored || row.Fresh) {
            run.m_void = given[i] == 0;
            continue;
        }
        run.Entry.Id = given[i];
        row.Fresh = true;
        added.push_back(&run);
    }
    return added;
}

void RecordLedger::WriteParts(StoreDatabase& database, const std::vector<RecordRun*>& runs,
                              const std::vector<RecordRun*>& added, const PageContents& newPages)
{
    std::vector<StoreStep> steps;
    for (const auto& [hash, content] : newPages)
        steps.push_back({Gives::Changed, InsertPage, {hash, content}});
    for (const RecordRun* run : added)
        AddParts(*run, steps);
    std::vector<std::pair<LedgerCard*, RowState*>> cards;
    const std::size_t firstCard = steps.size();
    for (RecordRun* run : runs) {
        for (std::size_t i = 0; i < run->m_cardRows.size() && !run->m_void; ++i) {
            RowState& row = run->m_cardRows[i];
            if (!row.Dirty)
                continue;
            LedgerCard& card = run->Entry.Cards[i];
            steps.push_back(StepOf(card, run->Entry.Id, !row.Stored && !row.Fresh));
            cards.emplace_back(&card, &row);
        }
    }
    const std::vector<qlonglong> given = database.RunAll(steps);
    for (std::size_t i = 0; i < cards.size(); ++i) {
        const auto& [card, row] = cards[i];
        if (row->Stored || row->Fresh)
            continue;
        card->Id = given[firstCard + i];
        row->Fresh = true;
    }
}

void RecordLedger::WriteRuns(StoreDatabase& database, const std::vector<RecordRun*>& runs)
{
    PageContents pages;
    for (const RecordRun* run : runs)
        pages.insert(run->m_pages.begin(), run->m_pages.end());
    const std::vector<RecordRun*> added = WriteEntries(database, runs, pages);
    WriteParts(database, runs, added, pages);
}

void RecordLedger::Write()
{
    if (!m_terms.On)
        return;
    try {
        if (IsRefused())
            throw Failure(FailureNumber::InvalidCall, m_refusal);
        StoreDatabase& database = m_connection->Database();
        if (!m_tablesMade)
            MakeTables(database);
        EndDoubts(database);
        std::vector<RecordRun*> runs;
        for (const RecordRunPtr& run : m_runs) {
            if (!run->IsComplete())
                continue;
            runs.push_back(run.get());
            // While the ledger is out of order, the first of them show it.
            if (runs.size() == ManyRuns)
                WriteRuns(database, std::exchange(runs, {}));
        }
        WriteRuns(database, runs);
    } catch (const Failure& failure) {
        m_trouble = failure.Text();
        // Somebody may have removed a table.
        m_tablesMade = false;
        throw;
    }
}

} // namespace vantrel
