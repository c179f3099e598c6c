#include "capture/Ports.h"
#include "app/MainRuntime.h"
#include "capture/Listener.h"
#include "support/Events.h"
#include "support/Host.h"
#include "support/TestSession.h"
#include <gtest/gtest.h>

using namespace vantrel;
using namespace vantrel::test;

namespace {

/// A port that nobody listens on.
int FreePort()
{
    SockArray other;
    other.Listen();
    return other.LocalPort();
}

class PortSwitch : public ::testing::Test
{
protected:
    PortSwitch()
    {
        Session.Settings.UseIP = true;
        Session.Settings.CaptureEnabled = true;
        ConnectSockets(Session);
    }

    /// A host on element 1.
    Host Connect()
    {
        Host host(Session.Sock.LocalPort());
        EXPECT_TRUE(EventsUntil([&] { return Session.Sock.HighestIndex() == 1; }));
        return host;
    }

    TestSession Station;
    vantrel::Session& Session = Station.Session;
};

} // namespace

TEST_F(PortSwitch, ModesOfTheNetworkOpenTheListenerAndTheOthersDoNot)
{
    constexpr struct
    {
        SwitchMode Mode;
        SockState State;
    } Rows[] = {{SwitchMode::All, SockState::Listening},
                {SwitchMode::Serial, SockState::Closed},
                {SwitchMode::Parallel, SockState::Closed},
                {SwitchMode::Network, SockState::Listening}};
    static_assert(std::size(Rows) == 4);
    for (const auto& row : Rows) {
        Session.Sock.Close(0);
        Session.Face.SetTray(TrayImage::Flash, QStringLiteral("before"));
        SwitchPorts(Session, row.Mode);
        EXPECT_EQ(Session.Sock.State(0), row.State) << "mode " << static_cast<int>(row.Mode);
        EXPECT_EQ(Session.Face.TrayPicture(), TrayImage::Waiting);
        EXPECT_EQ(Session.Face.TrayTip(), TrayTip::Waiting);
    }
}

TEST_F(PortSwitch, NetworkOffClosesAllSocketsAndThePortRefuses)
{
    SwitchPorts(Session, SwitchMode::Network);
    const int port = Session.Sock.LocalPort();
    const Host host = Connect();
    Session.Settings.UseIP = false;
    SwitchPorts(Session, SwitchMode::Network);
    EXPECT_EQ(Session.Sock.State(0), SockState::Closed);
    EXPECT_EQ(Session.Sock.State(1), SockState::Closed);
    EXPECT_TRUE(EventsUntil([&] { return host.SeesEnd(); }));
    EXPECT_FALSE(Host(port).IsConnected());
    EXPECT_EQ(Session.Face.TrayPicture(), TrayImage::Disabled);
}

TEST_F(PortSwitch, SwitchCutsConnectionsButKeepsTheBuffer)
{
    SwitchPorts(Session, SwitchMode::All);
    const Host host = Connect();
    Session.InputBuffer.Set(QStringLiteral("<half"));
    SwitchPorts(Session, SwitchMode::All);
    ASSERT_TRUE(EventsUntil([&] { return host.SeesEnd(); }));
    EXPECT_EQ(Session.InputBuffer.Text(), QStringLiteral("<half"));
    EXPECT_EQ(Session.Sock.State(1), SockState::Closed);
    EXPECT_EQ(Session.Sock.State(0), SockState::Listening);
}

TEST_F(PortSwitch, SerialAndParallelModesLeaveConnectionsOpen)
{
    SwitchPorts(Session, SwitchMode::Network);
    const Host host = Connect();
    SwitchPorts(Session, SwitchMode::Serial);
    SwitchPorts(Session, SwitchMode::Parallel);
    EXPECT_EQ(Session.Sock.State(1), SockState::Connected);
    EXPECT_FALSE(host.SeesEnd());
}

TEST_F(PortSwitch, CaptureTakenOffAtRunTimeGoesOnListening)
{
    SwitchPorts(Session, SwitchMode::All);
    Session.Settings.CaptureEnabled = false;
    SwitchPorts(Session, SwitchMode::All);
    EXPECT_EQ(Session.Sock.State(0), SockState::Listening);
    EXPECT_EQ(Session.Face.TrayPicture(), TrayImage::Disabled);
    EXPECT_EQ(Session.Face.TrayTip(), TrayTip::Disabled);
}

TEST_F(PortSwitch, PortInUseIsSilent)
{
    SockArray other;
    other.Listen();
    Session.Settings.Port = other.LocalPort();
    SwitchPorts(Session, SwitchMode::All);
    EXPECT_EQ(Session.Sock.State(0), SockState::Closed);
    EXPECT_EQ(Session.Face.TrayPicture(), TrayImage::Waiting);
    EXPECT_EQ(Station.Operator.AppMessages, QStringList());
    EXPECT_EQ(Station.Operator.CriticalBoxes, QStringList());
}

TEST_F(PortSwitch, BadPortNumberIsSilentAndTheOldPortIsOpened)
{
    SwitchPorts(Session, SwitchMode::All);
    Session.Settings.Port = 70000;
    SwitchPorts(Session, SwitchMode::All);
    EXPECT_EQ(Session.Sock.State(0), SockState::Listening);
    EXPECT_EQ(Station.Operator.CriticalBoxes, QStringList());
}

TEST_F(PortSwitch, ChangedPortIsTakenWithTheNextSwitch)
{
    SwitchPorts(Session, SwitchMode::All);
    const int before = Session.Sock.LocalPort();
    const int wanted = FreePort();
    Session.Settings.Port = wanted;
    EXPECT_EQ(Session.Sock.LocalPort(), before);
    SwitchPorts(Session, SwitchMode::All);
    EXPECT_EQ(Session.Sock.LocalPort(), wanted);
}

TEST_F(PortSwitch, SetPortDoesNothingWhileTheListenerIsClosed)
{
    EXPECT_FALSE(SetPort(Session, 9100));
    EXPECT_EQ(Session.Sock.State(0), SockState::Closed);
    EXPECT_EQ(Session.Sock.LocalPort(), 0);
}

TEST_F(PortSwitch, SetPortMovesTheListenerAndSetsTheIconItOwns)
{
    SwitchPorts(Session, SwitchMode::All);
    const int before = Session.Sock.LocalPort();
    Session.Face.SetTray(TrayImage::Disabled, QStringLiteral("before"));
    const int wanted = FreePort();
    EXPECT_TRUE(SetPort(Session, wanted));
    EXPECT_EQ(Session.Sock.State(0), SockState::Listening);
    EXPECT_EQ(Session.Sock.LocalPort(), wanted);
    EXPECT_EQ(Session.Face.TrayPicture(), TrayImage::Waiting);
    EXPECT_EQ(Session.Face.TrayTip(), TrayTip::Waiting);
    EXPECT_FALSE(Host(before).IsConnected());
}

TEST_F(PortSwitch, SetPortLeavesAnIconItDoesNotOwn)
{
    SwitchPorts(Session, SwitchMode::All);
    Session.OwnsTrayIcon = false;
    Session.Face.SetTray(TrayImage::Disabled, QStringLiteral("before"));
    EXPECT_TRUE(SetPort(Session, 0));
    EXPECT_EQ(Session.Sock.State(0), SockState::Listening);
    EXPECT_EQ(Session.Face.TrayTip(), QStringLiteral("before"));
}

TEST_F(PortSwitch, SetPortWithoutCaptureLeavesTheListenerClosed)
{
    SwitchPorts(Session, SwitchMode::All);
    Session.Settings.CaptureEnabled = false;
    EXPECT_TRUE(SetPort(Session, 9100));
    EXPECT_EQ(Session.Sock.State(0), SockState::Closed);
    EXPECT_EQ(Session.Sock.LocalPort(), 9100);
}
