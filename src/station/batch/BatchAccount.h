#pragma once

#include "ledger/RecordRun.h"
#include "station/batch/Batch.h"
#include <functional>
#include <map>
#include <optional>

namespace vantrel {

class Session;

/// Where the cards of a run go, as the ledger tells it.
struct BatchPlace
{
    /// What the rows came from, such as "members.csv".
    QString Source;
    /// Name of the printer.
    QString Device;
    /// The path of the file with this number; empty where cards have no files of their own.
    std::function<QString(qint64 number)> FileOf;
    /// The path of the one file for all cards; empty where there is none.
    QString Book;
};

/// Takes the numbers of batches from the store and keeps their rows in the ledger, where the
/// session has one. One durable commit before a batch is printed holds both, so whatever is killed
/// whenever, a number is given at most once and the ledger has every card that may exist.
class BatchAccount
{
public:
    /// @param session  with the store, the options and the ledger open; must outlive this object
    /// @param ledgerSession  the session number of the entries
    BatchAccount(Session& session, BatchTarget target, RowPlan plan, BatchPlace place,
                 int ledgerSession);

    /// Takes the numbers of a batch and adds its rows to the ledger, durably. Fails with a
    /// `Failure` and nothing changed if the numbers cannot be taken, or if the ledger cannot be
    /// written and must be, or the server that keeps the store is away. A ledger that need not be
    /// kept is left out from then on, see `Trouble`.
    void Begin(Batch& batch);
    /// Notes the results of a batch, durably. The numbers of rows without a result are given back.
    /// Fails like `Connection` if that cannot be written; the cards are printed all the same.
    void End(const Batch& batch, const std::vector<RowResult>& results);
    /// Notes that the book is closed: its cards are printed, or void if there is no file.
    void EndBook(bool isWritten);
    /// Why the ledger is not kept any more; empty if it is.
    const QString& Trouble() const { return m_trouble; }

private:
    using Runs = std::vector<RecordRunPtr>;

    Runs AddRows(const Batch& batch);
    RecordRunPtr AddRow(const BatchRow& values, const QString& framing);
    LedgerCard CardOf(const Batch& batch, std::size_t row, std::size_t index) const;
    void Commit(Batch& batch, bool withLedger);
    void NoteResult(RecordRun& run, const RowResult& result);
    void DropRowsBehind(const Batch& batch, std::size_t used, Runs& runs);
    void Drop(const Runs& runs);

    Session& m_session;
    BatchTarget m_target;
    RowPlan m_plan;
    BatchPlace m_place;
    int m_ledgerSession;
    std::vector<PageNumbers> m_pages;
    bool m_keepsLedger;
    QString m_trouble;
    /// Of the batches under way, by the number of their first row.
    std::map<qint64, Runs> m_runs;
};

} // namespace vantrel
