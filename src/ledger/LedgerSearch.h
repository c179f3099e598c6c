#pragma once

#include "ledger/LedgerReading.h"

namespace vantrel {

/// A search through the ledger, newest entries first, in steps of a few milliseconds each, so that
/// it can be given up or wait at any time. Entries that arrive after its first step are not found.
class LedgerSearch
{
public:
    /// `Before`, `From` and `Limit` of the filter are set by the search.
    explicit LedgerSearch(LedgerFilter filter) : m_filter(std::move(filter)) {}

    /// Looks through the next entries. @return the numbers found, newest first. Fails like
    /// `ReadEntries`
    std::vector<qlonglong> Step(StoreDatabase& database);
    bool IsDone() const { return m_begun && m_behind <= m_first; }

private:
    LedgerFilter m_filter;
    bool m_begun = false;
    qlonglong m_first = 0;
    /// Everything from this number on has been looked through.
    qlonglong m_behind = 0;
    /// Numbers that the next step looks through.
    qlonglong m_width = 0;
};

} // namespace vantrel
