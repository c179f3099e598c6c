#pragma once

#include "StationWithLayout.h"
#include "base/Profile.h"
#include "station/capture/Listener.h"
#include "station/capture/Ports.h"
#include "station/capture/SerialCapture.h"
#include "station/session/Settings.h"
#include "support/Events.h"
#include "support/PtyPair.h"

namespace vantrel::test {

/// A station whose COM3 is a cable of the test's. Serial capture is in use, TCP/IP is not.
class SerialStation : public StationWithLayout
{
protected:
    explicit SerialStation(const StationOptions& options = {})
    {
        Session.Options = options;
        Session.Settings.UseSerial = true;
        Session.Settings.SPort = 3;
        Session.Settings.SSettings = QStringLiteral("9600,n,8,1");
        Session.Settings.CaptureEnabled = true;
        EXPECT_TRUE(WriteProfileValue(SettingsPath(Session.ProgramFolder),
                                      QStringLiteral("Serial Ports"), QStringLiteral("COM3"),
                                      Device()));
        ConnectComm(Session);
        ConnectSockets(Session);
    }

    QString Device() const { return Session.PathInFolder(QStringLiteral("adapter")); }

    /// Switches the serial port on and expects it to open.
    void Open()
    {
        SwitchPorts(Session, SwitchMode::Serial);
        ASSERT_TRUE(Session.Comm.PortOpen());
    }

    bool ComesToHold(const char* text)
    {
        return EventsUntil([&] { return Session.InputBuffer.Text() == QString::fromLatin1(text); });
    }
    /// Whether a finished record gets these values.
    bool ComesAsRecord(const QStringList& values)
    {
        return EventsUntil(
            [&] { return Values() == values && Session.InputBuffer.Text().isEmpty(); });
    }
};

} // namespace vantrel::test
