#pragma once

#include <QString>
#include <QStringList>

namespace vantrel {

class Connection;

/// @file Tends the table of macros, which the station itself only reads. All of these fail like
/// `Recordset`, with `ItemNotFound` for a macro that does not exist, and with `InvalidCall` for a
/// name that is taken or that the station could not look up.

/// Names of all macros, in the order they were added.
QStringList MacroNames(Connection& connection);
/// Adds a macro without layouts. Its key is one above the highest, from 1.
void AddMacro(Connection& connection, const QString& name);
void RenameMacro(Connection& connection, const QString& oldName, const QString& newName);
/// Removes a macro and its chain of layouts.
void RemoveMacro(Connection& connection, const QString& name);

} // namespace vantrel
