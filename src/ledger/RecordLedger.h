#pragma once

#include "ledger/RecordRun.h"
#include "store/StoreLock.h"
#include <map>

namespace vantrel {

class Connection;
class StoreDatabase;
struct StoreStep;

/// How a station keeps its ledger.
struct LedgerTerms
{
    /// If false nothing is written; runs are followed in memory only, for the answers to hosts.
    bool On = false;
    bool KeepValues = true;
    /// Key of the hash that stands for a record whose values are not kept.
    QByteArray HashKey;
};

/// What became of a card.
struct CardOutcome
{
    LedgerState State = LedgerState::Printed;
    QString Reason = {};
    std::optional<int> Job = {};
    QString File = {};
};

/// The writing side of the ledger. Changes are collected in memory and written together: before a
/// page is drawn, and when no record is waiting. So a burst of records costs about one commit for
/// each card. A change that could not be written stays and is written with the next ones; of more
/// than ten thousand records that wait so, the oldest are forgotten.
class RecordLedger
{
public:
    /// Starts to keep the ledger in the database of `connection`, which must outlive this object.
    /// Makes the tables if they are missing. Fails like `StoreDatabase`; the ledger is on all the
    /// same and tries again with each change.
    void Open(Connection& connection, const LedgerTerms& terms);
    bool IsOn() const { return m_terms.On; }
    /// Writes nothing until the ledger is opened again.
    void Refuse(const QString& reason) { m_trouble = m_refusal = reason; }
    bool IsRefused() const { return !m_refusal.isEmpty(); }
    bool KeepsValues() const { return m_terms.KeepValues; }

    /// Called once with each entry whose outcome is known and, where a ledger is kept, stored.
    void OnOutcome(std::function<void(const LedgerEntry&)> listener)
    {
        m_outcome = std::move(listener);
    }

    /// Takes a record onto its road. It is written once its values are set or its first card is
    /// begun.
    RecordRunPtr Begin(LedgerEntry entry);
    /// Takes an entry that is in the database onto its road.
    RecordRunPtr Resume(LedgerEntry entry);
    /// Sets the values of a record, once they are known.
    /// @param valueAt  the value at a position from 1 to `count`
    /// @param framing  the delimiters and filters that gave them, as JSON
    void SetValues(RecordRun& run, int count, const std::function<QString(int position)>& valueAt,
                   const QString& framing);
    /// Adds a card that begins.
    /// @param content  the page's description, see `LedgerPages`; may be empty
    /// @return its index in the run's entry
    std::size_t BeginCard(RecordRun& run, LedgerCard card, const QString& content);
    /// Sets the numbers of a card that is not written yet.
    void SetNumbers(RecordRun& run, std::size_t index, const QStringList& numbers);
    /// Leaves a run as it was before its cards were begun, see `RecordRun::MayBePostponed`.
    void Postpone(RecordRun& run);
    /// Adds to a card's reason what is missing on it although it is printed. The reason has at most
    /// a thousand characters; what comes then is left out.
    void NoteOnCard(RecordRun& run, std::size_t index, const QString& remark);
    /// Notes the outcome of a card. Where it has no reason, what was noted on the card stays.
    void EndCard(RecordRun& run, std::size_t index, const CardOutcome& outcome);
    /// Notes that a card has failed before it was drawn. It has no number and no page then, so that
    /// printing it again makes it as new. Nothing of it may be in the database.
    void RefuseCard(RecordRun& run, std::size_t index, const QString& reason);
    /// Notes how a job has ended at the print server, if its card belongs to a record that is still
    /// on its road or not written yet. @return false if it does not
    bool EndJob(int job, LedgerState state, const QString& reason);
    /// Must be called when no further card of the record will begin.
    void EndRoad(RecordRun& run);
    /// Forgets a record that is not taken after all. Nothing of it may be in the database.
    void Drop(const RecordRunPtr& run);

    /// What a transaction must lock that `Write` is called in: its own rows, or the whole store
    /// where that is not enough.
    StoreLock LockToWrite() const;
    /// Writes all changes inside the transaction that is open on the connection. Fails like
    /// `StoreDatabase`. `Committed` or `RolledBack` must be called once it has ended.
    void Write();
    /// Called after the transaction was committed: settles the runs whose outcome it holds.
    void Committed();
    /// Called after it was not. Where the server was lost while it committed, what may be in the
    /// database all the same is declared void by the next `Write`, before anything else; a record
    /// that was left to a pool is then not written again, since another station may print it.
    void RolledBack();
    /// Whether there may be rows in the database that this ledger does not count on.
    bool HasDoubts() const { return !m_doubts.empty(); }
    /// Notes why a transaction that the ledger was written in has failed.
    void NoteTrouble(const QString& reason) { m_trouble = reason; }
    /// Writes all changes in a transaction of their own and commits it durably. Fails like
    /// `Connection`; the changes then stay.
    void Flush();
    /// Settles runs whose outcome could not be written, so that their hosts need not wait for a
    /// ledger that is out of order. Their entries stay to be written.
    void SettleUnwritten();
    /// How many entries were forgotten since the last call.
    qlonglong TakeLostCount() { return std::exchange(m_lost, 0); }
    /// Whether there are changes that are not in the database.
    bool HasChanges() const;
    /// Whether so many records wait to be written that they should wait no longer.
    bool HasManyChanges() const;
    /// Why the last attempt to write failed; empty if it did not.
    const QString& Trouble() const { return m_trouble; }

    /// Records on their road, and settled ones that are not written yet.
    const std::vector<RecordRunPtr>& Runs() const { return m_runs; }

private:
    /// A row that a transaction has written of which it is unknown whether it was committed.
    struct Doubt
    {
        enum class Of { NewEntry, NewCard, WaitingEntry, PoolEntry } Row;
        qlonglong Id = 0;
        /// The record of a `PoolEntry`.
        RecordRunPtr Run = {};
    };

    /// Runs whose outcome is written at the latest with the next change.
    static constexpr std::size_t ManyRuns = 64;
    /// Descriptions of pages by their keys, in whose order they are added: where stations add the
    /// same ones at once, one waits for the other then, and never both.
    using PageContents = std::map<QString, QString>;

    void ForgetOldest();
    void NoteDoubts();
    void EndDoubts(StoreDatabase& database);
    static void MakeTables(StoreDatabase& database);
    /// A row of an entry or a card that a statement writes.
    struct WrittenRow
    {
        RecordRun& Run;
        RowState& State;
        qlonglong& Id;
        /// The statement's index in its batch.
        std::size_t Step;
    };

    static void AddSteps(RecordRun& run, std::vector<StoreStep>& steps,
                         std::vector<WrittenRow>& rows);
    static void WriteRuns(StoreDatabase& database, const std::vector<RecordRun*>& runs);
    std::vector<RecordRunPtr> RunsToTell() const;
    void Settle();

    Connection* m_connection = nullptr;
    LedgerTerms m_terms;
    std::vector<RecordRunPtr> m_runs;
    std::function<void(const LedgerEntry&)> m_outcome;
    QString m_trouble;
    QString m_refusal;
    bool m_tablesMade = false;
    std::vector<Doubt> m_doubts;
    qlonglong m_lost = 0;
};

} // namespace vantrel
