#pragma once

#include "base/ByteSource.h"
#include "ports/RecordReader.h"
#include "ports/TableReader.h"
#include "station/batch/Batch.h"
#include <optional>
#include <variant>

namespace vantrel {

/// How the rows of a file are read.
struct RowFormat
{
    /// Of a table, or of a file of records as hosts send them.
    std::variant<TableFormat, RecordFormat> Written;
    /// Whether the first row of a table holds the names of the columns.
    bool HasHeader = false;
    /// The names of the columns whose values become the values of a row, in this order; empty for
    /// all of them as they are. Wants a header.
    QStringList Columns;
};

/// Reads the rows of a file one after the other, in linear time and memory for one row.
class RowSource
{
public:
    /// Reads the header, if there is one. Fails with `InvalidCall` and one plain line if it cannot
    /// be read, or has no column of a name that is asked for.
    RowSource(ReadBytes read, RowFormat format);

    /// Reads the next row. Fails with `InvalidCall` and a text such as "Line 7: ..." for a row that
    /// is refused: a table's row must have as many values as its first, since a missing or an
    /// unquoted separator would shift the values behind it.
    /// @return false at the end
    bool Next(BatchRow& row);
    /// Whether `Next` can go on after a failure.
    bool CanGoOn() const;
    /// The number of the row that was read or refused last; 0 before the first one.
    qint64 Number() const { return m_number; }
    /// The names of the values of a row; empty if they have none.
    const QStringList& Names() const { return m_names; }

private:
    void ReadHeader();
    bool NextOfTable(TableReader& table, BatchRow& row);
    bool NextOfRecords(RecordReader& records, BatchRow& row);

    RowFormat m_format;
    std::variant<TableReader, RecordReader> m_reader;
    QStringList m_names;
    /// The indexes of the columns that are asked for.
    std::vector<qsizetype> m_chosen;
    /// Values of each row of the table; nothing before the first one.
    std::optional<qsizetype> m_width;
    qint64 m_number = 0;
    bool m_hasEnded = false;
};

/// The names in a list such as `A,"B, C",D`, read like a row of a table. Fails with `InvalidCall`.
QStringList ColumnNames(const QString& list);

} // namespace vantrel
