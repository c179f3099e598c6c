#pragma once

#include <QString>

namespace vantrel {

/// Makes a program folder that a station can start in: the folder where it is missing, a fresh
/// layout database, and a launcher's file that lets session 1 run and be seen (kept if there is
/// one). Fails with `InvalidCall`, and changes nothing, where the folder holds a layout database;
/// with `PathNotFound` where something cannot be written.
void MakeProgramFolder(const QString& folder);

/// Path of the layout database in a program folder.
QString LayoutDatabasePath(const QString& folder);

} // namespace vantrel
