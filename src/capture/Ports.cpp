#include "capture/Ports.h"
#include "app/Session.h"
#include "app/Settings.h"
#include "app/TrayIcon.h"
#include "platform/Skip.h"

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
    if (settings.UseSerial)
        Skip("open serial port", [&] { comm.SetPortOpen(true); });
}

// Whether capture is enabled is not asked here: that decides whether a start opens ports at all.
void SwitchNetwork(Session& session)
{
    SockArray& sock = session.Sock;
    for (int index = 0; index <= sock.HighestIndex(); ++index)
        sock.Close(index);
    if (!session.Settings.UseIP)
        return;
    sock.SetAccess(HostAccess(StationOption(session, QStringLiteral("AllowFrom"))));
    sock.SetLocalPort(session.Settings.Port);
    // An address that cannot be read must not open the station to every network.
    Skip("listen", [&] {
        sock.SetLocalAddress(StationOption(session, QStringLiteral("BindAddress")));
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
    UpdateTrayState(session);
}

} // namespace vantrel
