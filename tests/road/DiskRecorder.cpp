#include "road/DiskRecord.h"
#include <cerrno>
#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <mutex>
#include <string>
#include <string_view>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <unistd.h>

// Loaded before a program, this stands in front of the functions of the C library that change files
// and writes down every change in its order. Nothing is really forced to the disk: that is what is
// decided afterwards, when the states are made that a power cut can leave.

namespace vantrel::test {
namespace {

/// How long a disk takes to confirm.
constexpr useconds_t DiskMicroseconds = 300;

class Recorder
{
public:
    Recorder()
    {
        if (const char* path = std::getenv(DiskRecordVariable))
            m_file =
                Call(SYS_openat, AT_FDCWD, path, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    }

    template <typename... Arguments>
    static int Call(long number, Arguments... arguments)
    {
        return static_cast<int>(::syscall(number, arguments...));
    }

    void Note(DiskEvent event, std::uint64_t inode, std::uint64_t offset = 0,
              std::string_view path = {}, std::string_view other = {}, std::string_view bytes = {})
    {
        ++m_events;
        if (m_file < 0)
            return;
        const int error = errno;
        DiskRecord head{event,
                        static_cast<std::uint32_t>(path.size()),
                        static_cast<std::uint32_t>(other.size()),
                        static_cast<std::uint32_t>(bytes.size()),
                        inode,
                        offset};
        std::string record(reinterpret_cast<const char*>(&head), sizeof head);
        record.append(path).append(other).append(bytes);
        if (::syscall(SYS_write, m_file, record.data(), record.size()) !=
            static_cast<long>(record.size()))
            std::abort();
        errno = error;
    }

    std::mutex Mutex;
    std::uint64_t Events() const { return m_events; }

private:
    int m_file = -1;
    std::uint64_t m_events = 0;
};

Recorder& TheRecorder()
{
    static Recorder recorder;
    return recorder;
}

/// The i-node of a file or folder; 0 for everything else.
std::uint64_t InodeOf(int descriptor)
{
    struct stat about
    {};
    const int error = errno;
    const bool known =
        ::fstat(descriptor, &about) == 0 && (S_ISREG(about.st_mode) || S_ISDIR(about.st_mode));
    errno = error;
    return known ? about.st_ino : 0;
}

std::uint64_t InodeAt(const char* path)
{
    struct stat about
    {};
    const int error = errno;
    const bool known = ::lstat(path, &about) == 0;
    errno = error;
    return known ? about.st_ino : 0;
}

int Open(int folder, const char* path, int flags, mode_t mode)
{
    Recorder& recorder = TheRecorder();
    const std::lock_guard lock(recorder.Mutex);
    const bool nameless = (flags & O_TMPFILE) == O_TMPFILE;
    struct stat before
    {};
    const int error = errno;
    const bool isNew = (flags & O_CREAT) != 0 && ::fstatat(folder, path, &before, 0) != 0;
    errno = error;
    const int descriptor = Recorder::Call(SYS_openat, folder, path, flags, mode);
    if (descriptor < 0)
        return descriptor;
    const std::uint64_t inode = InodeOf(descriptor);
    if (nameless)
        recorder.Note(DiskEvent::NewFile, inode);
    else if (isNew)
        recorder.Note(DiskEvent::NewFile, inode, 0, path);
    else if ((flags & O_TRUNC) != 0 && inode != 0)
        recorder.Note(DiskEvent::Length, inode, 0);
    return descriptor;
}

int OpenWith(int folder, const char* path, int flags, va_list further)
{
    const bool hasMode = (flags & (O_CREAT | O_TMPFILE)) != 0;
    return Open(folder, path, flags, hasMode ? va_arg(further, mode_t) : 0);
}

/// Where the next `write` of a descriptor goes.
off_t PlaceOf(int descriptor)
{
    struct stat about
    {};
    if ((::fcntl(descriptor, F_GETFL) & O_APPEND) != 0 && ::fstat(descriptor, &about) == 0)
        return about.st_size;
    return ::lseek(descriptor, 0, SEEK_CUR);
}

template <typename DoWrite>
ssize_t Write(int descriptor, const void* bytes, off_t offset, DoWrite&& doWrite)
{
    const std::uint64_t inode = InodeOf(descriptor);
    if (inode == 0)
        return doWrite();
    Recorder& recorder = TheRecorder();
    const std::lock_guard lock(recorder.Mutex);
    const off_t place = offset < 0 ? PlaceOf(descriptor) : offset;
    const ssize_t written = doWrite();
    if (written > 0)
        recorder.Note(DiskEvent::Write, inode, static_cast<std::uint64_t>(place), {}, {},
                      {static_cast<const char*>(bytes), static_cast<std::size_t>(written)});
    return written;
}

int Force(int descriptor)
{
    Recorder& recorder = TheRecorder();
    std::uint64_t asked = 0;
    {
        const std::lock_guard lock(recorder.Mutex);
        asked = recorder.Events();
    }
    ::usleep(DiskMicroseconds);
    const std::lock_guard lock(recorder.Mutex);
    recorder.Note(DiskEvent::Force, InodeOf(descriptor), asked);
    return 0;
}

/// Whether a socket leads to a host, and not to another program of this machine's own.
bool IsOfNetwork(int socket)
{
    int domain = 0;
    socklen_t size = sizeof domain;
    return ::getsockopt(socket, SOL_SOCKET, SO_DOMAIN, &domain, &size) == 0 &&
           (domain == AF_INET || domain == AF_INET6);
}

/// Runs a call that changes names or lengths, and notes it if it worked.
template <typename Run, typename Tell>
int Changed(Run&& run, Tell&& tell)
{
    Recorder& recorder = TheRecorder();
    const std::lock_guard lock(recorder.Mutex);
    const int result = run();
    if (result == 0)
        tell(recorder);
    return result;
}

int Remove(const char* path, int flags)
{
    return Changed([&] { return Recorder::Call(SYS_unlinkat, AT_FDCWD, path, flags); },
                   [&](Recorder& recorder) { recorder.Note(DiskEvent::RemoveName, 0, 0, path); });
}

int SetLength(int descriptor, off_t length)
{
    return Changed([&] { return Recorder::Call(SYS_ftruncate, descriptor, length); },
                   [&](Recorder& recorder) {
                       recorder.Note(DiskEvent::Length, InodeOf(descriptor),
                                     static_cast<std::uint64_t>(length));
                   });
}

int Rename(const char* from, const char* to, unsigned flags)
{
    return Changed(
        [&] { return Recorder::Call(SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, flags); },
        [&](Recorder& recorder) { recorder.Note(DiskEvent::Rename, InodeAt(to), 0, from, to); });
}

int Link(int fromFolder, const char* from, int toFolder, const char* to, int flags)
{
    return Changed(
        [&] { return Recorder::Call(SYS_linkat, fromFolder, from, toFolder, to, flags); },
        [&](Recorder& recorder) { recorder.Note(DiskEvent::Name, InodeAt(to), 0, to); });
}

} // namespace
} // namespace vantrel::test

using namespace vantrel::test;

// NOLINTBEGIN: the names and parameters of the C library.
extern "C" {

int open(const char* path, int flags, ...)
{
    va_list further;
    va_start(further, flags);
    const int descriptor = OpenWith(AT_FDCWD, path, flags, further);
    va_end(further);
    return descriptor;
}

int open64(const char* path, int flags, ...)
{
    va_list further;
    va_start(further, flags);
    const int descriptor = OpenWith(AT_FDCWD, path, flags, further);
    va_end(further);
    return descriptor;
}

int openat(int folder, const char* path, int flags, ...)
{
    va_list further;
    va_start(further, flags);
    const int descriptor = OpenWith(folder, path, flags, further);
    va_end(further);
    return descriptor;
}

int openat64(int folder, const char* path, int flags, ...)
{
    va_list further;
    va_start(further, flags);
    const int descriptor = OpenWith(folder, path, flags, further);
    va_end(further);
    return descriptor;
}

ssize_t write(int descriptor, const void* bytes, size_t count)
{
    return Write(descriptor, bytes, -1,
                 [&] { return ::syscall(SYS_write, descriptor, bytes, count); });
}

ssize_t pwrite(int descriptor, const void* bytes, size_t count, off_t offset)
{
    return Write(descriptor, bytes, offset,
                 [&] { return ::syscall(SYS_pwrite64, descriptor, bytes, count, offset); });
}

ssize_t pwrite64(int descriptor, const void* bytes, size_t count, off64_t offset)
{
    return Write(descriptor, bytes, offset,
                 [&] { return ::syscall(SYS_pwrite64, descriptor, bytes, count, offset); });
}

int ftruncate(int descriptor, off_t length) noexcept
{
    return SetLength(descriptor, length);
}

int ftruncate64(int descriptor, off64_t length) noexcept
{
    return SetLength(descriptor, length);
}

int fsync(int descriptor)
{
    return Force(descriptor);
}

int fdatasync(int descriptor)
{
    return Force(descriptor);
}

int mkdir(const char* path, mode_t mode) noexcept
{
    return Changed(
        [&] { return Recorder::Call(SYS_mkdirat, AT_FDCWD, path, mode); },
        [&](Recorder& recorder) { recorder.Note(DiskEvent::NewFolder, InodeAt(path), 0, path); });
}

int unlink(const char* path) noexcept
{
    return Remove(path, 0);
}

int remove(const char* path) noexcept
{
    const int result = Remove(path, 0);
    return result != 0 && errno == EISDIR ? Remove(path, AT_REMOVEDIR) : result;
}

int rmdir(const char* path) noexcept
{
    return Remove(path, AT_REMOVEDIR);
}

int rename(const char* from, const char* to) noexcept
{
    return Rename(from, to, 0);
}

int renameat2(int, const char* from, int, const char* to, unsigned flags) noexcept
{
    return Rename(from, to, flags);
}

int link(const char* from, const char* to) noexcept
{
    return Link(AT_FDCWD, from, AT_FDCWD, to, 0);
}

int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) noexcept
{
    return Link(fromFolder, from, toFolder, to, flags);
}

ssize_t send(int socket, const void* bytes, size_t count, int flags)
{
    Recorder& recorder = TheRecorder();
    const std::lock_guard lock(recorder.Mutex);
    const ssize_t sent = ::syscall(SYS_sendto, socket, bytes, count, flags, nullptr, 0);
    if (sent > 0 && IsOfNetwork(socket))
        recorder.Note(DiskEvent::Sent, 0, 0, {}, {},
                      {static_cast<const char*>(bytes), static_cast<std::size_t>(sent)});
    return sent;
}

} // extern "C"
// NOLINTEND
