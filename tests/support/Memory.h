#pragma once

#include <QtGlobal>

namespace vantrel::test {

inline constexpr qint64 MiB = qint64{1} << 20;

/// The sanitizer keeps freed memory for a while.
#ifdef __SANITIZE_ADDRESS__
inline constexpr qint64 SanitizerRoom = 512 * MiB;
#else
inline constexpr qint64 SanitizerRoom = 0;
#endif

/// What a program that a test has started may take beyond what it had, in MiB, where `room` is
/// enough for it without a sanitizer.
constexpr int MemoryRoom(int room)
{
    return room + static_cast<int>(SanitizerRoom / MiB);
}

/// Memory that this process has allocated and not freed, in bytes.
qint64 UsedMemory();

/// How far the resident memory of this process rises above what it was at the beginning.
class PeakMemory
{
public:
    PeakMemory();
    /// In bytes, without what a sanitizer may keep.
    qint64 Grown() const;

private:
    qint64 m_before;
};

} // namespace vantrel::test
