#pragma once

#include "store/KeptRows.h"
#include "store/SelectStatement.h"
#include <vector>

namespace vantrel {

/// Rows that a failed save has written, visible to this session only. In the file the page is
/// unchanged; this session sees the rows that were written and none of those that were deleted, as
/// if its transaction were still open. The rows are kept in temporary tables in memory and are lost
/// when the database is closed.
///
/// The table `Base` holds the page's rows in the file, which are hidden, and the table `Pending`
/// holds the rows that replace them. A temporary view with the name of the original table combines
/// both. All operations fail like `StoreDatabase`.
class PendingRows
{
public:
    /// Whether no page has pending rows.
    bool IsEmpty() const { return m_pages.empty(); }

    /// From now on `statement` returns the rows of `seen` instead of those in the file. No
    /// transaction may be open.
    void Keep(StoreDatabase& database, const CursorResult& seen, const QString& statement);

    /// Must be called before a read-only cursor reads. If another session has written to a page
    /// since, the page's pending rows are dropped.
    /// @return whether other rows are seen now
    bool BeforeReading(StoreDatabase& database, const SelectStatement& select,
                       const QString& statement);
    /// Must be called before a cursor that changes rows reads. In a transaction (that of the next
    /// save) it sees the page's rows in the file, so that all of them are written; but if the form
    /// no longer holds the whole page, the rows that were left out stay hidden, so that saving the
    /// form does not delete them. Outside of a transaction all pending rows are dropped.
    /// @return whether other rows are seen now
    bool BeforeChanging(StoreDatabase& database, const SelectStatement& select,
                        const QString& statement);
    /// Must be called before the form is cleared: what it then holds is not the whole of any page.
    void Leave();
    /// Must be called when a transaction was committed.
    void AfterCommit(StoreDatabase& database);
    /// Drops all pending rows.
    void GiveUp(StoreDatabase& database);
    /// Must be called when the database was closed.
    void Forget() { m_pages.clear(); }

private:
    struct Page
    {
        QString Statement;
        SelectStatement Select;
        /// Whether the form no longer holds the whole page: it was read from the pending rows or
        /// cleared since.
        bool IsLeft = false;
    };

    void Fill(StoreDatabase& database, const CursorResult& seen);
    Page* Find(const QString& statement);
    bool OtherHasWritten(StoreDatabase& database, const Page& page) const;
    /// Makes the file's rows of a page visible again.
    static void Uncover(StoreDatabase& database, const SelectStatement& select);

    std::vector<Page> m_pages;
};

} // namespace vantrel
