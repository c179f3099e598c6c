#pragma once

#include <QString>
#include <QStringList>

namespace vantrel {

class Connection;

/// @file Maintenance of the table of macros, which the station itself only reads. These functions
/// fail like `Recordset`, with `ItemNotFound` for a macro that does not exist, and with
/// `InvalidCall` for a name that is already used or that the station could not look up.

/// Names of all macros, in the order they were added.
QStringList MacroNames(Connection& connection);
/// Adds a macro without layouts. Its key is one above the highest key, starting at 1.
void AddMacro(Connection& connection, const QString& name);
/// Renames a macro; its key and its layouts stay.
void RenameMacro(Connection& connection, const QString& oldName, const QString& newName);
/// Deletes a macro and its list of layouts.
void RemoveMacro(Connection& connection, const QString& name);

} // namespace vantrel
