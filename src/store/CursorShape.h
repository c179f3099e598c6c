#pragma once

#include "store/SelectStatement.h"
#include <QByteArray>
#include <QHash>
#include <QVariant>
#include <vector>

namespace vantrel {

class StoreStatement;

/// What a cursor knows of its statement: worked out once, shared by all cursors that run it.
class CursorShape
{
public:
    struct Column
    {
        QString Name;
        /// Place of its value in a row of the result.
        int Place = 0;
        /// TEXT, INTEGER or REAL in the tables the station makes.
        QByteArray Type;

        bool IsText() const { return Type.compare("TEXT", Qt::CaseInsensitive) == 0; }
        /// Whether the store gives such a value, in stored form, back just as it takes it.
        bool GivesBack(const QVariant& value) const;
    };

    CursorShape(SelectStatement select, QString keyColumn);

    /// Takes the columns of the statement's result.
    void TakeColumns(const StoreStatement& rows);
    /// Whether a new value in a column may change which rows the statement gives, or their order.
    bool DependsOn(const QString& column) const;

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
    /// As `Find`, but -1 where there is none, and no brackets.
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
