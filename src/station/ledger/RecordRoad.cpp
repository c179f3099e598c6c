#include "station/ledger/RecordRoad.h"
#include "base/InputText.h"
#include "base/Skip.h"
#include "ports/FramedValues.h"
#include "station/ledger/FramingText.h"
#include "station/ledger/StationLedger.h"
#include "station/session/Session.h"
#include <QDateTime>

namespace vantrel {

namespace {

LedgerEntry NewEntry(const Session& session, const RecordOrigin& origin)
{
    LedgerEntry entry;
    entry.Received = QDateTime::currentMSecsSinceEpoch();
    entry.Session = origin.Pool.isEmpty() ? session.SessionNumber : NoSession;
    entry.Pool = origin.Pool;
    entry.Source = origin.Source;
    entry.Layout = origin.Layout.isEmpty() ? session.CurrentLayoutName : origin.Layout;
    entry.Raw = origin.Raw;
    entry.Length = origin.Raw.size();
    entry.HasValues = session.Ledger.KeepsValues();
    return entry;
}

void Note(Session& session, RecordRun& run, const FieldValues& values)
{
    session.Ledger.SetValues(
        run, values.Count(), [&](int position) { return values.Item(position); },
        FramingText(session.Settings.Framing, session.Settings.Filters));
}

} // namespace

RecordRoad::RecordRoad(Session& session, RecordOrigin origin)
    : m_session(session), m_outer(session.Run)
{
    if (!session.Options.Ledger && !session.Options.AnswerHost)
        return;
    m_run = origin.Stored ? session.Ledger.Resume(std::move(*origin.Stored))
                          : session.Ledger.Begin(NewEntry(session, origin));
    m_run->Settled = std::move(origin.Told);
    if (!session.Options.Ledger && m_run->Settled)
        m_run->Entry.Id = ++session.AnsweredRecords;
    session.Run = m_run;
}

RecordRoad::~RecordRoad()
{
    if (!m_run)
        return;
    m_session.Run = m_outer;
    if (m_run->IsPostponed)
        m_session.Ledger.Drop(m_run);
    else
        m_session.Ledger.EndRoad(*m_run);
    WriteLedgerSoon(m_session);
}

bool RecordRoad::Secure(const QString& text)
{
    if (!m_run || !m_session.Options.Ledger || !m_session.Options.LedgerMust)
        return true;
    QString record = text;
    FieldValues values;
    Skip("framing", [&] {
        ParseDataStream(record, m_session.Settings.Framing, m_session.Settings.Filters,
                        [&](const QString& value) { values.Add(ShownInput(value)); });
    });
    Note(m_session, *m_run, values);
    if (Skip("secure record", [&] { m_session.Ledger.Flush(); }))
        return true;
    TellLedgerState(m_session);
    m_session.Ledger.Drop(m_run);
    m_session.Run = m_outer;
    m_run.reset();
    return false;
}

void NoteValues(Session& session)
{
    // The values of an entry that is stored are in the ledger already.
    if (session.Run && session.Run->Entry.Id == 0)
        Note(session, *session.Run, session.FieldValues);
}

void NoteWhyNoCard(Session& session, const QString& reason)
{
    if (session.Run)
        session.Run->WhyNoCard = reason;
}

} // namespace vantrel
