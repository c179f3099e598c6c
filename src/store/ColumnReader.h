#pragma once

#include "store/Recordset.h"
#include <QVariant>
#include <functional>

namespace vantrel {

/// Reads the value of a column in one row, wherever the row is kept. Fails like `Recordset::Value`.
using ColumnReader = std::function<QVariant(const QString& column)>;

/// Stands for the hidden key of a row; a row without one gives a null.
inline constexpr QLatin1StringView RowKeyColumn{"RowKey"};

/// The reader of the cursor's current row; the cursor must outlive it.
inline ColumnReader ReaderOf(const Recordset& rows)
{
    return [&rows](const QString& column) {
        return column == RowKeyColumn ? QVariant(rows.RowKey()) : rows.Value(column);
    };
}

} // namespace vantrel
