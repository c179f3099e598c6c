#include "capture/Listener.h"
#include "app/Operator.h"
#include "app/Session.h"
#include "capture/Pipeline.h"
#include "platform/Skip.h"

namespace vantrel {

namespace {

void OnConnectionRequest(Session& session, int index, qintptr requestId)
{
    if (index != 0)
        return;
    const int free = FindFreeSocket(session);
    if (free > session.Sock.HighestIndex())
        Skip("new socket", [&] { session.Sock.Load(free); });
    Skip("accept", [&] { session.Sock.Accept(free, requestId); });
}

void OnDataArrival(Session& session, int index)
{
    ArrivalSource source{QStringLiteral("Got Data (TCP/IP)"), {}};
    QString characters;
    Skip("host address", [&] { source.From = session.Sock.RemoteHostIP(index); });
    Skip("data of the socket", [&] { characters = session.Sock.GetData(index); });
    TakeArrival(session, characters, source);
}

// The buffer knows no origin: the close of any host drops what another has half sent.
void OnConnectionClosed(Session& session, int index)
{
    Skip("close", [&] { session.Sock.Close(index); });
    session.Operator.LetEventsRun();
    session.InputBuffer.Clear();
}

} // namespace

void ConnectSockets(Session& session)
{
    SockArray& sock = session.Sock;
    QObject::connect(&sock, &SockArray::ConnectionRequest, &sock,
                     [&session](int index, qintptr requestId) {
                         OnConnectionRequest(session, index, requestId);
                     });
    QObject::connect(&sock, &SockArray::DataArrival, &sock,
                     [&session](int index) { OnDataArrival(session, index); });
    QObject::connect(&sock, &SockArray::ConnectionClosed, &sock,
                     [&session](int index) { OnConnectionClosed(session, index); });
}

int FindFreeSocket(const Session& session)
{
    const int highest = session.Sock.HighestIndex();
    for (int index = 1; index <= highest; ++index) {
        if (session.Sock.State(index) <= SockState::Closed)
            return index;
    }
    return highest + 1;
}

bool SetPort(Session& session, int port)
{
    if (session.Sock.State(0) == SockState::Closed)
        return false;
    session.Sock.Close(0);
    session.Sock.SetLocalPort(port);
    if (session.Settings.CaptureEnabled) {
        if (session.OwnsTrayIcon)
            session.Face.SetTray(TrayImage::Waiting, TrayTip::Waiting);
        Skip("listen", [&] { session.Sock.Listen(); });
    }
    return true;
}

} // namespace vantrel
