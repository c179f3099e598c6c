#include "support/HeldPort.h"
#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

namespace vantrel::test {

// A bound socket that does not listen keeps the system from giving the port to another program. A
// program that asks for the port by its number still gets it if both sockets reuse addresses, as
// every listener of Qt's does.
HeldPort::HeldPort() : m_descriptor(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
{
    const int on = 1;
    EXPECT_EQ(::setsockopt(m_descriptor, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on), 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    auto* plain = reinterpret_cast<sockaddr*>(&address);
    socklen_t length = sizeof address;
    EXPECT_EQ(::bind(m_descriptor, plain, length), 0);
    EXPECT_EQ(::getsockname(m_descriptor, plain, &length), 0);
    m_number = ntohs(address.sin_port);
}

HeldPort::~HeldPort()
{
    ::close(m_descriptor);
}

} // namespace vantrel::test
