#pragma once

#include "store/SelectStatement.h"
#include "store/StoreTable.h"
#include <QString>
#include <QStringList>

namespace vantrel {

/// @file What SQLite is told to make and to change tables.

/// A statement that makes the table unless it exists, and one for an index of it.
QString SqliteTable(const StoreTable& table);
QString SqliteIndex(const StoreTable& table, const StoreIndex& index);

/// Statements that change one row. Values are placeholders in the order of the columns; those that
/// find a row by its key take that last.
QString SqliteInsert(const QString& table, const QStringList& columns,
                     const SelectStatement* unlessFound);
QString SqliteUpdate(const QString& table, const QStringList& columns);
QString SqliteDelete(const QString& table);

} // namespace vantrel
