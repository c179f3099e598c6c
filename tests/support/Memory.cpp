#include "support/Memory.h"
#include <QByteArray>
#include <QFile>
#include <malloc.h>

namespace vantrel::test {

namespace {

qint64 StatusBytes(const char* name)
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return -1;
    const QList<QByteArray> lines = status.readAll().split('\n');
    for (const QByteArray& line : lines) {
        if (line.startsWith(name))
            return line.simplified().split(' ').value(1).toLongLong() * 1024;
    }
    return -1;
}

} // namespace

qint64 UsedMemory()
{
    const struct mallinfo2 now = ::mallinfo2();
    return static_cast<qint64>(now.uordblks) + static_cast<qint64>(now.hblkhd);
}

PeakMemory::PeakMemory()
{
    ::malloc_trim(0);
    QFile clear(QStringLiteral("/proc/self/clear_refs"));
    // Resets the highest value since the process began.
    if (clear.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        clear.write("5");
    m_before = StatusBytes("VmRSS:");
}

qint64 PeakMemory::Grown() const
{
    return StatusBytes("VmHWM:") - m_before - SanitizerRoom;
}

} // namespace vantrel::test
