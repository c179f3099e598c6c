#pragma once

#include <QString>
#include <sys/resource.h>

namespace vantrel::test {

/// @file Faults of a layout database: a damaged file, a full disk, and another session that holds
/// the lock. Paths are those of the database file.

/// Overwrites one of the pages that hold a table's rows, somewhere in the middle. No connection to
/// the file may be open; the table must fill several pages.
void DamageRows(const QString& path, const QString& table);

/// Limits every store that this process has open to so many further pages.
void LeaveRoom(int pages);
/// Removes that limit.
void GiveRoomBack();
/// Limits the cache of every store that this process has open to so many pages.
void LimitCache(int pages);

/// Writes the contents of the database's log into the database and empties the log.
void EmptyLog(const QString& path);

/// While it lives no file that this process writes can grow beyond so many bytes, as on a full
/// disk.
class FilesMayNotGrow
{
public:
    explicit FilesMayNotGrow(qint64 bytes);
    FilesMayNotGrow(const FilesMayNotGrow&) = delete;
    FilesMayNotGrow& operator=(const FilesMayNotGrow&) = delete;
    ~FilesMayNotGrow();

private:
    rlimit m_before{};
};

/// Whether another session holds the write lock at this moment.
bool IsLocked(const QString& path);

} // namespace vantrel::test
