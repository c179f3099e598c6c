#include "base/Failure.h"
#include "ledger/LedgerTables.h"
#include "ledger/RecordLedger.h"
#include "store/Connection.h"
#include "store/StoreDatabase.h"
#include <iterator>

// Writing the changes: each entry, which gets its number or turns out to be void, and what belongs
// to it. All is sent at once, since a server is asked while others wait for what the transaction
// has locked. Descriptions of pages are long and rarely new, so they are sent only where they are
// missing.

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
// Where an entry turns out to be void or another station's, its cards stay as they are.
const QString OfOwnEntry = QStringLiteral(
    " WHERE EXISTS (SELECT 1 FROM LedgerEntries WHERE ID = ? AND State <> 'void' AND "
    "SessionNumber = ?)");
const QString InsertCard = QStringLiteral(
    "INSERT INTO LedgerCards (EntryID, State, Page, Copy, Job, Changed, Layout, Printer, Numbers, "
    "PageHash, File, Reason) SELECT ?, ?, ?, ?, CAST(? AS BIGINT), ?, ?, ?, ?, ?, ?, ?");
const QString UpdateCard =
    QStringLiteral("UPDATE LedgerCards SET State = ?, Job = ?, Changed = ?, File = ?, Reason = ?");
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

/// By this name what belongs to a new entry refers to its number.
constexpr const char* NewEntry = "entry";

StoreStep StepOf(const LedgerEntry& entry, const QString& searchText, bool isNew)
{
    if (!isNew)
        return {Gives::Changed,
                UpdateEntry,
                {NameOf(entry.State), NotNull(entry.Reason), searchText, entry.Id, entry.Session}};
    return {Gives::Added,
            InsertEntry,
            {NameOf(entry.State), entry.Received, entry.Session, OrNull(entry.ReprintOf),
             entry.Length, entry.ValueCount, NotNull(entry.Source), NotNull(entry.Layout),
             NotNull(entry.Reason), NotNull(entry.Hash), searchText},
            NewEntry};
}

/// What a new entry has beside its row.
void AddParts(const RecordRun& run, std::vector<StoreStep>& steps)
{
    const LedgerEntry& entry = run.Entry;
    const auto id = QVariant::fromValue(NumberOfStep{NewEntry});
    if (entry.HasValues) {
        const QByteArray raw = entry.Raw.isNull() ? QByteArray("") : entry.Raw;
        steps.push_back({Gives::Changed,
                         InsertRecord,
                         {id, NotNull(entry.Framing), NotNull(run.ValuesText), raw}});
    }
    if (!entry.Pool.isEmpty())
        steps.push_back({Gives::Changed, InsertIntoPool, {id, entry.Pool}});
}

StoreStep StepOf(const LedgerCard& card)
{
    return {Gives::Changed,
            UpdateCard + QStringLiteral(" WHERE ID = ?"),
            {NameOf(card.State), OrNull(card.Job), card.Changed, NotNull(card.File),
             NotNull(card.Reason), card.Id}};
}

StoreStep StepOf(const LedgerCard& card, const LedgerEntry& entry)
{
    return {Gives::Changed,
            UpdateCard + OfOwnEntry + QStringLiteral(" AND ID = ?"),
            {NameOf(card.State), OrNull(card.Job), card.Changed, NotNull(card.File),
             NotNull(card.Reason), entry.Id, entry.Session, card.Id}};
}

StoreStep NewCard(const LedgerCard& card, const LedgerEntry& entry, bool isOfNewEntry)
{
    QVariantList values{isOfNewEntry ? QVariant::fromValue(NumberOfStep{NewEntry})
                                     : QVariant(entry.Id),
                        NameOf(card.State),
                        card.Page,
                        card.Copy,
                        OrNull(card.Job),
                        card.Changed,
                        NotNull(card.Layout),
                        NotNull(card.Printer),
                        ListText(card.Numbers),
                        NotNull(card.PageHash),
                        NotNull(card.File),
                        NotNull(card.Reason)};
    if (isOfNewEntry)
        return {Gives::Added, InsertCard, values};
    return {Gives::Added, InsertCard + OfOwnEntry, values << entry.Id << entry.Session};
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

/// Adds what a run has to write to a batch, and to `rows` the rows that this gives.
void RecordLedger::AddSteps(RecordRun& run, std::vector<StoreStep>& steps,
                            std::vector<WrittenRow>& rows)
{
    RowState& row = run.m_entryRow;
    const bool isNew = row.Dirty && !row.IsThere();
    if (row.Dirty) {
        rows.push_back({run, row, run.Entry.Id, steps.size()});
        steps.push_back(StepOf(run.Entry, run.SearchText(), isNew));
    }
    if (isNew)
        AddParts(run, steps);
    for (std::size_t i = 0; i < run.m_cardRows.size() && !run.m_void; ++i) {
        RowState& cardRow = run.m_cardRows[i];
        LedgerCard& card = run.Entry.Cards[i];
        if (!cardRow.Dirty)
            continue;
        rows.push_back({run, cardRow, card.Id, steps.size()});
        if (!cardRow.IsThere())
            steps.push_back(NewCard(card, run.Entry, isNew));
        else
            steps.push_back(row.Dirty ? StepOf(card, run.Entry) : StepOf(card));
    }
}

void RecordLedger::WriteRuns(StoreDatabase& database, const std::vector<RecordRun*>& runs)
{
    PageContents pages;
    std::vector<StoreStep> steps;
    std::vector<WrittenRow> rows;
    for (RecordRun* run : runs) {
        AddSteps(*run, steps, rows);
        pages.insert(run->m_pages.begin(), run->m_pages.end());
    }
    const std::size_t firstPage = steps.size();
    for (const auto& [hash, content] : pages)
        steps.push_back({Gives::Found, FindPage, {hash}});
    const std::vector<qlonglong> given = database.RunAll(steps);

    for (const WrittenRow& row : rows) {
        if (row.State.IsThere() && &row.State == &row.Run.m_entryRow)
            row.Run.m_void = given[row.Step] == 0;
        else if (!row.State.IsThere() && !row.Run.m_void) {
            row.Id = given[row.Step];
            row.State.Fresh = true;
        }
    }
    auto found = given.begin() + static_cast<std::ptrdiff_t>(firstPage);
    std::erase_if(pages, [&](const auto& /*page*/) { return *found++ != 0; });
    steps.clear();
    for (const auto& [hash, content] : pages)
        steps.push_back({Gives::Changed, InsertPage, {hash, content}});
    database.RunAll(steps);
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
