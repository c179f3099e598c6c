#include "ports/SockServer.h"
#include "ports/HostAccess.h"
#include <QSocketNotifier>
#include <algorithm>
#include <cerrno>
#include <chrono>
#include <netinet/in.h>
#include <sys/eventfd.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <unistd.h>

namespace vantrel {

namespace {

/// Number of hosts that may wait while the station prints.
constexpr int WaitingHosts = 1024;
/// Delay before the listener checks again for free descriptors.
constexpr std::chrono::milliseconds RetryInterval{250};
/// Descriptors reserved for the station, which opens files for each card.
constexpr rlim_t ReservedDescriptors = 32;

/// Whether enough descriptors are free to accept a host. The system assigns the lowest free number.
bool HasRoomForHost()
{
    rlimit files{};
    const int next = ::eventfd(0, EFD_CLOEXEC);
    if (next < 0 || ::getrlimit(RLIMIT_NOFILE, &files) != 0)
        return false;
    ::close(next);
    const rlim_t kept = std::min(ReservedDescriptors, files.rlim_cur / 4);
    return static_cast<rlim_t>(next) < files.rlim_cur - kept;
}

PeerPlace PlaceOf(const sockaddr& address)
{
    // Both kinds of address have the port at the same place.
    const auto& place = reinterpret_cast<const sockaddr_in&>(address);
    return {PlainAddress(QHostAddress(&address)), ntohs(place.sin_port)};
}

bool IsWant(int error)
{
    return error == EMFILE || error == ENFILE || error == ENOBUFS || error == ENOMEM;
}

} // namespace

SockServer::SockServer(QObject* parent) : QObject(parent)
{
    m_server.setListenBacklogSize(WaitingHosts);
    m_rest.setSingleShot(true);
    m_rest.setInterval(RetryInterval);
    connect(&m_rest, &QTimer::timeout, this, [this] { Follow(); });
}

SockServer::~SockServer()
{
    Close();
}

bool SockServer::Listen(const QHostAddress& address, int port)
{
    if (!m_server.listen(address, static_cast<quint16>(port)))
        return false;
    // When descriptors run out, Qt's own accept loop retries at once and endlessly.
    m_server.pauseAccepting();
    m_arrivals =
        std::make_unique<QSocketNotifier>(m_server.socketDescriptor(), QSocketNotifier::Read);
    connect(m_arrivals.get(), &QSocketNotifier::activated, this, [this] { TakeHosts(); });
    Follow();
    return true;
}

void SockServer::Close()
{
    if (m_arrivals) {
        m_arrivals->setEnabled(false);
        // The notifier may be the caller.
        m_arrivals.release()->deleteLater();
    }
    m_server.close();
}

void SockServer::LetIn(bool on)
{
    m_letIn = on;
    Follow();
}

void SockServer::Follow()
{
    if (m_arrivals)
        m_arrivals->setEnabled(m_letIn && !m_rest.isActive());
}

void SockServer::Rest()
{
    m_rest.start();
    Follow();
}

void SockServer::TakeHosts()
{
    while (IsListening() && m_letIn) {
        if (!HasRoomForHost()) {
            Rest();
            return;
        }
        sockaddr_storage peer{};
        socklen_t length = sizeof peer;
        auto* address = reinterpret_cast<sockaddr*>(&peer);
        const int host = ::accept4(static_cast<int>(m_server.socketDescriptor()), address, &length,
                                   SOCK_CLOEXEC);
        if (host >= 0) {
            OnRequest(host, PlaceOf(*address));
        } else if (errno != EINTR && errno != ECONNABORTED) {
            if (IsWant(errno))
                Rest();
            return;
        }
    }
}

} // namespace vantrel
