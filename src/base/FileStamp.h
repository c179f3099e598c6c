#pragma once

#include <QString>
#include <cstdint>

namespace vantrel {

/// Identifies the contents of a file without reading it: the stamp changes when the file is
/// rewritten or replaced. It includes the inode because a host may replace a file by one of the
/// same size within one tick of the file system's clock.
struct FileStamp
{
    /// False if the path is not a regular file; all other members are then 0.
    bool IsFile = false;
    std::uint64_t Device = 0;
    std::uint64_t Inode = 0;
    std::int64_t Size = 0;
    std::int64_t Seconds = 0;
    std::int64_t Nanoseconds = 0;

    friend bool operator==(const FileStamp&, const FileStamp&) = default;
};

/// Reads the stamp of the file at `path`. Never fails.
FileStamp StampOfFile(const QString& path);
/// Reads the stamp of an open file. Never fails.
FileStamp StampOfFile(int descriptor);

} // namespace vantrel
