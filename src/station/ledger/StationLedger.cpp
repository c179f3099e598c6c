#include "station/ledger/StationLedger.h"
#include "base/Failure.h"
#include "base/SecretKey.h"
#include "base/Skip.h"
#include "ledger/LedgerJobs.h"
#include "printers/CupsJobWatch.h"
#include "station/ledger/StationHeartbeat.h"
#include "station/session/Session.h"
#include <QLoggingCategory>

namespace vantrel {

namespace {

Q_LOGGING_CATEGORY(ledgerLog, "vantrel.ledger")

constexpr QLatin1StringView OutOfOrder{"Ledger cannot be written"};

LedgerTerms TermsOf(const Session& session)
{
    LedgerTerms terms{
        .On = session.Options.Ledger, .KeepValues = session.Options.LedgerValues, .HashKey = {}};
    if (terms.On && !terms.KeepValues)
        terms.HashKey = SecretKeyOf(session.PathInFolder(QStringLiteral("Ledger.key")));
    return terms;
}

/// The entries of another station with the same number are not this one's to carry out.
void Claim(Session& session)
{
    try {
        ClaimSession(session);
    } catch (const Failure& failure) {
        if (failure.Number() == FailureNumber::InvalidCall)
            session.Ledger.Refuse(failure.Text());
    }
}

} // namespace

void NoteJobEnd(Session& session, int job, JobState state, const QString& reason)
{
    // Of a job that the server has forgotten nothing is known but that it was handed over.
    if (state == JobState::Gone)
        return;
    const LedgerState outcome = state == JobState::Done ? LedgerState::Done : LedgerState::Failed;
    // What a record on its road knows of its cards is written over what the ledger has.
    if (session.Ledger.EndJob(job, outcome, reason)) {
        WriteLedgerSoon(session);
        return;
    }
    Skip("end of job", [&] {
        NoteJobState(session.LayoutDb.Database(), session.SessionNumber, job, outcome, reason);
    });
}

void OpenLedger(Session& session)
{
    Skip("open ledger", [&] {
        session.Ledger.Open(session.LayoutDb, TermsOf(session));
        if (session.Options.Ledger)
            Claim(session);
    });
    TellLedgerState(session);
}

void WriteLedgerSoon(Session& session)
{
    if (!session.RecordWaits || session.Ledger.HasManyChanges())
        WriteLedger(session);
}

void WriteLedger(Session& session)
{
    const bool written = Skip("write ledger", [&] { session.Ledger.Flush(); });
    TellLedgerState(session);
    if (!written && !session.Options.NeedsLedger())
        session.Ledger.SettleUnwritten();
}

void FollowJobs(Session& session)
{
    if (!session.Options.Ledger)
        return;
    auto* watch = new CupsJobWatch(&session.Face);
    QObject::connect(watch, &CupsJobWatch::Seen, watch,
                     [&session](int job, JobState state, const QString& reason) {
                         NoteJobEnd(session, job, state, reason);
                     });
    session.WatchJob = [watch](int job) { watch->Watch(job); };
    Skip("open jobs", [&] {
        for (const int job : OpenJobs(session.LayoutDb.Database(), session.SessionNumber))
            watch->Watch(job);
    });
}

void TellLedgerState(Session& session)
{
    const QString& trouble = session.Ledger.Trouble();
    const bool wasTold = std::exchange(session.LedgerTroubleTold, !trouble.isEmpty());
    if (trouble.isEmpty()) {
        if (wasTold) {
            qCWarning(ledgerLog) << "The ledger can be written again.";
            if (const qlonglong lost = session.Ledger.TakeLostCount(); lost > 0)
                qCWarning(ledgerLog) << lost << "records that came meanwhile are not in it.";
            session.Face.SetPanelText(LastArrivalPanel, QString());
        }
        return;
    }
    if (!wasTold)
        qCWarning(ledgerLog).noquote() << "The ledger cannot be written:" << trouble;
    session.Face.SetPanelText(LastArrivalPanel, OutOfOrder);
    session.Face.SetPanelToolTip(LastArrivalPanel, trouble);
}

} // namespace vantrel
