#include "capture/Ports.h"
#include "app/MainRuntime.h"
#include "app/Session.h"
#include "platform/Skip.h"

namespace vantrel {

namespace {

// Whether capture is enabled is not asked here: that decides whether a start opens ports at all.
void SwitchNetwork(Session& session)
{
    SockArray& sock = session.Sock;
    for (int index = 0; index <= sock.HighestIndex(); ++index)
        sock.Close(index);
    if (!session.Settings.UseIP)
        return;
    Skip("local port", [&] { sock.SetLocalPort(session.Settings.Port); });
    Skip("listen", [&] { sock.Listen(); });
}

} // namespace

void SwitchPorts(Session& session, SwitchMode mode)
{
    // The station reads no serial port yet; where it does, that is switched here, before TCP/IP.
    if (mode == SwitchMode::All || mode == SwitchMode::Network)
        SwitchNetwork(session);
    UpdateTrayState(session);
}

} // namespace vantrel
