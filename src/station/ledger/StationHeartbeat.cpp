#include "station/ledger/StationHeartbeat.h"
#include "base/Failure.h"
#include "base/Skip.h"
#include "ledger/LedgerStations.h"
#include "station/ledger/StationLedger.h"
#include "station/session/Session.h"
#include "station/session/StoreLocation.h"
#include "store/StoreDatabase.h"
#include <QCoreApplication>
#include <QDateTime>
#include <QSysInfo>
#include <QTimer>

namespace vantrel {

namespace {

/// While a page is being saved nothing else may be written; soon after that it may.
constexpr int AgainMilliseconds = 200;

bool IsOnServer(const QString& programFolder)
{
    return IsStoreAddress(StoreLocation(programFolder));
}

LedgerStation StationOf(const Session& session, qint64 started)
{
    LedgerStation station;
    station.Machine = MachineName(session.ProgramFolder);
    station.Session = session.SessionNumber;
    station.Started = started;
    station.Seen = QDateTime::currentMSecsSinceEpoch();
    station.Layout = session.CurrentLayoutName;
    station.Printer = session.CurrentParams.PrinterDevice;
    return station;
}

bool MayBeWritten(const Connection& store)
{
    return store.IsOpen() && !store.InTransaction();
}

void Write(Session& session, const LedgerStation& station)
{
    Skip("heartbeat", [&] { NoteStation(session.LayoutDb.Database(), station); });
}

} // namespace

QString MachineName(const QString& programFolder)
{
    const QString host = QSysInfo::machineHostName();
    return IsOnServer(programFolder) ? host + u':' + programFolder : host;
}

void ClaimSession(Session& session)
{
    if (!session.LayoutDb.IsOpen() || !IsOnServer(session.ProgramFolder))
        return;
    const QString other = ClaimSession(session.LayoutDb.Database(),
                                       StationOf(session, QDateTime::currentMSecsSinceEpoch()));
    if (!other.isEmpty())
        throw Failure(FailureNumber::InvalidCall,
                      QStringLiteral("The station %1 has the session number %2 too. Start one of "
                                     "them with another number.")
                          .arg(other)
                          .arg(session.SessionNumber));
}

void TellThatItRuns(Session& session)
{
    if (!session.Options.Ledger)
        return;
    const qint64 started = QDateTime::currentMSecsSinceEpoch();
    auto* timer = new QTimer(&session.Face);
    QObject::connect(timer, &QTimer::timeout, timer, [&session, timer, started] {
        const bool may = MayBeWritten(session.LayoutDb);
        if (may && session.Ledger.IsRefused())
            OpenLedger(session);
        else if (may)
            Write(session, StationOf(session, started));
        timer->start(may ? HeartbeatMilliseconds : AgainMilliseconds);
    });
    timer->start(0);
    QObject::connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, timer,
                     [&session, started] {
                         LedgerStation station = StationOf(session, started);
                         station.Ended = true;
                         if (MayBeWritten(session.LayoutDb) && !session.Ledger.IsRefused())
                             Write(session, station);
                     });
}

} // namespace vantrel
