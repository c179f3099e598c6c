#include "support/SlowLine.h"
#include <algorithm>
#include <arpa/inet.h>
#include <cerrno>
#include <chrono>
#include <deque>
#include <gtest/gtest.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <vector>

namespace vantrel::test {

namespace {

using Clock = std::chrono::steady_clock;

constexpr int LookMs = 5;

class Descriptor
{
public:
    explicit Descriptor(int number) : m_number(number) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor()
    {
        if (m_number >= 0)
            ::close(m_number);
    }
    int Number() const { return m_number; }

private:
    int m_number;
};

/// @return what can be read without waiting; empty if nothing can. `ended` is set at the end.
QByteArray ReadWhatIsThere(int descriptor, bool& ended)
{
    QByteArray bytes(qsizetype{64} * 1024, Qt::Uninitialized);
    const ssize_t count =
        ::recv(descriptor, bytes.data(), static_cast<std::size_t>(bytes.size()), MSG_DONTWAIT);
    ended = count == 0 || (count < 0 && errno != EAGAIN && errno != EINTR);
    bytes.truncate(count > 0 ? count : 0);
    return bytes;
}

/// @return false if the other side is gone
bool WriteAll(int descriptor, const QByteArray& bytes)
{
    for (qsizetype written = 0; written < bytes.size();) {
        const ssize_t count =
            ::send(descriptor, bytes.constData() + written,
                   static_cast<std::size_t>(bytes.size() - written), MSG_NOSIGNAL);
        if (count < 0 && errno != EINTR)
            return false;
        written += count > 0 ? count : 0;
    }
    return true;
}

int ConnectedTo(const QByteArray& path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    qstrncpy(address.sun_path, path.constData(), sizeof address.sun_path);
    const int server = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (::connect(server, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0)
        return server;
    ::close(server);
    return -1;
}

} // namespace

struct SlowLine::Link
{
    struct Piece
    {
        Clock::time_point Due;
        QByteArray Bytes;
    };

    Link(int program, int server) : Program(program), Server(server) {}

    Descriptor Program;
    Descriptor Server;
    std::deque<Piece> OnItsWay;
    /// Whether the server has sent the last bytes.
    bool ServerWasLast = true;
    /// The server's next bytes are lost.
    bool LosesAnswer = false;
};

SlowLine::SlowLine(const QString& serverSocket) : m_server(serverSocket.toUtf8())
{
    m_listener = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    EXPECT_EQ(::bind(m_listener, reinterpret_cast<const sockaddr*>(&address), length), 0);
    constexpr int manyHosts = 64;
    EXPECT_EQ(::listen(m_listener, manyHosts), 0);
    EXPECT_EQ(::getsockname(m_listener, reinterpret_cast<sockaddr*>(&address), &length), 0);
    m_port = ntohs(address.sin_port);
    m_carrier = std::thread([this] { Carry(); });
}

SlowLine::~SlowLine()
{
    m_ends = true;
    m_carrier.join();
    ::close(m_listener);
}

void SlowLine::BreakAt(const QByteArray& word, Loses loses)
{
    const std::lock_guard guard(m_lock);
    m_word = word;
    m_loses = loses;
}

void SlowLine::SilenceAt(const QByteArray& word)
{
    const std::lock_guard guard(m_lock);
    m_wordOfSilence = word;
}

bool SlowLine::HasBroken() const
{
    const std::lock_guard guard(m_lock);
    return m_word.isEmpty();
}

SlowLine::Traffic SlowLine::Count() const
{
    const std::lock_guard guard(m_lock);
    return m_traffic;
}

void SlowLine::Accept()
{
    const int program = ::accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC);
    if (program < 0)
        return;
    constexpr int on = 1;
    ::setsockopt(program, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    const int server = ConnectedTo(m_server);
    if (server < 0) {
        ::close(program);
        return;
    }
    m_links.push_back(std::make_unique<Link>(program, server));
    const std::lock_guard guard(m_lock);
    ++m_traffic.Connections;
}

bool SlowLine::TakeFromProgram(Link& link)
{
    bool ended = false;
    const QByteArray bytes = ReadWhatIsThere(link.Program.Number(), ended);
    if (bytes.isEmpty())
        return !ended;
    const std::lock_guard guard(m_lock);
    m_traffic.RoundTrips += link.ServerWasLast ? 1 : 0;
    m_traffic.BytesToServer += bytes.size();
    link.ServerWasLast = false;
    if (!m_word.isEmpty() && bytes.contains(m_word)) {
        m_word.clear();
        if (m_loses == Loses::Word)
            return false;
        link.LosesAnswer = true;
    }
    if (!m_wordOfSilence.isEmpty() && bytes.contains(m_wordOfSilence)) {
        m_wordOfSilence.clear();
        m_silent = true;
    }
    link.OnItsWay.push_back({Clock::now() + std::chrono::milliseconds(m_delayMs), bytes});
    return true;
}

bool SlowLine::TakeFromServer(Link& link) const
{
    bool ended = false;
    const QByteArray bytes = ReadWhatIsThere(link.Server.Number(), ended);
    if (bytes.isEmpty())
        return !ended;
    if (link.LosesAnswer)
        return false;
    link.ServerWasLast = true;
    {
        const std::lock_guard guard(m_lock);
        m_traffic.BytesToProgram += bytes.size();
    }
    return WriteAll(link.Program.Number(), bytes);
}

bool SlowLine::Move(Link& link)
{
    if (!TakeFromProgram(link))
        return false;
    while (!m_silent && !link.OnItsWay.empty() && link.OnItsWay.front().Due <= Clock::now()) {
        if (!WriteAll(link.Server.Number(), link.OnItsWay.front().Bytes))
            return false;
        link.OnItsWay.pop_front();
    }
    return m_silent || TakeFromServer(link);
}

void SlowLine::Carry()
{
    while (!m_ends) {
        std::vector<pollfd> waiting{{.fd = m_listener, .events = POLLIN, .revents = 0}};
        for (const auto& link : m_links)
            for (const int end : {link->Program.Number(), link->Server.Number()})
                waiting.push_back({.fd = m_silent ? -1 : end, .events = POLLIN, .revents = 0});
        const bool isLate = std::any_of(m_links.begin(), m_links.end(),
                                        [](const auto& link) { return !link->OnItsWay.empty(); });
        ::poll(waiting.data(), waiting.size(), isLate ? 1 : LookMs);
        Accept();
        if (m_break.exchange(false))
            m_links.clear();
        if (!m_silent)
            m_links.remove_if([this](const auto& link) { return !Move(*link); });
    }
    m_links.clear();
}

} // namespace vantrel::test
