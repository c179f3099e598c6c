#include "station/capture/SerialCapture.h"
#include "base/Skip.h"
#include "station/capture/Pipeline.h"
#include "station/session/Session.h"

namespace vantrel {

namespace {

// Called for every event of the port, also when its device was removed; then there is mostly no
// input.
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

void PrepareComm(Comm& comm, const StationSettings& settings)
{
    Skip("serial settings", [&] { comm.SetSettings(settings.SSettings); });
    Skip("serial port number", [&] { comm.SetCommPort(settings.SPort); });
}

void SerialMode(Comm& comm, StationSettings& settings, bool open)
{
    if (comm.PortOpen())
        comm.SetPortOpen(false);
    if (!settings.UseSerial)
        return;
    Skip("serial port", [&] { comm.SetPortOpen(open); });
    settings.UseSerial = open;
}

void SerialListen(Comm& comm)
{
    Skip("serial port", [&] { comm.SetPortOpen(true); });
}

} // namespace vantrel
