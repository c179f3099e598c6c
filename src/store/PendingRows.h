#pragma once

#include "store/KeptRows.h"
#include "store/SelectStatement.h"
#include <QSet>
#include <map>
#include <optional>
#include <vector>

namespace vantrel {

/// Rows that a failed save has written, visible to this session only. In the database the page is
/// unchanged; this session sees the rows that were written and none of those that were deleted, as
/// if its transaction were still open. The rows are kept in memory and are lost when the database
/// is closed. What a transaction does with them is undone if it is rolled back. All operations fail
/// like `StoreDatabase`.
class PendingRows
{
public:
    /// Whether no page has pending rows.
    bool IsEmpty() const { return m_pages.empty(); }
    /// Whether there are pending rows in the table of a cursor.
    bool Concerns(const SelectStatement& select) const;

    /// From now on `statement` returns the rows of `seen` instead of those in the database. No
    /// transaction may be open.
    void Keep(StoreDatabase& database, const CursorResult& seen, const QString& statement);

    /// Must be called before a read-only cursor reads. If another session has written to a page
    /// since, the page's pending rows are dropped.
    /// @return whether other rows are seen now
    bool BeforeReading(StoreDatabase& database, const SelectStatement& select,
                       const QString& statement);
    /// Must be called before a cursor that changes rows reads. In a transaction (that of the next
    /// save) it sees the page's rows in the database, so that all of them are written; but if the
    /// form no longer holds the whole page, the rows that were left out stay hidden, so that saving
    /// the form does not delete them. Outside of a transaction all pending rows are dropped.
    /// @return whether other rows are seen now
    bool BeforeChanging(StoreDatabase& database, const SelectStatement& select,
                        const QString& statement);
    /// Reads the rows of a cursor as this session sees them.
    CursorRows Read(StoreDatabase& database, const CursorShape& shape) const;
    /// Must be called before the form is cleared: what it then holds is not the whole of any page.
    void Leave();
    /// Must be called when a transaction was committed.
    void AfterCommit();
    /// Must be called when a transaction was rolled back, at the latest when the next one begins.
    void AfterRollback();
    /// Drops all pending rows.
    void Forget();

private:
    struct Page
    {
        QString Statement;
        SelectStatement Select;
        /// Whether the form no longer holds the whole page: it was read from the pending rows or
        /// cleared since.
        bool IsLeft = false;
        /// The page's rows in the database, which are hidden, with the values of all columns.
        std::map<qlonglong, QVariantList> Hidden;
        /// The rows that are seen in their place.
        CursorRows Seen;
    };

    Page* Find(const QString& statement);
    /// Must be called before something is changed that a rollback brings back.
    void NoteForRollback(const StoreDatabase& database);
    QSet<qlonglong> HiddenKeys(const QString& table) const;
    qlonglong HighestSeenKey(const QString& table, const Page* without) const;

    std::vector<Page> m_pages;
    /// As they were when the open transaction began to change them.
    std::optional<std::vector<Page>> m_before;
};

} // namespace vantrel
