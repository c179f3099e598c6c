#include "station/capture/SerialCapture.h"
#include "base/Skip.h"
#include "station/capture/Pipeline.h"
#include "station/capture/RecordIntake.h"
#include "station/capture/Sources.h"
#include "station/session/Session.h"

namespace vantrel {

namespace {

// Called for every event of the port, also when its device was removed; then there is mostly no
// input.
void OnCommEvent(Session& session)
{
    const ArrivalSource source = SourceOfSerial(session);
    TakeArrival(session, TakeSerialCharacters(session), source);
}

} // namespace

void ConnectComm(Session& session)
{
    session.Comm.SetEncoding(session.Options.Encoding);
    session.Comm.SetAnswers(session.Options.AnswerHost);
    if (session.Options.KeepEveryRecord) {
        RecordIntake::Of(session).ConnectComm();
        return;
    }
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
