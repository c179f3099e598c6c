#pragma once

#include <QString>
#include <QStringList>

namespace vantrel {

/// File name of the layout database in the program folder.
inline constexpr const char* LayoutDatabaseName = "Vantrel.dat";

/// Creates a layout database with all tables and indexes and one `PrinterTypes` row for each
/// supported code. It is created under a temporary name and renamed without replacing anything.
/// Fails with `InvalidCall` if a file of that name exists, with `PathNotFound` if the folder cannot
/// be written.
void CreateLayoutDatabase(const QString& path);

/// Names of all tables of a layout database.
QStringList LayoutTableNames();

} // namespace vantrel
