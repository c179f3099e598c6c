#include "support/PtyPair.h"
#include "support/Events.h"
// The kernel's own declarations: those of the C library have no speed outside its list.
#include <QFile>
#include <algorithm>
#include <asm/ioctls.h>
#include <asm/termbits.h>
#include <cstdlib>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/ioctl.h>
#include <unistd.h>
#include <utility>

namespace vantrel::test {

namespace {

termios2 ModeOf(int descriptor)
{
    termios2 mode{};
    EXPECT_EQ(::ioctl(descriptor, TCGETS2, &mode), 0);
    return mode;
}

/// Bytes are not echoed, changed, or held until a line end.
void MakeRaw(int descriptor)
{
    termios2 mode = ModeOf(descriptor);
    mode.c_iflag = 0;
    mode.c_oflag = 0;
    mode.c_lflag = 0;
    EXPECT_EQ(::ioctl(descriptor, TCSETS2, &mode), 0);
}

void Shut(int& descriptor)
{
    if (descriptor >= 0)
        ::close(std::exchange(descriptor, -1));
}

} // namespace

PtyPair::PtyPair(QString name)
    : m_name(std::move(name)), m_host(::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC))
{
    EXPECT_EQ(::grantpt(m_host), 0);
    EXPECT_EQ(::unlockpt(m_host), 0);
    char device[64] = {};
    EXPECT_EQ(::ptsname_r(m_host, device, sizeof device), 0);
    m_line = ::open(device, O_RDWR | O_NOCTTY | O_CLOEXEC);
    EXPECT_GE(m_line, 0);
    MakeRaw(m_line);
    QFile::remove(m_name);
    EXPECT_TRUE(QFile::link(QString::fromLocal8Bit(device), m_name));
}

PtyPair::~PtyPair()
{
    Unplug();
}

void PtyPair::Send(const QByteArray& bytes) const
{
    qsizetype sent = 0;
    ASSERT_TRUE(EventsUntil([&] {
        const auto left = static_cast<std::size_t>(bytes.size() - sent);
        const ssize_t written = left > 0 ? ::write(m_host, bytes.constData() + sent, left) : 0;
        sent += written > 0 ? written : 0;
        return sent == bytes.size();
    })) << "the line takes no more";
}

qsizetype PtyPair::SendWithoutWaiting(const QByteArray& bytes) const
{
    return std::max<ssize_t>(
        0, ::write(m_host, bytes.constData(), static_cast<std::size_t>(bytes.size())));
}

QByteArray PtyPair::Received() const
{
    QByteArray received(BytesToRead(), Qt::Uninitialized);
    const ssize_t count =
        ::read(m_host, received.data(), static_cast<std::size_t>(received.size()));
    received.truncate(std::max<ssize_t>(0, count));
    return received;
}

void PtyPair::Unplug()
{
    if (m_host < 0)
        return;
    Shut(m_host);
    Shut(m_line);
    QFile::remove(m_name);
}

qsizetype PtyPair::BytesToRead() const
{
    int bytes = 0;
    EXPECT_EQ(::ioctl(m_host, FIONREAD, &bytes), 0);
    return bytes;
}

unsigned PtyPair::Speed() const
{
    return ModeOf(m_line).c_ospeed;
}

bool PtyPair::HasXonXoff() const
{
    return (ModeOf(m_line).c_iflag & (IXON | IXOFF)) == (IXON | IXOFF);
}

bool PtyPair::HasHardwareFlow() const
{
    return (ModeOf(m_line).c_cflag & CRTSCTS) != 0;
}

bool PtyPair::HasLongStop() const
{
    return (ModeOf(m_line).c_cflag & CSTOPB) != 0;
}

} // namespace vantrel::test
