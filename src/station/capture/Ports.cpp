#include "station/capture/Ports.h"
#include "base/Skip.h"
#include "station/session/Session.h"
#include "station/session/Settings.h"
#include "station/session/TrayIcon.h"

namespace vantrel {

namespace {

void SwitchSerial(Session& session)
{
    Comm& comm = session.Comm;
    const StationSettings& settings = session.Settings;
    Skip("close serial port", [&] { comm.SetPortOpen(false); });
    Skip("serial port number", [&] { comm.SetCommPort(settings.SPort); });
    Skip("serial settings", [&] { comm.SetSettings(settings.SSettings); });
    Skip("flow control", [&] { comm.SetHandshaking(settings.SFlowCtrl); });
    if (settings.UseSerial && !session.Options.Pool.TakesNothing())
        Skip("open serial port", [&] { comm.SetPortOpen(true); });
}

// Whether capture is enabled is not checked here; it only decides whether ports are opened at the
// start.
void SwitchNetwork(Session& session)
{
    SockArray& sock = session.Sock;
    for (int index = 0; index <= sock.HighestIndex(); ++index)
        sock.Close(index);
    if (!session.Settings.UseIP || session.Options.Pool.TakesNothing())
        return;
    sock.SetAccess(HostAccess(StationOption(session.ProgramFolder, QStringLiteral("AllowFrom"))));
    sock.SetLocalPort(session.Settings.Port);
    // An invalid address must not make the station listen on every network.
    Skip("listen", [&] {
        sock.SetLocalAddress(StationOption(session.ProgramFolder, QStringLiteral("BindAddress")));
        sock.Listen();
    });
}

} // namespace

void SwitchPorts(Session& session, SwitchMode mode)
{
    if (mode == SwitchMode::All || mode == SwitchMode::Serial)
        SwitchSerial(session);
    if (mode == SwitchMode::All || mode == SwitchMode::Network)
        SwitchNetwork(session);
    UpdateTrayState(session.Face, session.Settings);
}

} // namespace vantrel
