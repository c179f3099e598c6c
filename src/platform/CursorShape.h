#pragma once

#include "platform/SelectStatement.h"
#include <QHash>
#include <vector>

class QSqlRecord;

namespace vantrel {

/// What a cursor knows of its statement: worked out once, shared by all cursors that run it.
class CursorShape
{
public:
    struct Column
    {
        QString Name;
        /// Place of its value in a row of the result.
        int Place = 0;
        bool IsText = false;
    };

    CursorShape(SelectStatement select, QString keyColumn);

    /// Takes the columns of the statement's result.
    void TakeColumns(const QSqlRecord& record);

    const SelectStatement& Select() const { return m_select; }
    const QString& Sql() const { return m_sql; }
    const std::vector<Column>& Columns() const { return m_columns; }
    bool HasColumns() const { return !m_columns.empty(); }
    /// Whether rows bear the hidden key, so that they can be changed.
    bool HasKey() const { return !m_select.Distinct; }
    /// The column that is the key itself, -1 where it is hidden.
    int KeyColumn() const { return m_keyColumn; }
    /// Place of a column by its name: case-blind, brackets optional. Fails with `ItemNotFound`.
    int Find(const QString& name) const;

private:
    SelectStatement m_select;
    QString m_sql;
    QString m_keyName;
    std::vector<Column> m_columns;
    QHash<QString, int> m_columnOfName;
    int m_keyColumn = -1;
};

} // namespace vantrel
