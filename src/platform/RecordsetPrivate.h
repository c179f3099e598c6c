#pragma once

#include "platform/ConnectionPrivate.h"
#include "platform/Recordset.h"
#include <map>
#include <vector>

namespace vantrel {

struct Recordset::Private
{
    struct Row
    {
        qlonglong Key = 0;
        std::vector<QVariant> Values;
    };

    explicit Private(Connection& connection) : Store(*connection.m_d) {}

    Connection::Private& Store;
    /// None on a cursor that is not open.
    std::shared_ptr<const CursorShape> Shape;
    CursorLock Lock = CursorLock::ReadOnly;
    std::vector<Row> Rows;
    std::size_t At = 0;
    int Count = 0;
    bool CurrentDeleted = false;
    bool Adding = false;
    /// Values set and not yet written, by column.
    std::map<int, QVariant> Changes;

    const CursorShape& Opened() const;
    bool IsEof() const { return At >= Rows.size(); }
    Row& Current();
    const CursorShape& Changeable() const;
    void DropChanges();
    void ReadRows(QSqlQuery& query);
    QString TableSql() const { return QLatin1Char('[') + Shape->Select().Table + QLatin1Char(']'); }
    QString ColumnSql(int column) const;
    /// @param source  what gives the values, with a placeholder for each
    /// @return whether a row was added
    bool Insert(const QString& source);
    void Write();
    /// Runs a statement that must hit exactly the row with its key.
    void RunOnRow(const QString& sql, const QVariantList& values);
};

} // namespace vantrel
