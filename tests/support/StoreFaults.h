#pragma once

#include <QString>

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

/// Whether another session holds the write lock at this moment.
bool IsLocked(const QString& path);

} // namespace vantrel::test
