#pragma once

#include "PrintOptions.h"
#include "Progress.h"
#include "RunLocks.h"
#include "Workers.h"
#include "base/ByteSource.h"
#include "printers/BookPrinter.h"
#include "printers/DryPrinter.h"
#include "printers/PdfPrinter.h"
#include "printers/StationPrinters.h"
#include "station/batch/BatchAccount.h"
#include "station/batch/BatchPrinters.h"
#include "station/batch/RowPrinter.h"
#include "station/session/Session.h"
#include "station/session/UnattendedOperator.h"
#include <atomic>
#include <map>
#include <memory>

namespace vantrel::print {

/// Why a row is not drawn, where the store does not say more.
inline constexpr QLatin1StringView StoreAway{"The store is away."};

/// The session in which rows are drawn, without ports and windows.
class PrintSession
{
public:
    /// Opens the store and the settings of the program folder. Fails with `FileNotFound` if it has
    /// no layout database.
    explicit PrintSession(const PrintOptions& options);

    DryPrinter Dry;
    BatchPrinters Printers;
    UnattendedOperator Operator;
    vantrel::Session Session;
};

/// How a run has ended.
struct RunEnd
{
    qint64 Printed = 0;
    qint64 Failed = 0;
    bool IsInterrupted = false;
    /// Why the run stopped before the last row; empty if it did not.
    QString Trouble;
    /// The first row that was not begun, where the run stopped.
    qint64 NextRow = 0;
};

/// What was made before the run began, because processes share it.
struct RunTools
{
    /// Null if the run is to take them itself.
    std::unique_ptr<RunLocks> Locks;
    /// Null if this process prints.
    vantrel::print::Workers* Workers = nullptr;
};

/// Prints the rows of a file.
class PrintRun
{
public:
    /// Checks all that can be checked before the first row. Fails with a `Failure` and one plain
    /// line; nothing is begun then.
    /// @param tools  made for `options`
    /// @param stop  set by a signal
    PrintRun(const PrintOptions& options, RunTools tools, const std::atomic<bool>& stop,
             Progress& progress);
    ~PrintRun();

    /// Prints. Never fails: what failed is told and counted.
    RunEnd Print();
    /// Where the cards are, for people.
    QString PlaceText() const;

private:
    void TellPicturesWithoutValue();
    void OpenPlace();
    RowFormat Format() const;
    qsizetype ReadSome(char* to, qsizetype most);
    bool IsStopped() const;
    /// Why rows of a batch were not begun, where nobody asked to stop.
    QString WhyNoFurtherRow();
    bool TakeRow();
    void PrintBatch();
    void PrintHere(const Batch& batch);
    void TakeResults();
    std::vector<RowResult> LostResults(const Batch& batch) const;
    void Note(const Batch& batch, const std::vector<RowResult>& results);
    void CloseBook(bool isWhole);
    void Tell(const RowResult& result);
    void StopIfAllFail(qint64 row);
    void TellFailed(const QString& line);
    void TellLedgerTrouble();
    void ShowProgress(qint64 row);

    const PrintOptions& m_options;
    std::unique_ptr<RunLocks> m_locks;
    Workers* m_workers;
    const std::atomic<bool>& m_stop;
    Progress& m_progress;

    PrintSession m_session;
    std::unique_ptr<RowPrinter> m_printer;
    RowPlan m_plan;
    std::unique_ptr<BatchAccount> m_account;
    // One of these, as the place is.
    std::unique_ptr<PdfPrinter> m_folder;
    std::unique_ptr<BookPrinter> m_book;
    std::unique_ptr<StationPrinters> m_machine;
    QString m_path;
    qint64 m_nextFile = 1;

    ByteSource m_source;
    std::unique_ptr<RowSource> m_rows;
    qint64 m_bytes = 0;
    qint64 m_allBytes = -1;
    Batch m_batch;
    qsizetype m_batchCharacters = 0;
    /// Batches that workers print, by the number of their first row.
    std::map<qint64, Batch> m_underWay;
    /// Whether no further row is to be read.
    bool m_isAtEnd = false;
    bool m_isTroubleTold = false;
    /// Rows that failed since the last one that printed, and the first of them.
    qint64 m_failedInARow = 0;
    qint64 m_firstFailed = 0;
    RunEnd m_end;
};

/// The work of a worker for these options.
Workers::Work MakeWork(const PrintOptions& options);

/// The folder for the cards where a run has one.
QString FolderOf(const PrintOptions& options);

} // namespace vantrel::print
