#pragma once

#include "ports/HostAccess.h"
#include <QObject>
#include <QString>
#include <memory>
#include <vector>

namespace vantrel {

/// States of a socket; the numbers are those the accept rule compares.
enum class SockState { Closed = 0, Listening = 2, Connected = 7 };

/// The station's sockets: element 0 listens, the others carry one accepted connection each, are
/// made on demand and reused when closed. It only moves bytes; what they mean is the listener's
/// matter.
class SockArray : public QObject
{
    Q_OBJECT

public:
    explicit SockArray(QObject* parent = nullptr);
    ~SockArray() override;

    int HighestIndex() const;
    SockState State(int index) const;
    /// The port of element 0. It is kept as it stands: a number that is no port fails in `Listen`,
    /// so that none is opened in its place.
    void SetLocalPort(int port);
    /// The port element 0 listens on, or the number it was given.
    int LocalPort() const;
    /// The address element 0 listens on; empty for all of the machine. Fails with `InvalidCall` for
    /// a text that is no address.
    void SetLocalAddress(const QString& address);
    /// Which hosts may connect; others are closed at once and nothing is told of them.
    void SetAccess(const HostAccess& access);
    /// Fails with `InvalidCall` where the port cannot be had, and outside 1 to 65535.
    void Listen();
    /// Makes element `index`, one above the highest.
    void Load(int index);
    /// Gives a waiting connection to element `index`. Fails with `InvalidCall` where it is gone.
    void Accept(int index, qintptr requestId);
    /// All that is waiting on an element, as characters of the code page.
    QString GetData(int index);
    void Close(int index);
    QString RemoteHostIP(int index) const;
    /// The address it listens on, or one of this machine that a host can connect to.
    QString LocalIP() const;

Q_SIGNALS:
    void ConnectionRequest(int index, qintptr requestId);
    void DataArrival(int index);
    void ConnectionClosed(int index);

private:
    struct Private;
    std::unique_ptr<Private> m_d;
};

} // namespace vantrel
