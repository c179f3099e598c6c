#include "station/capture/Sources.h"
#include "base/Skip.h"
#include "station/capture/Answers.h"
#include "station/session/Session.h"
#include <QLoggingCategory>

namespace vantrel {

namespace {

Q_LOGGING_CATEGORY(stationLog, "vantrel.station")

QString SerialName(const Comm& comm)
{
    return QStringLiteral("COM%1").arg(comm.CommPort());
}

void WarnOfStrayBytes(const QString& peer)
{
    qCWarning(stationLog).noquote()
        << peer << "sent bytes that are no UTF-8; each is shown and printed as U+FFFD";
}

} // namespace

ArrivalSource SourceOfHost(Session& session, int index)
{
    ArrivalSource source{QStringLiteral("Got Data (TCP/IP)"), {}};
    Skip("host address", [&] {
        source.From = session.Sock.RemoteHostIP(index);
        source.Peer = session.Sock.RemotePeer(index);
        source.Answer = AnswerHost(session.Sock.Answers(index), session.Options.Encoding);
    });
    return source;
}

ArrivalSource SourceOfSerial(Session& session)
{
    const QString port = SerialName(session.Comm);
    return {QStringLiteral("Got Data (%1)").arg(port), port, port, AnswerSerial(session)};
}

QString TakeCharacters(Session& session, int index, const QString& peer)
{
    QString characters;
    Skip("data of the socket", [&] {
        characters = session.Sock.GetData(index);
        if (session.Sock.TakeStrayNotice(index))
            WarnOfStrayBytes(peer);
    });
    return characters;
}

QString TakeSerialCharacters(Session& session)
{
    QString characters = session.Comm.Input();
    if (session.Comm.TakeStrayNotice())
        WarnOfStrayBytes(SerialName(session.Comm));
    return characters;
}

} // namespace vantrel
