#pragma once

#include <QString>
#include <cstdint>

namespace vantrel {

/// What changes when a file is written anew; it tells so without reading the file. The i-node is in
/// it because a host may replace a file by one of the same size within one tick of the file
/// system's clock.
struct FileStamp
{
    /// False for a path where no regular file is.
    bool IsFile = false;
    std::uint64_t Device = 0;
    std::uint64_t Inode = 0;
    std::int64_t Size = 0;
    std::int64_t Seconds = 0;
    std::int64_t Nanoseconds = 0;

    friend bool operator==(const FileStamp&, const FileStamp&) = default;
};

/// Never fails.
FileStamp StampOfFile(const QString& path);

} // namespace vantrel
