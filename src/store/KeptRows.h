#pragma once

#include "store/CursorShape.h"
#include "store/StoreDatabase.h"
#include <QCache>
#include <QVariantList>
#include <memory>
#include <optional>
#include <vector>

namespace vantrel {

/// A row of a cursor's result.
struct CursorRow
{
    /// 0 in a result that has none.
    qlonglong Key = 0;
    /// Shared until one of its holders changes it.
    QVariantList Values;
};

using CursorRows = std::vector<CursorRow>;

/// A new value for each column that takes one, by the column's place.
using RowChanges = std::vector<std::optional<QVariant>>;

/// What a statement gave.
struct CursorResult
{
    std::shared_ptr<const CursorShape> Shape;
    /// May be shared by several cursors.
    std::shared_ptr<const CursorRows> Rows;
};

/// The results of statements, kept from card to card: a station asks for the same pages again and
/// again, and mostly nobody has changed them meanwhile.
class KeptRows
{
public:
    KeptRows();

    /// @param now  the store's state; where it is another one than before, nothing is kept
    /// @return what the statement gave last, none where that is not kept
    std::optional<CursorResult> Find(const QString& statement, StoreDatabase::State now);
    void Keep(const QString& statement, const CursorResult& result);

    /// Must be told when a row was changed through a cursor of that shape.
    void TakeChange(const CursorShape& changed, qlonglong key, const RowChanges& changes);
    /// Must be told when a table got or lost a row.
    void ForgetTable(const QString& table);
    void ForgetAll();

private:
    QCache<QString, CursorResult> m_results;
    StoreDatabase::State m_state;
};

} // namespace vantrel
