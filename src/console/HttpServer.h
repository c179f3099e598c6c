#pragma once

#include "console/Answer.h"
#include "console/Request.h"
#include <QHostAddress>
#include <QObject>
#include <QSocketNotifier>
#include <QTimer>
#include <functional>
#include <memory>
#include <unordered_set>

struct MHD_Connection;
struct MHD_Daemon;

namespace vantrel::console {

/// Where the console listens.
struct ListenTerms
{
    QHostAddress Address = QHostAddress::LocalHost;
    /// 0 for any that is free.
    quint16 Port = 0;
    /// Contents of the PEM files; empty without TLS.
    QByteArray Certificate = {};
    QByteArray Key = {};

    bool IsSecure() const { return !Certificate.isEmpty(); }
};

/// Speaks HTTP/1.1 with browsers and programs, in the event loop of the thread it is made in. What
/// a client may take is limited: connections, the length of a request, the time it takes to send
/// one and to read an answer.
class HttpServer : public QObject
{
public:
    /// To be called once for each request, in the server's thread, now or later.
    using Reply = std::function<void(Answer)>;
    using Handler = std::function<void(const Request&, Reply)>;

    /// Fails with `PathNotFound` and the reason if it cannot listen there.
    HttpServer(const ListenTerms& terms, Handler handle);
    /// Ends all connections. Replies that come later are dropped.
    ~HttpServer() override;

    quint16 Port() const;

private:
    struct Exchange;
    struct Line;
    struct Callbacks;
    friend struct Callbacks;

    void Start(const ListenTerms& terms);
    void Run();
    void EndSlowLines();
    void SendAnswer(const std::shared_ptr<Exchange>& exchange, Answer answer);

    Handler m_handle;
    bool m_isSecure;
    MHD_Daemon* m_daemon = nullptr;
    std::unique_ptr<QSocketNotifier> m_notifier;
    QTimer m_again;
    QTimer m_look;
    std::unordered_set<Line*> m_lines;
    std::unordered_set<std::shared_ptr<Exchange>> m_suspended;
    /// Bytes of the bodies of all requests that are not finished.
    qsizetype m_bodies = 0;
    bool m_ends = false;
};

} // namespace vantrel::console
