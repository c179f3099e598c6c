#pragma once

#include <QString>

namespace vantrel {

/// Creates a program folder in which a station can start: the folder itself if it is missing, an
/// empty layout database, and a status file with which session 1 runs and is visible; an existing
/// status file is kept. Fails with `InvalidCall`, and changes nothing, if the folder already has a
/// layout database, with `PathNotFound` if a file cannot be written.
void MakeProgramFolder(const QString& folder);

/// Path of the layout database in a program folder.
QString LayoutDatabasePath(const QString& folder);

} // namespace vantrel
