#pragma once

#include <QHostAddress>
#include <QObject>
#include <QTcpServer>
#include <QTimer>
#include <functional>
#include <memory>

class QSocketNotifier;

namespace vantrel {

/// Where a connection comes from.
struct PeerPlace
{
    QHostAddress Address;
    int Port = 0;
};

/// A listening socket that passes on each connection as a socket descriptor. It reserves some
/// descriptors for the process and stops accepting while no more are free; hosts then wait.
class SockServer : public QObject
{
public:
    explicit SockServer(QObject* parent);
    ~SockServer() override;

    /// Starts listening. @return false if the address or port is not available
    bool Listen(const QHostAddress& address, int port);
    void Close();
    bool IsListening() const { return m_server.isListening(); }
    /// The port it listens on; 0 if it does not listen.
    int Port() const { return m_server.serverPort(); }
    QString ErrorText() const { return m_server.errorString(); }
    /// Turns accepting on or off; initially on. Hosts that are not accepted wait.
    void LetIn(bool on);

    /// Receives the descriptor of each accepted connection and owns it. The place is told with it,
    /// since the system forgets it when the host has reset the connection already.
    std::function<void(qintptr, const PeerPlace&)> OnRequest;

private:
    void TakeHosts();
    void Rest();
    void Follow();

    QTcpServer m_server;
    std::unique_ptr<QSocketNotifier> m_arrivals;
    QTimer m_rest;
    bool m_letIn = true;
};

} // namespace vantrel
