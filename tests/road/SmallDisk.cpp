#include "road/SmallDisk.h"
#include <QFile>
#include <algorithm>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vantrel::test {

namespace {

bool WriteWhole(const char* path, const QByteArray& text)
{
    QFile file(QString::fromLatin1(path));
    return file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) &&
           file.write(text) == text.size();
}

/// Gives this process mounts of its own, which end with it. A user who is not root becomes root in
/// a user name space, where the machine allows that.
bool HaveOwnMounts()
{
    if (::unshare(CLONE_NEWNS) != 0) {
        const QByteArray user = QByteArray::number(::getuid());
        const QByteArray group = QByteArray::number(::getgid());
        if (::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0 ||
            !WriteWhole("/proc/self/uid_map", user + ' ' + user + " 1") ||
            !WriteWhole("/proc/self/setgroups", "deny") ||
            !WriteWhole("/proc/self/gid_map", group + ' ' + group + " 1"))
            return false;
    }
    // Nothing that is mounted here may reach the machine.
    return ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

} // namespace

SmallDisk::SmallDisk(int mebibytes) : m_temporaryBefore(qgetenv("TMPDIR"))
{
    const QByteArray place = QFile::encodeName(m_place.path());
    const QByteArray size = "size=" + QByteArray::number(mebibytes) + 'm';
    m_mounted = HaveOwnMounts() &&
                ::mount("small", place.constData(), "tmpfs", MS_NODEV, size.constData()) == 0;
    if (m_mounted)
        qputenv("TMPDIR", place);
}

SmallDisk::~SmallDisk()
{
    if (!m_mounted)
        return;
    if (m_temporaryBefore.isNull())
        qunsetenv("TMPDIR");
    else
        qputenv("TMPDIR", m_temporaryBefore);
    EXPECT_EQ(::umount2(QFile::encodeName(m_place.path()).constData(), MNT_DETACH), 0);
}

QByteArray SmallDisk::Filler() const
{
    return QFile::encodeName(m_place.filePath(QStringLiteral("filler")));
}

void SmallDisk::FillUpTo(qint64 bytesLeft) const
{
    MakeRoom();
    const int filler = ::open(Filler().constData(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
    ASSERT_GE(filler, 0);
    constexpr std::array<char, 4096> block{};
    while (::write(filler, block.data(), block.size()) > 0) {
    }
    EXPECT_EQ(errno, ENOSPC);
    struct stat filled
    {};
    EXPECT_EQ(::fstat(filler, &filled), 0);
    EXPECT_EQ(::ftruncate(filler, std::max<off_t>(filled.st_size - bytesLeft, 0)), 0);
    ::close(filler);
}

void SmallDisk::MakeRoom() const
{
    ::unlink(Filler().constData());
}

} // namespace vantrel::test
