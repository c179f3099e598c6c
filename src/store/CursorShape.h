#pragma once

#include "store/SelectStatement.h"
#include "store/StoreTable.h"
#include <QByteArray>
#include <QHash>
#include <QVariant>
#include <QVariantList>
#include <vector>

namespace vantrel {

/// A row of a cursor's result.
struct CursorRow
{
    /// 0 in a result without keys.
    qlonglong Key = 0;
    /// Shared until one of its holders changes it.
    QVariantList Values;
    /// Another one whenever the row was written; empty where the engine cannot tell.
    QByteArray Version = {};
};

using CursorRows = std::vector<CursorRow>;

/// The parsed statement of a cursor and the columns of its result. It is computed once and shared
/// by all cursors on that statement.
class CursorShape
{
public:
    struct Column
    {
        QString Name;
        /// Index of its value in a row that the engine reads, from 0; the hidden key is the first
        /// value of a row that has one.
        int Place = 0;
        /// Declared type: TEXT, INTEGER or REAL in the tables that the station creates.
        QByteArray Type;

        bool IsText() const { return Type.compare("TEXT", Qt::CaseInsensitive) == 0; }
        /// Whether a value in stored form is read back from this column unchanged.
        bool GivesBack(const QVariant& value) const;
    };

    /// Fails with `StatementInvalid` for a column that the table does not have.
    /// @param table  all columns of the table, in their order
    CursorShape(SelectStatement select, const std::vector<StoreColumn>& table);

    /// Whether a new value in the column may change which rows the statement returns, or their
    /// order.
    bool DependsOn(const QString& column) const;

    const SelectStatement& Select() const { return m_select; }
    const std::vector<Column>& Columns() const { return m_columns; }
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
    void Add(const StoreColumn& column, int place);

    SelectStatement m_select;
    std::vector<Column> m_columns;
    QHash<QString, int> m_columnOfName;
    int m_keyColumn = -1;
};

} // namespace vantrel
