#include "app/MainRuntime.h"
#include "app/Operator.h"
#include "app/Session.h"
#include "app/TrayIcon.h"
#include "capture/Listener.h"
#include "capture/Ports.h"
#include "capture/SerialCapture.h"
#include "layout/LoadLayout.h"
#include "platform/Skip.h"

namespace vantrel {

namespace {

void ReopenLastLayout(Session& session)
{
    const QString lastLayout = session.Settings.LastLayout;
    if (lastLayout.isEmpty())
        return;
    if (!LoadFirstPage(session, lastLayout))
        return;
    if (session.Settings.MainVisible)
        session.Document.Show();
    session.Face.SetCaption(CaptionWithLayout(session, StartCaption()));
}

} // namespace

void LoadMain(Session& session)
{
    ConnectSockets(session);
    ConnectComm(session);
    if (session.OwnsTrayIcon)
        AddTrayIcon(session);
    session.Face.SetCaption(StartCaption());
    session.Face.SetTick(Tick::cmdDynamicLayout, session.Settings.DynamicLayouts);
    session.Face.SetTick(Tick::chkAutoAdd, session.Settings.DynamicFields);
    session.Face.SetTick(Tick::cmdCapEnable, session.Settings.CaptureEnabled);
    PrepareComm(session);
    Skip("reopen last layout", [&] { ReopenLastLayout(session); });
    if (session.Settings.CaptureEnabled)
        SwitchPorts(session, SwitchMode::All);
    session.Face.SetHideCaption(HideCaption(session));
    // No session publishes its window's handle: the key for it stays unwritten.
    TickStatusBar(session);
    session.Face.SetPropertiesEnabled(false);
    session.Operator.LetEventsRun();
}

} // namespace vantrel
