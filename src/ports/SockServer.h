#pragma once

#include <QObject>
#include <QTcpServer>
#include <QTimer>
#include <functional>
#include <memory>

class QSocketNotifier;

namespace vantrel {

/// A listener that hands each host on as a bare descriptor. It leaves the process some descriptors
/// for its own work, and rests where there are no more: hosts that are not taken in wait.
class SockServer : public QObject
{
public:
    explicit SockServer(QObject* parent);
    ~SockServer() override;

    /// @return false where the address or the port cannot be had
    bool Listen(const QHostAddress& address, int port);
    void Close();
    bool IsListening() const { return m_server.isListening(); }
    int Port() const { return m_server.serverPort(); }
    QString ErrorText() const { return m_server.errorString(); }
    /// Whether hosts are taken in; at first they are.
    void LetIn(bool on);

    /// Gets each host. Who does not keep the descriptor closes it.
    std::function<void(qintptr)> OnRequest;

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
