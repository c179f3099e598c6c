#pragma once

#include "station/batch/Batch.h"
#include "station/session/CardKeeper.h"
#include <functional>
#include <memory>

namespace vantrel {

class Session;

/// Prints the rows of batches in one process, by the rules of a record whose values are the row's,
/// whether or not its layout prints automatically. Writes nothing into the store: the numbers come
/// with the batch.
class RowPrinter : private CardKeeper
{
public:
    /// Opens the layout.
    /// @param session  must outlive this object, like its printers; nothing else may use it
    /// meanwhile
    /// Fails with `ItemNotFound` if there is no such layout or macro.
    RowPrinter(Session& session, BatchTarget target);
    RowPrinter(const RowPrinter&) = delete;
    RowPrinter& operator=(const RowPrinter&) = delete;
    ~RowPrinter() override;

    /// The cards that a row becomes, found by drawing one without values. Fails with `InvalidCall`
    /// and a plain text if that is none. The current printer should be a `DryPrinter`.
    RowPlan Plan();

    /// Sets what is called with the number of the file before each card that has one of its own.
    void NumberFiles(std::function<void(qint64 number)> next) { m_numberFile = std::move(next); }

    /// Prints the rows of a batch in their order. Ends before a row that cannot be drawn because
    /// the server that keeps the store is away (`StoreDatabase::Trouble`).
    /// @param plan  of the rows; a row whose cards differ from it fails
    /// @param begin  called before each row with its index in the batch; returns false to print no
    /// further row
    /// @param finish  called behind the last row; must wait until the outcomes of all jobs are told
    /// @return the results of the rows that were begun
    std::vector<RowResult> Print(const Batch& batch, const RowPlan& plan,
                                 const std::function<bool(std::size_t row)>& begin,
                                 const std::function<void()>& finish);

private:
    bool Begin(const QString& layoutName, std::int16_t page, CardDocument& document) override;
    void Note(const QString& remark) override;
    void End(Printer& printer) override;

    bool TakeNextOfPlan(const QString& layoutName, std::int16_t page, CardDocument& document);
    void PrintValues(const QStringList& values);
    /// Prints one row. @return false if nothing of it was drawn, since the store is away
    bool PrintRow(const BatchRow& row);
    void DrawRow(const BatchRow& row);
    /// Completes the reason of a row from its cards.
    void Judge(RowResult& result) const;

    Session& m_session;
    BatchTarget m_target;

    std::function<void(qint64 number)> m_numberFile;
    /// The plan being made, or null.
    RowPlan* m_newPlan = nullptr;
    /// The row in hand.
    const Batch* m_batch = nullptr;
    const RowPlan* m_plan = nullptr;
    std::size_t m_row = 0;
    std::size_t m_next = 0;
    std::shared_ptr<std::vector<RowResult>> m_results;
};

} // namespace vantrel
