#pragma once

#include "SerialStation.h"
#include "support/Host.h"
#include <QCoreApplication>
#include <utility>

namespace vantrel::test {

/// A station on which each connection and the serial port has an input of its own, and whose layout
/// prints the first two values of each record.
class IntakeStation : public SerialStation
{
protected:
    explicit IntakeStation(StationOptions options = {}) : SerialStation(Keeping(std::move(options)))
    {
        Session.Settings.UseIP = true;
        SwitchPorts(Session, SwitchMode::Network);
        QObject::connect(&Session.Face, &StationFace::RecordBegun, &Session.Face,
                         [this] { ++Begun; });
    }

    static StationOptions Keeping(StationOptions options)
    {
        options.KeepEveryRecord = true;
        return options;
    }
    int Port() const { return Session.Sock.LocalPort(); }
    /// A host that the station has accepted.
    Host Connect() const
    {
        const auto connected = [this] {
            int count = 0;
            for (int index = 1; index <= Session.Sock.HighestIndex(); ++index)
                count += Session.Sock.State(index) == SockState::Connected ? 1 : 0;
            return count;
        };
        const int before = connected();
        Host host(Port());
        EXPECT_TRUE(EventsUntil([&] { return connected() == before + 1; }));
        return host;
    }
    /// Whether the cards come to show the values of these records, in this order. The second field
    /// repeats a single value.
    bool ComesToPrint(const QStringList& records)
    {
        QStringList texts;
        for (const QString& record : records)
            texts += {record.section(QLatin1Char('+'), 0, 0), record.section(QLatin1Char('+'), -1)};
        const QStringList wanted = Prints(texts);
        EXPECT_TRUE(EventsUntil([&] { return Printed().size() >= wanted.size(); }));
        EXPECT_EQ(Printed(), wanted);
        return Printed() == wanted;
    }
    /// Lets everything happen that is pending, and what follows from it.
    static void Settle()
    {
        for (int turn = 0; turn < 50; ++turn) {
            QCoreApplication::processEvents();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
    }

    int Begun = 0;
};

} // namespace vantrel::test
