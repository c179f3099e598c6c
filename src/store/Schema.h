#pragma once

#include <QString>
#include <QStringList>

namespace vantrel {

/// Name of the layout database, beside the program.
inline constexpr const char* LayoutDatabaseName = "Vantrel.dat";

/// Makes a fresh layout database with every table, index and one `PrinterTypes` row per code in
/// use. It is made under a temporary name and put in place without replacing anything: fails with
/// `InvalidCall` where a file of that name exists, `PathNotFound` where the folder cannot be
/// written.
void CreateLayoutDatabase(const QString& path);

/// The tables a layout database holds.
QStringList LayoutTableNames();

} // namespace vantrel
