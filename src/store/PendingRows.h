#pragma once

#include "store/KeptRows.h"
#include "store/SelectStatement.h"
#include <vector>

namespace vantrel {

/// What a failed save has left of its pages, for the eyes of this session alone. In the file such a
/// page is as it was before; this session sees the rows that were written and none of those that
/// were deleted, as if its transaction were open still. All of it lies in memory, as temporary
/// tables of the store's, and is gone when the store is closed.
///
/// The rows a page has in the file stand in a table `Base`, so that they are not seen, and what is
/// seen instead in a table `Pending`; a temporary view takes the name of the table that is read.
/// All operations fail like `StoreDatabase`.
class PendingRows
{
public:
    bool IsEmpty() const { return m_pages.empty(); }

    /// From now on this session sees these rows where the statement is run, in place of those in
    /// the file. No transaction may be open.
    void Keep(StoreDatabase& database, const CursorResult& seen, const QString& statement);

    /// Must be told before a cursor reads and changes nothing. What another session has written
    /// since is seen, and what was pending of its page is given up.
    /// @return whether other rows are seen now
    bool BeforeReading(StoreDatabase& database, const SelectStatement& select,
                       const QString& statement);
    /// Must be told before a cursor that changes rows reads. In a transaction, that of the next
    /// save, the page's rows are those of the file, so that all of them are written; but if the
    /// page has been read in part, the rows left out of it stay unseen, for the save of a part must
    /// not delete the rest. Outside of one all that is pending is given up.
    /// @return whether other rows are seen now
    bool BeforeChanging(StoreDatabase& database, const SelectStatement& select,
                        const QString& statement);
    /// Must be told when a transaction was committed.
    void AfterCommit(StoreDatabase& database);
    void GiveUp(StoreDatabase& database);
    /// Must be told when the store was closed.
    void Forget() { m_pages.clear(); }

private:
    struct Page
    {
        QString Statement;
        SelectStatement Select;
        /// Whether objects may stand on the form that were read from what is pending.
        bool WasRead = false;
    };

    void Fill(StoreDatabase& database, const CursorResult& seen);
    Page* Find(const QString& statement);
    bool OtherHasWritten(StoreDatabase& database, const Page& page) const;
    /// Lets the file's rows of a page be seen.
    static void Uncover(StoreDatabase& database, const SelectStatement& select);

    std::vector<Page> m_pages;
};

} // namespace vantrel
