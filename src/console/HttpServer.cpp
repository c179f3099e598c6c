#include "console/HttpServer.h"
#include "base/Failure.h"
#include <QDeadlineTimer>
#include <algorithm>
#include <cerrno>
#include <cstring>
#include <microhttpd.h>
#include <netinet/in.h>
#include <sys/socket.h>

namespace vantrel::console {

namespace {

constexpr unsigned MostConnections = 1500;
/// In seconds, of a connection on which nothing moves.
constexpr unsigned LongestStandstill = 60;
/// For a whole request, and for the next one on the same connection.
constexpr std::chrono::seconds LongestRequest{15};
/// For a client to read an answer.
constexpr std::chrono::seconds LongestAnswer{120};
constexpr std::chrono::seconds LookInterval{1};
/// Bytes of bodies that are in memory at once, of all connections.
constexpr qsizetype MostBodies = qsizetype{32} * 1024 * 1024;
constexpr std::size_t LiveBlock = std::size_t{16} * 1024;

/// What every answer has: nothing of a page comes from elsewhere, is shown within another page, or
/// stays in the browser.
constexpr std::pair<const char*, const char*> StandingHeaders[] = {
    {"Content-Security-Policy",
     "default-src 'none'; script-src 'self'; style-src 'self'; img-src 'self'; connect-src 'self'; "
     "form-action 'self'; base-uri 'none'; frame-ancestors 'none'; "
     "require-trusted-types-for 'script'"},
    {"X-Content-Type-Options", "nosniff"},
    {"X-Frame-Options", "DENY"},
    {"Referrer-Policy", "no-referrer"},
    {"Cross-Origin-Resource-Policy", "same-origin"},
    {"Cross-Origin-Opener-Policy", "same-origin"},
    {"Cache-Control", "no-store"},
};

QByteArray HeaderOf(MHD_Connection* connection, const char* name)
{
    return QByteArray(MHD_lookup_connection_value(connection, MHD_HEADER_KIND, name));
}

/// The address as the system wants it. @return its length
socklen_t FillAddress(const ListenTerms& terms, sockaddr_storage& storage)
{
    if (terms.Address.protocol() == QAbstractSocket::IPv6Protocol) {
        auto& address = reinterpret_cast<sockaddr_in6&>(storage);
        const Q_IPV6ADDR bytes = terms.Address.toIPv6Address();
        address.sin6_family = AF_INET6;
        address.sin6_port = htons(terms.Port);
        std::memcpy(&address.sin6_addr, &bytes, sizeof bytes);
        return sizeof address;
    }
    auto& address = reinterpret_cast<sockaddr_in&>(storage);
    address.sin_family = AF_INET;
    address.sin_port = htons(terms.Port);
    address.sin_addr.s_addr = htonl(terms.Address.toIPv4Address());
    return sizeof address;
}

} // namespace

/// One connection.
struct HttpServer::Line
{
    int Descriptor = -1;
    /// When it is ended; never while an answer is being made or goes on live.
    QDeadlineTimer Until;
    /// What the request asks for whose head is being read.
    QByteArray Target = {};
};

/// One request and its answer.
struct HttpServer::Exchange
{
    HttpServer& Server;
    HttpServer::Line* Line;
    /// Null when the client is gone or everything is sent.
    MHD_Connection* Connection;
    vantrel::console::Request Request = {};
    enum class Step { Begins, Reads, IsAnswered, HasAnswer, IsSent } At = Step::Begins;
    vantrel::console::Answer Answer = {};
    bool IsSuspended = false;
    /// Keeps the exchange while the library knows its address.
    std::shared_ptr<Exchange> Self = {};
};

/// What the library calls.
struct HttpServer::Callbacks
{
    // The library may refuse the request without asking for an answer or telling its end.
    static void* Begin(void* /*server*/, const char* target, MHD_Connection* connection)
    {
        LineOf(connection)->Target = target;
        return nullptr;
    }

    static MHD_Result Handle(void* server, MHD_Connection* connection, const char* /*url*/,
                             const char* method, const char* /*version*/, const char* upload,
                             std::size_t* size, void** context)
    {
        if (*context == nullptr) {
            auto begun =
                std::make_shared<Exchange>(Exchange{.Server = *static_cast<HttpServer*>(server),
                                                    .Line = LineOf(connection),
                                                    .Connection = connection});
            begun->Self = begun;
            *context = begun.get();
        }
        auto& exchange = *static_cast<Exchange*>(*context);
        switch (exchange.At) {
        case Exchange::Step::Begins:
            return Read(exchange, method);
        case Exchange::Step::Reads:
            if (*size == 0)
                return Ask(exchange);
            if (!AddToBody(exchange, QByteArrayView(upload, static_cast<qsizetype>(*size))))
                return MHD_NO;
            *size = 0;
            return MHD_YES;
        case Exchange::Step::IsAnswered:
            return MHD_YES;
        case Exchange::Step::HasAnswer:
            return Queue(exchange);
        case Exchange::Step::IsSent:
            break;
        }
        return MHD_NO;
    }

    static void End(void* /*server*/, MHD_Connection* /*connection*/, void** context,
                    MHD_RequestTerminationCode /*how*/)
    {
        auto* exchange = static_cast<Exchange*>(*context);
        if (exchange == nullptr)
            return;
        *context = nullptr;
        exchange->Server.m_bodies -= exchange->Request.Body.size();
        exchange->Connection = nullptr;
        exchange->Line->Until.setRemainingTime(LongestRequest);
        if (exchange->Answer.Live) {
            exchange->Answer.Live->Wake = [] {};
            exchange->Answer.Live->End();
        }
        exchange->Self.reset();
    }

    static void Notify(void* server, MHD_Connection* connection, void** context,
                       MHD_ConnectionNotificationCode what)
    {
        auto& self = *static_cast<HttpServer*>(server);
        if (what == MHD_CONNECTION_NOTIFY_STARTED) {
            const auto* info =
                MHD_get_connection_info(connection, MHD_CONNECTION_INFO_CONNECTION_FD);
            auto* line = new HttpServer::Line;
            line->Descriptor = info->connect_fd;
            line->Until.setRemainingTime(LongestRequest);
            self.m_lines.insert(line);
            *context = line;
        } else if (*context != nullptr) {
            auto* line = static_cast<HttpServer::Line*>(*context);
            self.m_lines.erase(line);
            delete line;
            *context = nullptr;
        }
    }

    static ssize_t TakeLive(void* context, std::uint64_t /*position*/, char* to, std::size_t most)
    {
        auto& exchange = *static_cast<Exchange*>(context);
        LiveStream& live = *exchange.Answer.Live;
        if (live.IsEmpty() && live.IsEnded())
            return MHD_CONTENT_READER_END_OF_STREAM;
        if (live.IsEmpty()) {
            exchange.Server.m_suspended.insert(exchange.Self);
            exchange.IsSuspended = true;
            MHD_suspend_connection(exchange.Connection);
            return 0;
        }
        const QByteArray taken = live.Take(static_cast<qsizetype>(most));
        std::memcpy(to, taken.constData(), static_cast<std::size_t>(taken.size()));
        return taken.size();
    }

    static void Resume(Exchange& exchange)
    {
        if (!std::exchange(exchange.IsSuspended, false))
            return;
        exchange.Server.m_suspended.erase(exchange.Self);
        MHD_resume_connection(exchange.Connection);
        // The library goes on with it only when it runs.
        exchange.Server.m_again.start(0);
    }

private:
    static HttpServer::Line* LineOf(MHD_Connection* connection)
    {
        const auto* info = MHD_get_connection_info(connection, MHD_CONNECTION_INFO_SOCKET_CONTEXT);
        return static_cast<HttpServer::Line*>(info->socket_context);
    }

    static MHD_Result Read(Exchange& exchange, const char* method)
    {
        MHD_Connection* connection = exchange.Connection;
        Request& request = exchange.Request;
        request.Method = method;
        request.Host = HeaderOf(connection, "Host");
        request.Origin = HeaderOf(connection, "Origin");
        request.FetchSite = HeaderOf(connection, "Sec-Fetch-Site");
        request.Authorization = HeaderOf(connection, "Authorization");
        request.Cookie = HeaderOf(connection, "Cookie");
        request.ForgeryToken = HeaderOf(connection, "X-Forgery-Token");
        request.ContentType = HeaderOf(connection, "Content-Type");
        request.IsSecure = exchange.Server.m_isSecure;
        const auto target = ReadTarget(std::exchange(exchange.Line->Target, {}));
        if (!target)
            return RefuseAtOnce(exchange, 400,
                                QStringLiteral("This is no address of the console."));
        request.To = *target;
        if (HeaderOf(connection, "Content-Length").toULongLong() > quint64{LongestBody})
            return RefuseAtOnce(
                exchange, 413,
                QStringLiteral("The request is longer than %1 bytes.").arg(LongestBody));
        exchange.At = Exchange::Step::Reads;
        return MHD_YES;
    }

    /// @return false if there is no room for it
    static bool AddToBody(Exchange& exchange, QByteArrayView bytes)
    {
        QByteArray& body = exchange.Request.Body;
        qsizetype& bodies = exchange.Server.m_bodies;
        if (body.size() + bytes.size() > LongestBody || bodies + bytes.size() > MostBodies)
            return false;
        body.append(bytes);
        bodies += bytes.size();
        return true;
    }

    static MHD_Result RefuseAtOnce(Exchange& exchange, int status, const QString& reason)
    {
        exchange.Answer = Refusal(status, reason);
        // Its body is not read.
        exchange.Answer.Headers.emplace_back("Connection", "close");
        return Queue(exchange);
    }

    static MHD_Result Ask(Exchange& exchange)
    {
        exchange.At = Exchange::Step::IsAnswered;
        exchange.Line->Until = QDeadlineTimer(QDeadlineTimer::Forever);
        HttpServer& server = exchange.Server;
        const std::weak_ptr<Exchange> asked = exchange.Self;
        server.m_handle(exchange.Request, [asked, &server](Answer answer) {
            if (const auto answered = asked.lock(); answered && answered->Connection != nullptr)
                server.SendAnswer(answered, std::move(answer));
        });
        if (exchange.At == Exchange::Step::HasAnswer)
            return Queue(exchange);
        exchange.Server.m_suspended.insert(exchange.Self);
        exchange.IsSuspended = true;
        MHD_suspend_connection(exchange.Connection);
        return MHD_YES;
    }

    static MHD_Result Queue(Exchange& exchange)
    {
        exchange.At = Exchange::Step::IsSent;
        const Answer& answer = exchange.Answer;
        if (answer.Live)
            exchange.Line->Until = QDeadlineTimer(QDeadlineTimer::Forever);
        else
            exchange.Line->Until.setRemainingTime(LongestAnswer);
        MHD_Response* response = answer.Live ? LiveResponse(exchange) : PlainResponse(answer);
        if (response == nullptr)
            return MHD_NO;
        for (const auto& [name, value] : StandingHeaders)
            MHD_add_response_header(response, name, value);
        if (!answer.Type.isEmpty())
            MHD_add_response_header(response, "Content-Type", answer.Type.constData());
        for (const auto& [name, value] : answer.Headers)
            MHD_add_response_header(response, name.constData(), value.constData());
        const MHD_Result queued =
            MHD_queue_response(exchange.Connection, static_cast<unsigned>(answer.Status), response);
        MHD_destroy_response(response);
        return queued;
    }

    static MHD_Response* PlainResponse(const Answer& answer)
    {
        return MHD_create_response_from_buffer(static_cast<std::size_t>(answer.Body.size()),
                                               const_cast<char*>(answer.Body.constData()),
                                               MHD_RESPMEM_MUST_COPY);
    }

    static MHD_Response* LiveResponse(Exchange& exchange)
    {
        exchange.Answer.Live->Wake = [&exchange] { Resume(exchange); };
        return MHD_create_response_from_callback(MHD_SIZE_UNKNOWN, LiveBlock, TakeLive, &exchange,
                                                 nullptr);
    }
};

HttpServer::HttpServer(const ListenTerms& terms, Handler handle)
    : m_handle(std::move(handle)), m_isSecure(terms.IsSecure())
{
    Start(terms);
    const auto* info = MHD_get_daemon_info(m_daemon, MHD_DAEMON_INFO_EPOLL_FD);
    m_notifier = std::make_unique<QSocketNotifier>(info->epoll_fd, QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &HttpServer::Run);
    m_again.setSingleShot(true);
    connect(&m_again, &QTimer::timeout, this, &HttpServer::Run);
    connect(&m_look, &QTimer::timeout, this, &HttpServer::EndSlowLines);
    m_look.start(LookInterval);
}

void HttpServer::Start(const ListenTerms& terms)
{
    sockaddr_storage address{};
    FillAddress(terms, address);
    unsigned flags = MHD_USE_EPOLL | MHD_ALLOW_SUSPEND_RESUME;
    if (address.ss_family == AF_INET6)
        flags |= MHD_USE_IPv6;
    std::vector<MHD_OptionItem> options{
        {MHD_OPTION_SOCK_ADDR, 0, &address},
        {MHD_OPTION_CONNECTION_LIMIT, MostConnections, nullptr},
        {MHD_OPTION_CONNECTION_TIMEOUT, LongestStandstill, nullptr},
        {MHD_OPTION_CONNECTION_MEMORY_LIMIT, LongestHead, nullptr},
        {MHD_OPTION_STRICT_FOR_CLIENT, 1, nullptr},
    };
    if (terms.IsSecure()) {
        flags |= MHD_USE_TLS;
        options.push_back(
            {MHD_OPTION_HTTPS_MEM_CERT, 0, const_cast<char*>(terms.Certificate.constData())});
        options.push_back({MHD_OPTION_HTTPS_MEM_KEY, 0, const_cast<char*>(terms.Key.constData())});
        options.push_back({MHD_OPTION_HTTPS_PRIORITIES, 0,
                           const_cast<char*>("NORMAL:-VERS-ALL:+VERS-TLS1.3:+VERS-TLS1.2")});
    }
    options.push_back({MHD_OPTION_END, 0, nullptr});
    errno = 0;
    m_daemon = MHD_start_daemon(flags, 0, nullptr, nullptr, &Callbacks::Handle, this,
                                MHD_OPTION_URI_LOG_CALLBACK, &Callbacks::Begin, this,
                                MHD_OPTION_NOTIFY_COMPLETED, &Callbacks::End, this,
                                MHD_OPTION_NOTIFY_CONNECTION, &Callbacks::Notify, this,
                                MHD_OPTION_ARRAY, options.data(), MHD_OPTION_END);
    if (m_daemon == nullptr) {
        const bool isAddress = errno == EADDRINUSE || errno == EADDRNOTAVAIL || errno == EACCES;
        const QString reason = isAddress || !terms.IsSecure()
                                   ? QString::fromLocal8Bit(std::strerror(errno))
                                   : QStringLiteral("the certificate or its key cannot be used");
        throw Failure(FailureNumber::PathNotFound,
                      QStringLiteral("The console cannot listen on %1, port %2: %3.")
                          .arg(terms.Address.toString())
                          .arg(terms.Port)
                          .arg(reason));
    }
}

HttpServer::~HttpServer()
{
    m_ends = true;
    for (const auto& exchange : std::exchange(m_suspended, {})) {
        exchange->IsSuspended = false;
        if (exchange->Answer.Live)
            exchange->Answer.Live->Wake = [] {};
        MHD_resume_connection(exchange->Connection);
    }
    m_notifier.reset();
    MHD_stop_daemon(m_daemon);
}

quint16 HttpServer::Port() const
{
    return MHD_get_daemon_info(m_daemon, MHD_DAEMON_INFO_BIND_PORT)->port;
}

void HttpServer::Run()
{
    if (m_ends)
        return;
    MHD_run(m_daemon);
    MHD_UNSIGNED_LONG_LONG milliseconds = 0;
    if (MHD_get_timeout(m_daemon, &milliseconds) != MHD_YES) {
        m_again.stop();
        return;
    }
    constexpr MHD_UNSIGNED_LONG_LONG longest = 60'000;
    m_again.start(static_cast<int>(std::min(milliseconds, longest)));
}

void HttpServer::EndSlowLines()
{
    for (const Line* line : m_lines) {
        if (line->Until.hasExpired())
            ::shutdown(line->Descriptor, SHUT_RDWR);
    }
}

void HttpServer::SendAnswer(const std::shared_ptr<Exchange>& exchange, Answer answer)
{
    if (m_ends || exchange->At != Exchange::Step::IsAnswered)
        return;
    exchange->Answer = std::move(answer);
    exchange->At = Exchange::Step::HasAnswer;
    Callbacks::Resume(*exchange);
}

} // namespace vantrel::console
