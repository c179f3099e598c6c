#pragma once

#include "store/ConnectionPrivate.h"
#include "store/KeptRows.h"
#include "store/Recordset.h"

namespace vantrel {

struct Recordset::Private
{
    explicit Private(Connection& connection) : Store(*connection.m_d) {}

    Connection::Private& Store;
    /// Null on a cursor that is not open.
    std::shared_ptr<const CursorShape> Shape;
    CursorLock Lock = CursorLock::ReadOnly;
    /// May be shared with other cursors on the same statement.
    std::shared_ptr<const CursorRows> Rows = std::make_shared<CursorRows>();
    /// The same rows if this cursor alone holds them, otherwise null.
    std::shared_ptr<CursorRows> Own;
    std::size_t At = 0;
    int Count = 0;
    bool CurrentDeleted = false;
    bool Adding = false;
    /// Values that are set and not yet written.
    RowChanges Changes;

    const CursorShape& Opened() const;
    bool IsEof() const { return At >= Rows->size(); }
    const CursorRow& Current() const;
    CursorRows& OwnRows();
    const CursorShape& Changeable() const;
    void DropChanges();
    const QString& Table() const { return Shape->Select().Table; }
    /// @param unlessFound  if given, nothing is added if this statement finds a row
    /// @return whether a row was added
    bool Insert(const SelectStatement* unlessFound);
    void Write();
    /// Applies the changes to the row in memory.
    void TakeChanges(CursorRow& row) const;
    /// Fails unless a change has found the current row.
    static void Require(bool found);
};

} // namespace vantrel
