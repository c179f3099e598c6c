#include "station/capture/Listener.h"
#include "station/capture/Ports.h"
#include "station/compose/CardSequence.h"
#include "station/compose/DocumentGenerator.h"
#include "support/Events.h"
#include "support/Host.h"
#include "support/Layouts.h"
#include <QCoreApplication>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

/// A station on which each connection has an input of its own, with a host that sends control
/// characters as delimiters.
class WaitingRecords : public ::testing::Test
{
protected:
    WaitingRecords()
    {
        Session.Options.KeepEveryRecord = true;
        Session.Settings.Framing = {QStringLiteral("[2]"), QStringLiteral("|[2]"),
                                    QStringLiteral("[3]")};
        Session.Settings.UseIP = true;
        ConnectSockets(Session);
        SwitchPorts(Session, SwitchMode::Network);
        QObject::connect(&Session.Face, &StationFace::RecordBegun, &Session.Face,
                         [this] { ++Begun; });
    }

    int Port() const { return Session.Sock.LocalPort(); }
    static void LetEverythingPendingHappen()
    {
        for (int turn = 0; turn < 50; ++turn)
            QCoreApplication::processEvents();
    }

    TestSession Station;
    vantrel::Session& Session = Station.Session;
    int Begun = 0;
};

} // namespace

TEST_F(WaitingRecords, BeginAfterARunOfNumbersWithTheirOwnDelimiters)
{
    const Host host(Port());
    SequenceOrder order;
    order.Start = QStringLiteral("1");
    order.End = QStringLiteral("4");
    RunSequence(Session, order, [&](double done, double) {
        host.Send("\x02"
                  "A|B\x03<C+D>");
        LetEverythingPendingHappen();
        EXPECT_EQ(Begun, done);
        return true;
    });
    ASSERT_TRUE(EventsUntil([&] { return Begun == 6; }));
    EXPECT_EQ(Session.FieldValues.Count(), 2);
    EXPECT_EQ(Session.FieldValues.Item(1), QStringLiteral("A"));
    EXPECT_EQ(Session.FieldValues.Item(2), QStringLiteral("B"));
}

TEST_F(WaitingRecords, BeginAfterTheDocumentGeneratorHasPrintedOnItsLayouts)
{
    Station.WithDatabase();
    const Host host(Port());
    int begunInside = 0;
    // The first three runs of events are those before, within and behind the first layout.
    for (int run = 0; run < 3; ++run) {
        Station.Operator.WhileEventsRun.emplace_back([&] {
            host.Send("\x02"
                      "A\x03");
            LetEverythingPendingHappen();
            begunInside = Begun;
        });
    }
    PrintOnLayouts(Session,
                   QStringLiteral("\x02"
                                  "B\x03"),
                   {QStringLiteral("first"), QStringLiteral("second")});
    EXPECT_EQ(Begun, 2);
    EXPECT_LE(begunInside, 1);
    EXPECT_TRUE(EventsUntil([&] { return Begun == 5; }));
}

} // namespace vantrel::test
