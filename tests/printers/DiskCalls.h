#pragma once

#include <QStringList>
#include <functional>

namespace vantrel::test {

/// Sees the calls of this process that force something to the disk or give an unnamed file its
/// name, and can make them fail. There is one at a time.
class DiskCalls
{
public:
    DiskCalls();
    DiskCalls(const DiskCalls&) = delete;
    DiskCalls& operator=(const DiskCalls&) = delete;
    ~DiskCalls();

    /// What was called so far, in its order: "bytes to disk", "named NAME", "names to disk FOLDER".
    QStringList Seen() const;
    /// The next calls that force bytes, or names, to the disk fail with this error.
    void FailBytes(int error, int times);
    void FailNames(int error, int times);
    /// Is called before bytes are forced to the disk, in the thread that does it.
    void BeforeBytes(std::function<void()> hook);
};

} // namespace vantrel::test
