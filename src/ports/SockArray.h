#pragma once

#include "ports/HostAccess.h"
#include <QObject>
#include <QString>
#include <memory>
#include <vector>

namespace vantrel {

/// States of a socket.
enum class SockState { Closed = 0, Listening = 2, Connected = 7 };

/// The station's sockets. Element 0 listens; each other element holds one accepted connection, is
/// created on demand and reused when closed. The class only moves bytes; `Listener` processes them.
class SockArray : public QObject
{
    Q_OBJECT

public:
    explicit SockArray(QObject* parent = nullptr);
    ~SockArray() override;

    /// The highest element that was loaded; 0 if only the listener exists.
    int HighestIndex() const;
    /// State of an element; an element that was never loaded is closed.
    SockState State(int index) const;
    /// Sets the port of element 0. The number is not checked here; `Listen` fails for one that is
    /// not a port.
    void SetLocalPort(int port);
    /// The port that element 0 listens on, or the number that was set.
    int LocalPort() const;
    /// Sets the address that element 0 listens on; empty for all addresses of the machine. Fails
    /// with `InvalidCall` if the text is not an address.
    void SetLocalAddress(const QString& address);
    /// Sets which hosts may connect. Connections of other hosts are closed at once without a
    /// signal.
    void SetAccess(const HostAccess& access);
    /// Starts listening. Fails with `InvalidCall` if the port is not 1 to 65535 or cannot be
    /// opened.
    void Listen();
    /// Creates element `index`, which must be one above the highest.
    void Load(int index);
    /// Assigns a waiting connection to element `index`. Fails with `InvalidCall` if the connection
    /// is gone.
    void Accept(int index, qintptr requestId);
    /// Takes all received bytes of an element, as characters of code page 1252.
    QString GetData(int index);
    /// Closes an element; does nothing if it is closed.
    void Close(int index);
    /// Address of the host that is connected to an element.
    QString RemoteHostIP(int index) const;
    /// The address that the station listens on, or else one of this machine's addresses that hosts
    /// can connect to.
    QString LocalIP() const;

Q_SIGNALS:
    /// A host wants to connect; `index` is 0. Pass `requestId` to `Accept`.
    void ConnectionRequest(int index, qintptr requestId);
    /// Bytes have arrived on an element; call `GetData`.
    void DataArrival(int index);
    /// The host has closed the connection of an element.
    void ConnectionClosed(int index);

private:
    struct Private;
    std::unique_ptr<Private> m_d;
};

} // namespace vantrel
