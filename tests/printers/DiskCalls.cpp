#include "DiskCalls.h"
#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <mutex>
#include <sys/syscall.h>
#include <unistd.h>

namespace vantrel::test {

namespace {

struct Calls
{
    std::mutex Mutex;
    bool Seeing = false;
    QStringList Seen;
    int BytesError = 0;
    int BytesFailures = 0;
    int NamesError = 0;
    int NamesFailures = 0;
    std::function<void()> Hook;
};

Calls& TheCalls()
{
    static Calls calls;
    return calls;
}

void See(const QString& call)
{
    Calls& calls = TheCalls();
    const std::lock_guard lock(calls.Mutex);
    if (calls.Seeing)
        calls.Seen.append(call);
}

/// @return the error to fail with, 0 for none
int TakeError(int error, int& times)
{
    const std::lock_guard lock(TheCalls().Mutex);
    return times > 0 && times-- > 0 ? error : 0;
}

QString NameOf(int descriptor)
{
    return QFileInfo(QFile::symLinkTarget(QStringLiteral("/proc/self/fd/%1").arg(descriptor)))
        .fileName();
}

int SyncBytes(int descriptor)
{
    std::function<void()> hook;
    {
        const std::lock_guard lock(TheCalls().Mutex);
        hook = TheCalls().Hook;
    }
    if (hook)
        hook();
    See(QStringLiteral("bytes to disk"));
    if (const int error = TakeError(TheCalls().BytesError, TheCalls().BytesFailures)) {
        errno = error;
        return -1;
    }
    return static_cast<int>(::syscall(SYS_fdatasync, descriptor));
}

int SyncNames(int descriptor)
{
    See(QStringLiteral("names to disk ") + NameOf(descriptor));
    if (const int error = TakeError(TheCalls().NamesError, TheCalls().NamesFailures)) {
        errno = error;
        return -1;
    }
    return static_cast<int>(::syscall(SYS_fsync, descriptor));
}

} // namespace

DiskCalls::DiskCalls()
{
    const std::lock_guard lock(TheCalls().Mutex);
    TheCalls().Seeing = true;
    TheCalls().Seen.clear();
}

DiskCalls::~DiskCalls()
{
    FailBytes(0, 0);
    FailNames(0, 0);
    BeforeBytes(nullptr);
    const std::lock_guard lock(TheCalls().Mutex);
    TheCalls().Seeing = false;
}

QStringList DiskCalls::Seen() const
{
    const std::lock_guard lock(TheCalls().Mutex);
    return TheCalls().Seen;
}

void DiskCalls::FailBytes(int error, int times)
{
    const std::lock_guard lock(TheCalls().Mutex);
    TheCalls().BytesError = error;
    TheCalls().BytesFailures = times;
}

void DiskCalls::FailNames(int error, int times)
{
    const std::lock_guard lock(TheCalls().Mutex);
    TheCalls().NamesError = error;
    TheCalls().NamesFailures = times;
}

void DiskCalls::BeforeBytes(std::function<void()> hook)
{
    const std::lock_guard lock(TheCalls().Mutex);
    TheCalls().Hook = std::move(hook);
}

} // namespace vantrel::test

// These stand in front of the functions of the C library in this program.

extern "C" int fdatasync(int descriptor)
{
    return vantrel::test::SyncBytes(descriptor);
}

extern "C" int fsync(int descriptor)
{
    return vantrel::test::SyncNames(descriptor);
}

extern "C" int linkat(int oldFolder, const char* oldPath, int newFolder, const char* newPath,
                      int flags) noexcept
{
    const long result = ::syscall(SYS_linkat, oldFolder, oldPath, newFolder, newPath, flags);
    if (result == 0)
        vantrel::test::See(QStringLiteral("named ") +
                           QFileInfo(QFile::decodeName(newPath)).fileName());
    return static_cast<int>(result);
}
