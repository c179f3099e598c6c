#pragma once

#include "store/CursorShape.h"
#include "store/StoreDatabase.h"
#include <QCache>
#include <memory>
#include <optional>
#include <vector>

namespace vantrel {

/// The new value of each changed column, by the index of the column.
using RowChanges = std::vector<std::optional<QVariant>>;

/// The result of a statement.
struct CursorResult
{
    std::shared_ptr<const CursorShape> Shape;
    /// May be shared by several cursors.
    std::shared_ptr<const CursorRows> Rows;
};

/// A cache of statement results. A station reads the same pages for every card, and they have
/// rarely changed in between.
class KeptRows
{
public:
    KeptRows();

    /// @param now  state of the database; if it has changed, the cache is emptied
    /// @return the cached result, or nothing
    std::optional<CursorResult> Find(const QString& statement, StoreDatabase::State now);
    /// Caches a result, unless it is too long.
    void Keep(const QString& statement, const CursorResult& result);

    /// Must be called when a row was changed through a cursor of that shape.
    /// @param stored  the row as it is stored now. Where it has values, they take the place of all
    /// that is kept of it, since others may have changed it after that was read
    void TakeChange(const CursorShape& changed, const CursorRow& stored, const RowChanges& changes);
    /// Must be called when a row was added to or deleted from a table.
    void ForgetTable(const QString& table);
    void ForgetAll();

private:
    QCache<QString, CursorResult> m_results;
    StoreDatabase::State m_state;
};

} // namespace vantrel
