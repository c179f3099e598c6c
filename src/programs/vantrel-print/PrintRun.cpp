#include "PrintRun.h"
#include "ledger/LedgerTables.h"
#include "printers/CardFolder.h"
#include "station/batch/FolderLedger.h"
#include "station/batch/RowPictures.h"
#include "station/session/Settings.h"
#include "store/StoreDatabase.h"
#include <QFileInfo>
#include <algorithm>
#include <poll.h>
#include <sys/stat.h>

namespace vantrel::print {

namespace {

/// Rows of a batch: few enough that an interrupt is soon obeyed, enough that a commit for each
/// batch costs little.
constexpr std::size_t RowsAtOnce = 64;
constexpr qsizetype CharactersAtOnce = qsizetype{1} << 20;
constexpr int WaitMilliseconds = 200;
constexpr qint64 MostFailedInARow = 64;

QString NameOfFile(const QString& path)
{
    return path == QStringLiteral("-") ? QStringLiteral("standard input")
                                       : QFileInfo(path).fileName();
}

QString SentenceOf(const QString& text)
{
    return text.endsWith(u'.') ? text : text + u'.';
}

QString ReasonText(const Failure& failure)
{
    return SentenceOf(ReasonOf(failure));
}

} // namespace

PrintRun::PrintRun(const PrintOptions& options, RunTools tools, const std::atomic<bool>& stop,
                   Progress& progress)
    : m_options(options), m_locks(std::move(tools.Locks)), m_workers(tools.Workers), m_stop(stop),
      m_progress(progress), m_session(options), m_source(options.File)
{
    Session& session = m_session.Session;
    m_printer = std::make_unique<RowPrinter>(session, options.Target);
    m_plan = m_printer->Plan();
    struct stat file = {};
    if (::fstat(m_source.Descriptor(), &file) == 0 && S_ISREG(file.st_mode))
        m_allBytes = file.st_size;
    m_rows = std::make_unique<RowSource>(
        [this](char* to, qsizetype most) { return ReadSome(to, most); }, Format());
    TellPicturesWithoutValue();
    if (options.IsDryRun)
        return;
    BatchPlace place{.Source = NameOfFile(options.File), .Device = {}, .FileOf = {}, .Book = {}};
    if (!m_locks)
        m_locks = std::make_unique<RunLocks>(options);
    OpenPlace();
    place.Device = m_session.Printers.Current().DeviceName();
    if (m_folder)
        place.FileOf = [folder = CardFolder(m_path)](qint64 number) {
            return folder.PathOf(CardFolder::FileNameOf(number));
        };
    if (m_book)
        place.Book = m_path;
    if (session.Options.Ledger) {
        OpenLedgerOfRun(session);
        EndDeadRuns(session.ProgramFolder, session.LayoutDb.Database());
        // Its session number may be that of a run that was killed.
        if (HasLedger(session.LayoutDb.Database()))
            EndCardsOfRun(session.LayoutDb.Database(), m_locks->LedgerSession());
    }
    m_account = std::make_unique<BatchAccount>(session, options.Target, m_plan, std::move(place),
                                               m_locks->LedgerSession());
}

PrintRun::~PrintRun() = default;

/// A misspelt name of a column would cost each card its picture, and no row would have failed.
void PrintRun::TellPicturesWithoutValue()
{
    PictureSource source = m_session.Session.Pictures;
    source.Columns = m_rows->Names();
    for (const QString& path : PathsWithoutValue(m_session.Session.LayoutDb, m_plan, source))
        m_progress.Tell(QStringLiteral("vantrel-print: The picture %1 is on no card: there is no "
                                       "such file, and no value or column of that name.")
                            .arg(path));
}

void PrintRun::OpenPlace()
{
    const QString settings = SettingsPath(m_session.Session.ProgramFolder);
    switch (m_options.Place) {
    case Place::Folder:
        m_path = FolderOf(m_options);
        m_nextFile = CardFolder(m_path).HighestNumber() + 1;
        m_folder = std::make_unique<PdfPrinter>(m_path);
        m_folder->FollowSetup(settings);
        m_folder->SetDurable(m_session.Session.Options.Ledger);
        m_printer->NumberFiles([this](qint64 number) { m_folder->CountFrom(number); });
        m_session.Printers.Use(*m_folder);
        break;
    case Place::Book:
        m_path = QFileInfo(m_options.PlaceName).absoluteFilePath();
        m_book = std::make_unique<BookPrinter>(m_path);
        m_book->FollowSetup(settings);
        m_session.Printers.Use(*m_book);
        break;
    case Place::Printer:
        m_path = m_options.PlaceName;
        m_machine = std::make_unique<StationPrinters>(m_session.Session.ProgramFolder, 1);
        m_machine->MakeCurrent(m_path);
        m_session.Printers.Use(m_machine->Current());
        break;
    }
}

QString PrintRun::PlaceText() const
{
    return m_options.IsDryRun ? QString() : m_path;
}

RowFormat PrintRun::Format() const
{
    RowFormat format;
    format.HasHeader = m_options.HasHeader;
    format.Columns = m_options.Columns;
    const Session& session = m_session.Session;
    if (m_options.Written == PrintOptions::Format::Records) {
        RecordFormat records;
        records.Delimiters = session.Settings.Framing;
        records.Filters = session.Settings.Filters;
        records.Encoding = m_options.Encoding.value_or(session.Options.Encoding);
        format.Written = records;
        return format;
    }
    TableFormat table;
    table.Separator = m_options.Written == PrintOptions::Format::Tsv ? '\t' : ',';
    table.Encoding = m_options.Encoding.value_or(InputEncoding::Utf8);
    format.Written = table;
    return format;
}

/// Reads bytes of the file. What was read before is printed before it waits for more.
qsizetype PrintRun::ReadSome(char* to, qsizetype most)
{
    pollfd file{.fd = m_source.Descriptor(), .events = POLLIN, .revents = 0};
    if (::poll(&file, 1, 0) == 0) {
        PrintBatch();
        while (m_workers != nullptr && m_workers->IsBusy())
            TakeResults();
    }
    while (!m_stop && ::poll(&file, 1, WaitMilliseconds) <= 0)
        continue;
    if (m_stop)
        throw Failure(FailureNumber::InvalidCall, QStringLiteral("Interrupted."));
    const qsizetype count = m_source.Read(to, most);
    m_bytes += count;
    return count;
}

RunEnd PrintRun::Print()
{
    while (!IsStopped() && TakeRow()) {
        if (m_batch.Rows.size() >= RowsAtOnce || m_batchCharacters >= CharactersAtOnce)
            PrintBatch();
    }
    if (!IsStopped())
        PrintBatch();
    while (m_workers != nullptr && m_workers->IsBusy())
        TakeResults();
    // Rows may be left of the last batch, too, behind which the file has ended.
    const bool isCutOff = !m_isAtEnd || !m_batch.Rows.empty() || m_end.NextRow > 0;
    m_end.IsInterrupted = m_stop && isCutOff;
    if (isCutOff && m_end.NextRow == 0)
        m_end.NextRow = m_batch.Rows.empty() ? m_rows->Number() + 1 : m_batch.Rows.front().Number;
    if (isCutOff)
        m_end.NextRow = std::max(m_end.NextRow, m_options.First);
    if (m_book)
        CloseBook(!isCutOff);
    return m_end;
}

bool PrintRun::IsStopped() const
{
    return m_stop || !m_end.Trouble.isEmpty();
}

/// Reads a row into the batch. @return false at the end
bool PrintRun::TakeRow()
{
    if (m_options.Count && m_rows->Number() >= m_options.First - 1 &&
        m_rows->Number() - (m_options.First - 1) >= *m_options.Count) {
        m_isAtEnd = true;
        return false;
    }
    const qint64 next = m_rows->Number() + 1;
    BatchRow row;
    try {
        if (!m_rows->Next(row)) {
            m_isAtEnd = true;
            return false;
        }
    } catch (const Failure& failure) {
        if (m_stop) {
            // The row may be whole behind what was read of it.
            if (m_batch.Rows.empty() && m_end.NextRow == 0)
                m_end.NextRow = next;
            return false;
        }
        if (m_rows->Number() >= m_options.First)
            TellFailed(failure.Text());
        m_isAtEnd = !m_rows->CanGoOn();
        return !m_isAtEnd;
    }
    if (row.Number < m_options.First)
        return true;
    for (const QString& value : std::as_const(row.Values))
        m_batchCharacters += value.size();
    m_batch.Rows.push_back(std::move(row));
    return true;
}

void PrintRun::TellFailed(const QString& line)
{
    ++m_end.Failed;
    m_progress.Tell(QStringLiteral("vantrel-print: ") + line);
}

void PrintRun::PrintBatch()
{
    if (m_batch.Rows.empty() || IsStopped())
        return;
    Batch batch = std::exchange(m_batch, {});
    m_batchCharacters = 0;
    batch.Columns = m_rows->Names();
    batch.FirstFile = m_nextFile;
    try {
        if (m_account)
            m_account->Begin(batch);
    } catch (const Failure& failure) {
        m_end.Trouble = ReasonText(failure);
        m_end.NextRow = batch.Rows.front().Number;
        return;
    }
    m_nextFile += static_cast<qint64>(batch.Rows.size() * m_plan.size());
    TellLedgerTrouble();
    if (m_workers == nullptr) {
        PrintHere(batch);
        return;
    }
    while (!m_workers->HasRoom())
        TakeResults();
    const qint64 id = batch.Rows.front().Number;
    m_workers->Give(id, batch);
    m_underWay.emplace(id, std::move(batch));
}

void PrintRun::TellLedgerTrouble()
{
    if (!m_account || m_account->Trouble().isEmpty() || std::exchange(m_isTroubleTold, true))
        return;
    m_progress.Tell(QStringLiteral("vantrel-print: The ledger cannot be written, so the cards "
                                   "print without it: ") +
                    m_account->Trouble());
}

void PrintRun::PrintHere(const Batch& batch)
{
    const auto begin = [&](std::size_t row) {
        ShowProgress(batch.Rows[row].Number - 1);
        return !m_stop && !(m_book && m_book->IsBroken());
    };
    const auto finish = [&] {
        if (m_folder)
            m_folder->FinishJobs();
    };
    const std::vector<RowResult> results = m_printer->Print(batch, m_plan, begin, finish);
    if (results.size() < batch.Rows.size()) {
        m_end.NextRow = batch.Rows[results.size()].Number;
        if (!m_stop)
            m_end.Trouble = WhyNoFurtherRow();
    }
    Note(batch, results);
}

QString PrintRun::WhyNoFurtherRow()
{
    if (m_book && m_book->IsBroken())
        return QStringLiteral("The file cannot be written.");
    const QString trouble = m_session.Session.LayoutDb.Database().Trouble();
    return trouble.isEmpty() ? QString::fromLatin1(StoreAway) : SentenceOf(trouble);
}

void PrintRun::TakeResults()
{
    const Workers::Done done = m_workers->Take();
    const auto underWay = m_underWay.extract(done.Id);
    const Batch& batch = underWay.mapped();
    // Said before its rows are: so many that fail at once would be taken for the reason.
    if (!done.Results && m_end.Trouble.isEmpty())
        m_end.Trouble = QStringLiteral("A process that printed has ended.");
    Note(batch, done.Results ? *done.Results : LostResults(batch));
    ShowProgress(batch.Rows.back().Number);
}

/// What became of rows whose worker has ended: a card is there if its file is.
std::vector<RowResult> PrintRun::LostResults(const Batch& batch) const
{
    std::vector<RowResult> results;
    qint64 file = batch.FirstFile;
    for (const BatchRow& row : batch.Rows) {
        RowResult result{.Number = row.Number, .Line = row.Line, .Cards = {}, .Reason = {}};
        for (std::size_t card = 0; card < m_plan.size(); ++card) {
            JobOutcome outcome;
            outcome.File = CardFolder::FileNameOf(file++);
            outcome.HandedOver = QFileInfo::exists(m_path + u'/' + outcome.File);
            if (!outcome.HandedOver)
                outcome.Reason = result.Reason =
                    QStringLiteral("The process that printed it has ended.");
            result.Cards.push_back({.Job = outcome, .Remark = {}});
        }
        results.push_back(std::move(result));
    }
    return results;
}

void PrintRun::Note(const Batch& batch, const std::vector<RowResult>& results)
{
    try {
        if (m_account)
            m_account->End(batch, results);
    } catch (const Failure& failure) {
        m_progress.Tell(QStringLiteral("vantrel-print: The outcome of the rows from %1 on cannot "
                                       "be written: %2")
                            .arg(QString::number(batch.Rows.front().Number), ReasonText(failure)));
    }
    for (const RowResult& result : results)
        Tell(result);
}

void PrintRun::Tell(const RowResult& result)
{
    const bool hasLines = m_options.Written != PrintOptions::Format::Records;
    const QString place =
        (hasLines ? QStringLiteral("Line %1: ") : QStringLiteral("Record %1: ")).arg(result.Line);
    for (const CardResult& card : result.Cards) {
        if (!card.Remark.isEmpty())
            m_progress.Tell(QStringLiteral("vantrel-print: ") + place + card.Remark);
    }
    const QString& reason = result.Reason;
    if (result.IsPrinted()) {
        ++m_end.Printed;
        m_failedInARow = 0;
        return;
    }
    TellFailed(place + (reason.endsWith(u'.') ? reason : reason + u'.'));
    StopIfAllFail(result.Number);
}

/// A full disk or a printer that takes no job would cost each further row its number.
void PrintRun::StopIfAllFail(qint64 row)
{
    if (m_failedInARow++ == 0)
        m_firstFailed = row;
    if (m_failedInARow < MostFailedInARow || m_options.IsDryRun || IsStopped())
        return;
    m_end.Trouble = QStringLiteral("%1 rows failed one after the other.").arg(m_failedInARow);
    // Rows that processes share are not printed in their order.
    if (m_workers == nullptr)
        m_end.NextRow = m_firstFailed;
}

void PrintRun::ShowProgress(qint64 row)
{
    RunShare share;
    share.Rows = std::max<qint64>(0, row - m_options.First + 1);
    if (m_options.Count)
        share.Share = static_cast<double>(share.Rows) / static_cast<double>(*m_options.Count);
    else if (m_allBytes > 0)
        share.Share = static_cast<double>(m_bytes) / static_cast<double>(m_allBytes);
    m_progress.Show(share);
}

/// A run that was cut off leaves no file under the final name.
void PrintRun::CloseBook(bool isWhole)
{
    bool isWritten = isWhole && m_end.Trouble.isEmpty() && m_book->PageCount() > 0;
    try {
        if (isWritten)
            m_book->Close();
    } catch (const Failure& failure) {
        m_end.Trouble = ReasonText(failure);
        isWritten = false;
    }
    if (!isWritten) {
        m_end.Failed += m_end.Printed;
        m_end.Printed = 0;
        m_end.NextRow = m_end.NextRow == 0 ? 0 : m_options.First;
    }
    if (!m_account)
        return;
    try {
        m_account->EndBook(isWritten);
    } catch (const Failure& failure) {
        m_progress.Tell(QStringLiteral("vantrel-print: The outcome cannot be written: ") +
                        ReasonText(failure));
    }
}

} // namespace vantrel::print
