#include "station/capture/Listener.h"
#include "base/Skip.h"
#include "station/capture/Pipeline.h"
#include "station/capture/RecordIntake.h"
#include "station/capture/Sources.h"
#include "station/session/Operator.h"
#include "station/session/Session.h"

namespace vantrel {

namespace {

void OnConnectionRequest(SockArray& sock, int index, qintptr requestId)
{
    if (index != 0)
        return;
    const int free = FindFreeSocket(sock);
    if (free > sock.HighestIndex())
        Skip("new socket", [&] { sock.Load(free); });
    Skip("accept", [&] { sock.Accept(free, requestId); });
}

void OnDataArrival(Session& session, int index)
{
    const ArrivalSource source = SourceOfHost(session, index);
    TakeArrival(session, TakeCharacters(session, index, source.Peer), source);
}

// All hosts share one buffer, so the close of any connection drops a partly received record of
// another host.
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
    sock.SetEncoding(session.Options.Encoding);
    sock.SetAnswers(session.Options.AnswerHost);
    QObject::connect(&sock, &SockArray::ConnectionRequest, &sock,
                     [&session](int index, qintptr requestId) {
                         OnConnectionRequest(session.Sock, index, requestId);
                     });
    if (session.Options.KeepEveryRecord) {
        RecordIntake::Of(session).ConnectSockets();
        return;
    }
    QObject::connect(&sock, &SockArray::DataArrival, &sock,
                     [&session](int index) { OnDataArrival(session, index); });
    QObject::connect(&sock, &SockArray::ConnectionClosed, &sock,
                     [&session](int index) { OnConnectionClosed(session, index); });
}

int FindFreeSocket(const SockArray& sock)
{
    const int highest = sock.HighestIndex();
    for (int index = 1; index <= highest; ++index) {
        if (sock.State(index) <= SockState::Closed)
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
