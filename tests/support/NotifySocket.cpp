#include "support/NotifySocket.h"
#include "support/Events.h"
#include <QFile>
#include <array>
#include <cstring>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace vantrel::test {

NotifySocket::NotifySocket()
{
    m_socket = ::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const QByteArray path = QFile::encodeName(Path());
    EXPECT_LT(path.size(), qsizetype{sizeof address.sun_path});
    std::strncpy(address.sun_path, path.constData(), sizeof address.sun_path - 1);
    EXPECT_EQ(::bind(m_socket, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    m_notifier = std::make_unique<QSocketNotifier>(m_socket, QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, [this] { Read(); });
}

NotifySocket::~NotifySocket()
{
    m_notifier.reset();
    ::close(m_socket);
}

QString NotifySocket::Path() const
{
    return m_folder.filePath(QStringLiteral("notify"));
}

bool NotifySocket::WaitUntilTold(const QByteArray& state, int times)
{
    return EventsUntil([&] { return m_told.count(state) >= times; });
}

void NotifySocket::Read()
{
    std::array<char, 4096> bytes{};
    for (ssize_t length = 0; (length = ::recv(m_socket, bytes.data(), bytes.size(), 0)) >= 0;)
        m_told.append(QByteArray(bytes.data(), length));
}

} // namespace vantrel::test
