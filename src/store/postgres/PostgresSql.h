#pragma once

#include "store/CursorShape.h"
#include "store/StoreTable.h"
#include <QByteArray>
#include <QHash>
#include <QStringList>
#include <QVariant>

namespace vantrel {

/// @file What a PostgreSQL server is told. Names of tables and columns are written in small letters
/// and without quotes, as the server itself reads names that are not quoted.

/// The column, beside those that a table is described with, for values that the type of their own
/// column cannot hold, see `OddValues.h`.
inline constexpr const char* OddColumn = "oddvalues";

/// A statement with its question marks as the server's placeholders.
/// @param known  expressions that stand instead of some of them, by their index from 0
QByteArray WithNumberedPlaceholders(const QString& sql, const QHash<int, QByteArray>& known = {});

/// A name of a table or a column for the server. Fails with `StatementInvalid` for one that is none
/// of this program's.
QByteArray PostgresName(const QString& name);

/// A statement that makes the table unless it exists, and one for an index of it.
QByteArray PostgresTable(const StoreTable& table);
QByteArray PostgresIndex(const StoreTable& table, const StoreIndex& index);

/// A condition with the values of its placeholders, each with the declared type of its column.
struct PostgresCondition
{
    /// Such as " WHERE page = $1"; empty if there is no condition.
    QByteArray Sql;
    std::vector<std::pair<QVariant, QByteArray>> Values;
};

/// The condition of a cursor's statement. Fails with `StatementInvalid` for a column that the table
/// does not have.
/// @param firstPlaceholder  its number
PostgresCondition PostgresWhere(const SelectStatement& select,
                                const std::vector<StoreColumn>& table, int firstPlaceholder);

/// The order of a cursor's rows: as SQLite has it, nulls first and texts by their bytes.
/// @param key  the name of the key; empty for a statement without keys
QByteArray PostgresOrder(const SelectStatement& select, const QByteArray& key);

} // namespace vantrel
