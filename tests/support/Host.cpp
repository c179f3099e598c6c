#include "support/Host.h"
#include <arpa/inet.h>
#include <cerrno>
#include <gtest/gtest.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

namespace vantrel::test {

Host::Host(int port) : m_descriptor(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    m_connected =
        ::connect(m_descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
}

Host::~Host()
{
    Close();
}

Host::Host(Host&& other) noexcept
    : m_descriptor(std::exchange(other.m_descriptor, -1)), m_connected(other.m_connected)
{}

void Host::Send(const QByteArray& bytes) const
{
    ASSERT_EQ(::send(m_descriptor, bytes.constData(), static_cast<std::size_t>(bytes.size()),
                     MSG_NOSIGNAL),
              bytes.size());
}

qsizetype Host::SendWithoutWaiting(const QByteArray& bytes) const
{
    qsizetype sent = 0;
    while (sent < bytes.size()) {
        const ssize_t count =
            ::send(m_descriptor, bytes.constData() + sent,
                   static_cast<std::size_t>(bytes.size() - sent), MSG_NOSIGNAL | MSG_DONTWAIT);
        if (count < 0)
            break;
        sent += count;
    }
    return sent;
}

void Host::EndSending() const
{
    ASSERT_EQ(::shutdown(m_descriptor, SHUT_WR), 0);
}

QByteArray Host::Received() const
{
    QByteArray received;
    char bytes[4096];
    for (;;) {
        const ssize_t count = ::recv(m_descriptor, bytes, sizeof bytes, MSG_DONTWAIT);
        if (count <= 0)
            return received;
        received.append(bytes, count);
    }
}

void Host::Close()
{
    if (m_descriptor >= 0)
        ::close(std::exchange(m_descriptor, -1));
}

void Host::Reset()
{
    const linger atOnce{1, 0};
    ::setsockopt(m_descriptor, SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
    Close();
}

bool Host::SeesEnd() const
{
    char byte = 0;
    const auto got = ::recv(m_descriptor, &byte, 1, MSG_DONTWAIT | MSG_PEEK);
    return got == 0 || (got < 0 && errno != EAGAIN);
}

qsizetype Host::BytesToRead() const
{
    int bytes = 0;
    EXPECT_EQ(::ioctl(m_descriptor, FIONREAD, &bytes), 0);
    return bytes;
}

} // namespace vantrel::test
