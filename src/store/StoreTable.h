#pragma once

#include <QByteArray>
#include <QString>
#include <span>

namespace vantrel {

/// @file The description of a table from which each engine makes it.

enum class StoreType {
    Text,
    Whole,
    Real,
    Bytes,
    /// The row key. It ascends and is never given twice, so that its order is the order of
    /// insertion.
    Counter,
};

enum class StoreNull { Allowed, Refused };

struct StoreColumnRow
{
    const char* Name;
    StoreType Type;
    StoreNull Null = StoreNull::Allowed;
    /// Whether its values are the key of the table, without being a counter.
    bool IsKey = false;
};

struct StoreIndex
{
    const char* Name;
    /// Columns with commas between them.
    const char* Columns;
    /// The condition of the rows that it holds; empty for all.
    const char* Where = "";
    /// Whether no two rows may have the same values in these columns.
    bool IsUnique = false;
};

struct StoreTable
{
    const char* Name;
    std::span<const StoreColumnRow> Columns;
    std::span<const StoreIndex> Indexes = {};
    /// Whether each column holds values of any type, as in the files that other programs write too.
    bool HoldsAnyValue = false;
};

/// A column of a table as it is in the database.
struct StoreColumn
{
    QString Name;
    /// Declared type: TEXT, INTEGER or REAL in the tables that the station creates.
    QByteArray Type;
    bool IsKey = false;
};

} // namespace vantrel
