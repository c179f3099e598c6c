#include "ports/HostAccess.h"
#include "base/Profile.h"
#include "station/capture/Listener.h"
#include "station/capture/Ports.h"
#include "station/session/Settings.h"
#include "support/Events.h"
#include "support/Host.h"
#include "support/TestSession.h"
#include "support/Trace.h"
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

struct AccessRow
{
    const char* AllowFrom;
    const char* Host;
    bool Allowed;
};

constexpr AccessRow AccessRows[] = {
    {"", "203.0.113.9", true},
    {"   ", "203.0.113.9", true},
    {"10.0.0.5", "10.0.0.5", true},
    {"10.0.0.5", "10.0.0.6", false},
    {"10.0.0.5", "::ffff:10.0.0.5", true},
    {"192.168.7.0/24", "192.168.7.200", true},
    {"192.168.7.0/24", "192.168.8.1", false},
    {"192.168.7.0/255.255.255.0", "192.168.7.1", true},
    {" 10.0.0.5 , 192.168.7.0/24 ", "192.168.7.1", true},
    {"10.0.0.5,,192.168.7.0/24", "10.0.0.5", true},
    {"::1", "::1", true},
    {"fd00::/8", "fd12::7", true},
    {"fd00::/8", "fe80::7", false},
    {"host.example", "10.0.0.5", false},
    {"10.0.0.500", "10.0.0.5", false},
    {"10.0.0.5/99", "10.0.0.5", false},
    {"nonsense, 10.0.0.5", "10.0.0.5", true},
    {",", "10.0.0.5", false},
};

TEST(HostAccess, AdmitsTheNamedHostsAndNobodyElse)
{
    for (const AccessRow& row : AccessRows) {
        EXPECT_EQ(HostAccess(QLatin1StringView(row.AllowFrom))
                      .Allows(QHostAddress(QLatin1StringView(row.Host))),
                  row.Allowed)
            << row.AllowFrom << " for " << row.Host;
    }
    EXPECT_EQ(std::size(AccessRows), 18U);
}

class StationWithAllowedHosts : public ::testing::Test
{
protected:
    StationWithAllowedHosts()
    {
        Session.Settings.UseIP = true;
        ConnectSockets(Session);
    }
    void Open(const char* key, const char* value)
    {
        ASSERT_TRUE(WriteProfileValue(SettingsPath(Session.ProgramFolder),
                                      QStringLiteral("Station"), QLatin1StringView(key),
                                      QLatin1StringView(value)));
        SwitchPorts(Session, SwitchMode::Network);
    }
    bool Listens() const { return Session.Sock.State(0) == SockState::Listening; }

    TestSession Station;
    vantrel::Session& Session = Station.Session;
};

TEST_F(StationWithAllowedHosts, ClosesAHostThatIsNotNamedAtOnceAndInSilence)
{
    Open("AllowFrom", "10.0.0.5");
    Session.InputBuffer.Append(QStringLiteral("<half a rec"));
    const Host host(Session.Sock.LocalPort());
    EXPECT_TRUE(EventsUntil([&] { return host.SeesEnd(); }));
    EXPECT_EQ(Session.Sock.HighestIndex(), 0);
    EXPECT_EQ(Session.InputBuffer.Text(), QStringLiteral("<half a rec"));
}

TEST_F(StationWithAllowedHosts, TellsOfAHostThatItClosesWhereFailedStepsAreTold)
{
    Open("AllowFrom", "10.0.0.5");
    const QStringList told = TraceOf("vantrel.skip", [&] {
        const Host host(Session.Sock.LocalPort());
        EXPECT_TRUE(EventsUntil([&] { return host.SeesEnd(); }));
    });
    EXPECT_EQ(told,
              QStringList(QStringLiteral("the connection of a host was passed over: 5 AllowFrom "
                                         "does not name 127.0.0.1")));
}

TEST_F(StationWithAllowedHosts, AcceptsAHostThatIsNamed)
{
    Open("AllowFrom", "127.0.0.0/8, ::1");
    const Host host(Session.Sock.LocalPort());
    EXPECT_TRUE(EventsUntil([&] { return Session.Sock.HighestIndex() == 1; }));
    EXPECT_FALSE(host.SeesEnd());
}

TEST_F(StationWithAllowedHosts, ListensOnTheAddressItIsGiven)
{
    Open("BindAddress", "127.0.0.1");
    ASSERT_TRUE(Listens());
    EXPECT_EQ(Session.Sock.LocalIP(), QStringLiteral("127.0.0.1"));
    const Host host(Session.Sock.LocalPort());
    EXPECT_TRUE(EventsUntil([&] { return Session.Sock.HighestIndex() == 1; }));
    Open("BindAddress", "");
    EXPECT_TRUE(Listens());
}

TEST_F(StationWithAllowedHosts, AnInvalidAddressOpensNoPort)
{
    for (const char* address : {"everywhere", "300.1.1.1", "203.0.113.77"}) {
        Open("BindAddress", address);
        EXPECT_FALSE(Listens()) << address;
    }
}

} // namespace
} // namespace vantrel::test
