#pragma once

#include "store/ConnectionPrivate.h"
#include "store/KeptRows.h"
#include "store/Recordset.h"

namespace vantrel {

struct Recordset::Private
{
    explicit Private(Connection& connection) : Store(*connection.m_d) {}

    Connection::Private& Store;
    /// None on a cursor that is not open.
    std::shared_ptr<const CursorShape> Shape;
    CursorLock Lock = CursorLock::ReadOnly;
    /// May be shared with other cursors on the same statement.
    std::shared_ptr<const CursorRows> Rows = std::make_shared<CursorRows>();
    /// The same rows where they are this cursor's alone, else none.
    std::shared_ptr<CursorRows> Own;
    std::size_t At = 0;
    int Count = 0;
    bool CurrentDeleted = false;
    bool Adding = false;
    /// Values set and not yet written; empty where none is.
    RowChanges Changes;

    const CursorShape& Opened() const;
    bool IsEof() const { return At >= Rows->size(); }
    const CursorRow& Current() const;
    CursorRows& OwnRows();
    const CursorShape& Changeable() const;
    void DropChanges();
    /// The table in the file, whatever else this session sees under its name.
    QString TableSql() const
    {
        return QStringLiteral("main.[") + Shape->Select().Table + QLatin1Char(']');
    }
    QString ColumnSql(int column) const;
    /// @param source  what gives the values, made from as many placeholders
    /// @return whether a row was added
    template <typename Source>
    bool Insert(Source&& source);
    void Write();
    /// Puts the changes into the row as it is held here.
    void TakeChanges(CursorRow& row) const;
    /// Runs a statement that must hit exactly the row with its key.
    void RunOnRow(const QString& sql, const QVariantList& values);
};

} // namespace vantrel
