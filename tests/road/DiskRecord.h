#pragma once

#include <cstdint>

namespace vantrel::test {

/// What a program does to files, as `DiskRecorder` writes it down: a head, two paths and bytes, one
/// event behind the other. The number of an event is its place, from 0.
enum class DiskEvent : std::uint32_t {
    /// A file was made, with a name or without one.
    NewFile,
    NewFolder,
    /// Bytes were written at an offset.
    Write,
    /// A file got a length.
    Length,
    /// A file or folder was forced to the disk. Its offset is the number of the first event that
    /// came after the force was asked for, and so is not covered.
    Force,
    /// A file or folder got a (further) name.
    Name,
    /// A path became another one.
    Rename,
    RemoveName,
    /// Bytes went to a host.
    Sent,
};

struct DiskRecord
{
    DiskEvent Event;
    std::uint32_t PathBytes;
    std::uint32_t OtherPathBytes;
    std::uint32_t Bytes;
    /// The file's i-node.
    std::uint64_t Inode;
    std::uint64_t Offset;
};

/// Environment variable that names the file to write the record to.
inline constexpr const char* DiskRecordVariable = "VANTREL_TEST_DISK_RECORD";

} // namespace vantrel::test
