#pragma once

#include "ports/SockArray.h"
#include "support/Events.h"
#include "support/HeldPort.h"
#include "support/Host.h"
#include <QStringList>
#include <functional>
#include <gtest/gtest.h>

namespace vantrel::test {

/// A listening array that accepts every host on an element of its own and keeps what it reports.
class ListeningSockets : public ::testing::Test
{
protected:
    ListeningSockets()
    {
        QObject::connect(&Sock, &SockArray::ConnectionRequest, &Sock, [this](int, qintptr request) {
            const int index = Sock.HighestIndex() + 1;
            Sock.Load(index);
            Sock.Accept(index, request);
        });
        QObject::connect(&Sock, &SockArray::DataArrival, &Sock, [this](int index) {
            ++Depth;
            Deepest = std::max(Deepest, Depth);
            Reports.append(QStringLiteral("%1 sent %2").arg(index).arg(Sock.GetData(index)));
            if (auto next = std::exchange(InHandler, nullptr))
                next();
            --Depth;
        });
        QObject::connect(&Sock, &SockArray::ConnectionClosed, &Sock, [this](int index) {
            Reports.append(QStringLiteral("%1 closed").arg(index));
            Sock.Close(index);
        });
        Sock.SetLocalPort(Port.Number());
        Sock.Listen();
    }

    /// A connected host on the next element.
    Host Connect()
    {
        const int before = Sock.HighestIndex();
        Host host(Sock.LocalPort());
        EXPECT_TRUE(EventsUntil([&] { return Sock.HighestIndex() > before; }));
        return host;
    }

    bool WasReported(const QString& what)
    {
        return EventsUntil([&] { return Reports.contains(what); });
    }

    HeldPort Port;
    SockArray Sock;
    QStringList Reports;
    /// Runs once, inside the next arrival.
    std::function<void()> InHandler;
    int Depth = 0;
    int Deepest = 0;
};

} // namespace vantrel::test
