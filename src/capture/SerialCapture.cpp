#include "capture/SerialCapture.h"
#include "app/Session.h"
#include "capture/Pipeline.h"
#include "platform/Skip.h"

namespace vantrel {

namespace {

// Whatever happened on the port: one that has lost its device comes here too, mostly with nothing.
void OnCommEvent(Session& session)
{
    const QString port = QStringLiteral("COM%1").arg(session.Comm.CommPort());
    TakeArrival(session, session.Comm.Input(), {QStringLiteral("Got Data (%1)").arg(port), port});
}

} // namespace

void ConnectComm(Session& session)
{
    QObject::connect(&session.Comm, &Comm::OnComm, &session.Comm,
                     [&session] { OnCommEvent(session); });
}

void PrepareComm(Session& session)
{
    Skip("serial settings", [&] { session.Comm.SetSettings(session.Settings.SSettings); });
    Skip("serial port number", [&] { session.Comm.SetCommPort(session.Settings.SPort); });
}

void SerialMode(Session& session, bool open)
{
    if (session.Comm.PortOpen())
        session.Comm.SetPortOpen(false);
    if (!session.Settings.UseSerial)
        return;
    Skip("serial port", [&] { session.Comm.SetPortOpen(open); });
    session.Settings.UseSerial = open;
}

void SerialListen(Session& session)
{
    Skip("serial port", [&] { session.Comm.SetPortOpen(true); });
}

} // namespace vantrel
