#pragma once

#include <QString>
#include <sys/resource.h>

namespace vantrel::test {

/// @file What a machine does to a layout database: a disk that rots, one that is full, another
/// session that holds the lock. Paths are those of the database file.

/// Overwrites one of the pages that hold a table's rows, somewhere in the middle. No connection to
/// the file may be open; the table must fill several pages.
void DamageRows(const QString& path, const QString& table);

/// Leaves room for so many pages more to every store this process has open.
void LeaveRoom(int pages);
/// Gives all the room back.
void GiveRoomBack();
/// Lets every store this process has open hold only so many pages in memory.
void LimitCache(int pages);

/// Puts what the database's log holds into the database and makes the log an empty file.
void EmptyLog(const QString& path);

/// While it lives no file that this process writes reaches beyond so many bytes: what a store meets
/// on a full disk, at whichever write it comes to.
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
