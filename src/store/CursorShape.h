#pragma once

#include "store/SelectStatement.h"
#include <QByteArray>
#include <QHash>
#include <QVariant>
#include <vector>

namespace vantrel {

class StoreStatement;

/// The parsed statement of a cursor and the columns of its result. It is computed once and shared
/// by all cursors on that statement.
class CursorShape
{
public:
    struct Column
    {
        QString Name;
        /// Index of its value in a row of the result, from 0.
        int Place = 0;
        /// Declared type: TEXT, INTEGER or REAL in the tables that the station creates.
        QByteArray Type;

        bool IsText() const { return Type.compare("TEXT", Qt::CaseInsensitive) == 0; }
        /// Whether a value in stored form is read back from this column unchanged.
        bool GivesBack(const QVariant& value) const;
    };

    /// @param keyColumn  name of the table's key column, empty if there is none
    CursorShape(SelectStatement select, QString keyColumn);

    /// Reads names and types of the columns from a prepared statement.
    void TakeColumns(const StoreStatement& rows);
    /// Whether a new value in the column may change which rows the statement returns, or their
    /// order.
    bool DependsOn(const QString& column) const;

    /// The parsed statement, and the SQL that is run for it.
    const SelectStatement& Select() const { return m_select; }
    const QString& Sql() const { return m_sql; }
    const std::vector<Column>& Columns() const { return m_columns; }
    bool HasColumns() const { return !m_columns.empty(); }
    /// Whether rows carry the hidden key, which is needed to change them.
    bool HasKey() const { return !m_select.Distinct; }
    /// Index of the column that is the row key, -1 if the key is hidden.
    int KeyColumn() const { return m_keyColumn; }
    /// Index of a column by its name, in any case and with or without brackets. Fails with
    /// `ItemNotFound`.
    int Find(const QString& name) const;
    /// As `Find`, but without brackets, and -1 if there is no such column.
    int PlaceOf(const QString& name) const;

private:
    SelectStatement m_select;
    QString m_sql;
    QString m_keyName;
    std::vector<Column> m_columns;
    QHash<QString, int> m_columnOfName;
    int m_keyColumn = -1;
};

} // namespace vantrel
