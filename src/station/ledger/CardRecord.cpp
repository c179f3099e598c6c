#include "station/ledger/CardRecord.h"
#include "base/Skip.h"
#include "station/layout/PageDescription.h"
#include "station/layout/StoredNumbers.h"
#include "station/ledger/StationLedger.h"
#include "station/ledger/TakeNumbers.h"
#include "station/session/CardKeeper.h"
#include "station/session/Session.h"
#include "station/session/StoreLocation.h"
#include "store/StoreDatabase.h"
#include <QLoggingCategory>
#include <algorithm>

namespace vantrel {

namespace {

Q_LOGGING_CATEGORY(stationLog, "vantrel.station")

/// How often a page is loaded again whose numbers another session has changed in the meantime.
constexpr int MostReloads = 3;

constexpr QLatin1StringView DeclaredVoid{"The record was declared void."};
constexpr QLatin1StringView LedgerOutOfOrder{"The ledger cannot be written."};

/// Whether a failure ends when the store is free, has room or is mended.
bool IsOfStore(const Failure& failure)
{
    return failure.Number() == FailureNumber::StoreBusy ||
           failure.Number() == FailureNumber::StatementInvalid;
}

/// Why the server that keeps the layouts cannot be reached; empty if it can, or a file keeps them.
QString StoreTrouble(Session& session)
{
    Connection& store = session.LayoutDb;
    if (store.IsOpen())
        return store.Database().Trouble();
    const QString location = StoreLocation(session.ProgramFolder);
    return IsStoreAddress(location)
               ? QStringLiteral("The store %1 is away.").arg(ShownLocation(location))
               : QString();
}

QString MissingPrinter(const QString& name)
{
    return QStringLiteral("The printer %1 is missing.").arg(name);
}

LedgerCard CardOf(const LayoutPage& page, int copy)
{
    LedgerCard card;
    card.Layout = page.LayoutName;
    card.Page = page.Params.PageIndex;
    card.Copy = copy;
    return card;
}

CardOutcome OutcomeOf(const JobOutcome& job)
{
    CardOutcome outcome;
    outcome.State = job.HandedOver ? LedgerState::Printed : LedgerState::Failed;
    outcome.Reason = job.Reason;
    if (job.JobId != 0)
        outcome.Job = job.JobId;
    outcome.File = job.File;
    return outcome;
}

/// A remark as a sentence in one line.
QString TextOf(const CardRemark& remark, bool withReason)
{
    QString text = remark.What;
    if (withReason && !remark.Why.isEmpty())
        text += QStringLiteral(": ") + remark.Why;
    std::replace_if(
        text.begin(), text.end(), [](QChar c) { return !c.isPrint() && !c.isSurrogate(); },
        QChar(QChar::ReplacementCharacter));
    return text + u'.';
}

} // namespace

CardRecord::CardRecord(Session& session, LayoutPage& page)
    : m_session(session), m_page(page), m_run(session.Run)
{}

bool CardRecord::IsPrinterThere(const QString& name) const
{
    return name.isEmpty() || m_session.Printers.DeviceNames().contains(name);
}

bool CardRecord::NotedAsFailed(const QString& reason)
{
    if (m_run)
        m_session.Ledger.EndCard(*m_run, *m_index,
                                 {.State = LedgerState::Failed, .Reason = reason});
    return false;
}

void CardRecord::Refuse(LedgerCard card, const QString& reason)
{
    if (!m_run || m_run->IsPostponed)
        return;
    if (!m_index)
        m_index = m_session.Ledger.BeginCard(*m_run, std::move(card), {});
    m_session.Ledger.RefuseCard(*m_run, *m_index, reason);
}

/// Refuses the card of the page.
bool CardRecord::Refused(const QString& reason)
{
    if (m_run)
        Refuse(CardOf(m_page, m_run->Copy), reason);
    return false;
}

/// An entry that is in the ledger can wait until its cards can be written too.
bool CardRecord::Postponed()
{
    if (!m_run || !m_run->MayBePostponed())
        return false;
    m_session.Ledger.Postpone(*m_run);
    return true;
}

bool CardRecord::Begin(const std::function<void()>& reload)
{
    if (m_session.Keeper != nullptr) {
        return m_session.Keeper->Begin(m_page.LayoutName, m_page.Params.PageIndex, m_page.Document);
    }
    // A page that could not be loaded from the server must not be printed as it was before.
    if (const QString trouble = StoreTrouble(m_session); !trouble.isEmpty())
        return !Postponed() && Refused(trouble);
    const StationOptions& options = m_session.Options;
    if (!m_run && !options.UniqueNumbers)
        return true;
    if (m_run && m_run->IsPostponed)
        return false;
    const QString& wanted = m_page.Params.PrinterDevice;
    if (m_run && !IsPrinterThere(wanted))
        return Refused(MissingPrinter(wanted));
    if (m_run) {
        LedgerCard card = CardOf(m_page, m_run->Copy);
        PageDescription page;
        Skip("printer name", [&] { card.Printer = m_session.Printers.Current().DeviceName(); });
        if (options.Ledger)
            Skip("describe page", [&] {
                page = DescribePage(m_session.LayoutDb, card.Layout, m_page.Params.PageIndex);
            });
        card.PageHash = page.Hash;
        card.Numbers = NextNumbers(m_page.Document);
        m_index = m_session.Ledger.BeginCard(*m_run, std::move(card), page.Content);
    }
    try {
        if (options.Ledger && Commit(true, reload))
            return true;
        if (options.Ledger && Postponed())
            return false;
        if (options.Ledger && options.LedgerMust)
            return Refused(QString(LedgerOutOfOrder));
        // Without unique numbers a card is right without the store.
        return !options.UniqueNumbers || Commit(false, reload);
    } catch (const Failure& failure) {
        if (m_run && m_run->IsVoid())
            return Refused(QString(DeclaredVoid));
        const QString reason = QStringLiteral("The number could not be taken: ") + failure.Text();
        return !(IsOfStore(failure) && Postponed()) && Refused(reason);
    }
}

bool CardRecord::BeginAgain(const LedgerCard& first, const QString& content)
{
    if (!m_run || m_run->IsPostponed)
        return false;
    LedgerCard card;
    card.Layout = first.Layout;
    card.Page = first.Page;
    card.Copy = first.Copy;
    card.Printer = first.Printer;
    card.Numbers = first.Numbers;
    card.PageHash = first.PageHash;
    m_index = m_session.Ledger.BeginCard(*m_run, std::move(card), {});
    if (!IsPrinterThere(first.Printer))
        return NotedAsFailed(MissingPrinter(first.Printer));
    if (content.isEmpty())
        return NotedAsFailed(QStringLiteral("The page of the first print was not kept."));
    if (Skip("write ledger", [&] { m_session.Ledger.Flush(); }))
        return !m_run->IsVoid() || NotedAsFailed(QString(DeclaredVoid));
    TellLedgerState(m_session);
    return !Postponed() && NotedAsFailed(QString(LedgerOutOfOrder));
}

/// What the transaction must lock that takes the numbers and writes the ledger.
StoreLock CardRecord::Lock(bool withLedger) const
{
    StoreLock lock = withLedger ? m_session.Ledger.LockToWrite() : StoreLock::OfOwnRows();
    if (!lock.IsOfStore() && m_session.Options.UniqueNumbers)
        return LockOfNumbers(m_page.LayoutName, m_page.Params.PageIndex);
    return lock;
}

/// Takes the numbers inside the open transaction. Fails like `TakeNumbers`.
void CardRecord::Take(const StoreLock& lock, const std::function<void()>& reload)
{
    Connection& store = m_session.LayoutDb;
    for (int attempt = 0; attempt <= MostReloads; ++attempt) {
        const auto numbers =
            TakeNumbers(store, m_page.LayoutName, m_page.Params.PageIndex, m_page.Document);
        if (numbers) {
            if (m_index)
                m_session.Ledger.SetNumbers(*m_run, *m_index, *numbers);
            return;
        }
        store.RollbackTrans();
        reload();
        store.BeginTransWithNext(lock);
    }
    throw Failure(FailureNumber::InvalidCall,
                  QStringLiteral("the page is being changed by another session"));
}

/// Fails if the numbers could not be taken.
/// @return false if only the ledger could not be written
bool CardRecord::Commit(bool withLedger, const std::function<void()>& reload)
{
    Connection& store = m_session.LayoutDb;
    RecordLedger& ledger = m_session.Ledger;
    bool hasNumbers = !m_session.Options.UniqueNumbers;
    // On a page without numbers the ledger's first statement takes the lock.
    bool mayMissLock = !hasNumbers && NumbersOn(m_page.Document).empty();
    const StoreLock lock = Lock(withLedger);
    try {
        store.BeginTransWithNext(lock);
        if (!hasNumbers)
            Take(lock, reload);
        hasNumbers = true;
        if (withLedger)
            ledger.Write();
        mayMissLock = false;
        if (m_run && m_run->IsVoid())
            throw Failure(FailureNumber::InvalidCall, QString(DeclaredVoid));
        store.CommitTrans();
    } catch (const Failure& failure) {
        if (mayMissLock && !store.InTransaction())
            hasNumbers = false;
        store.RollbackTrans();
        ledger.RolledBack();
        if (!withLedger || !hasNumbers || (m_run && m_run->IsVoid()))
            throw;
        ledger.NoteTrouble(failure.Text());
        TellLedgerState(m_session);
        return false;
    }
    if (withLedger) {
        ledger.Committed();
        TellLedgerState(m_session);
    }
    return true;
}

void CardRecord::Note(const CardRemarks& remarks)
{
    const QString& layout = m_index ? m_run->Entry.Cards.at(*m_index).Layout : m_page.LayoutName;
    for (const CardRemark& remark : remarks) {
        const QString text = TextOf(remark, m_session.Options.LedgerValues);
        if (m_session.Keeper != nullptr) {
            m_session.Keeper->Note(text);
            continue;
        }
        qCWarning(stationLog).noquote() << QStringLiteral("A card of %1:").arg(layout) << text;
        if (m_index)
            m_session.Ledger.NoteOnCard(*m_run, *m_index, text);
    }
}

void CardRecord::End()
{
    if (m_session.Keeper != nullptr) {
        Skip("end of job", [&] { m_session.Keeper->End(m_session.Printers.Current()); });
        return;
    }
    if (!m_index) {
        Skip("end of job", [&] { m_session.Printers.Current().EndDoc(); });
        return;
    }
    RecordLedger& ledger = m_session.Ledger;
    const auto note = [&session = m_session, run = m_run, index = *m_index](const JobOutcome& job) {
        session.Ledger.EndCard(*run, index, OutcomeOf(job));
        if (job.JobId != 0 && session.WatchJob)
            session.WatchJob(job.JobId);
        // A card that ends after its record's road is written with the next record or at once.
        if (!session.Run)
            WriteLedgerSoon(session);
    };
    try {
        m_session.Printers.Current().EndDocAndTell(note);
    } catch (const Failure& failure) {
        ledger.EndCard(*m_run, *m_index, {.State = LedgerState::Failed, .Reason = failure.Text()});
    }
}

} // namespace vantrel
