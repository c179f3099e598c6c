#include "base/Skip.h"
#include "station/batch/RunLock.h"
#include "station/capture/Listener.h"
#include "station/capture/Ports.h"
#include "station/capture/SerialCapture.h"
#include "station/capture/StoredRecords.h"
#include "station/layout/LoadLayout.h"
#include "station/ledger/StationHeartbeat.h"
#include "station/session/MainRuntime.h"
#include "station/session/Operator.h"
#include "station/session/Session.h"
#include "station/session/TrayIcon.h"
#include "station/start/StoreTaking.h"
#include "station/start/StoreWatch.h"

namespace vantrel {

namespace {

void FindDeadRuns(Session& session)
{
    if (session.Options.Ledger && session.LayoutDb.IsOpen())
        EndDeadRuns(session.ProgramFolder, session.LayoutDb.Database());
}

void Reopen(Session& session)
{
    const QString lastLayout = session.Settings.LastLayout;
    if (lastLayout.isEmpty())
        return;
    if (!LoadFirstPage(session, lastLayout))
        return;
    if (session.Settings.MainVisible)
        session.Document.Show();
    session.Face.SetCaption(
        CaptionWithLayout(session.CurrentLayoutName, session.CurrentParams, StartCaption()));
}

} // namespace

void FindUnfinished(Session& session)
{
    FindDoubtfulCards(session);
    Skip("dead runs", [&] { FindDeadRuns(session); });
}

void ReopenLastLayout(Session& session)
{
    Skip("reopen last layout", [&] { Reopen(session); });
}

void LoadMain(Session& session)
{
    FindUnfinished(session);
    ConnectSockets(session);
    ConnectComm(session);
    if (session.OwnsTrayIcon)
        AddTrayIcon(session.Face);
    session.Face.SetCaption(StartCaption());
    session.Face.SetTick(Tick::cmdDynamicLayout, session.Settings.DynamicLayouts);
    session.Face.SetTick(Tick::chkAutoAdd, session.Settings.DynamicFields);
    session.Face.SetTick(Tick::cmdCapEnable, session.Settings.CaptureEnabled);
    PrepareComm(session.Comm, session.Settings);
    ReopenLastLayout(session);
    WatchStore(session);
    // What was received before goes before what hosts send now.
    TendLedger(session);
    TellThatItRuns(session);
    if (session.Settings.CaptureEnabled)
        SwitchPorts(session, SwitchMode::All);
    session.Face.SetHideCaption(HideCaption(session.Settings));
    // The key for the window's handle is deliberately not written.
    TickStatusBar(session);
    session.Face.SetPropertiesEnabled(false);
    session.Operator.LetEventsRun();
}

} // namespace vantrel
