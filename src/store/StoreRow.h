#pragma once

#include <QVariant>

namespace vantrel {

/// The current row of a statement's result, while the statement runs.
class StoreRow
{
public:
    StoreRow() = default;
    StoreRow(const StoreRow&) = delete;
    StoreRow& operator=(const StoreRow&) = delete;

    /// The value in a column, counted from 0: a whole number, a real, a text, bytes or null.
    virtual QVariant Value(int column) const = 0;

protected:
    ~StoreRow() = default;
};

} // namespace vantrel
