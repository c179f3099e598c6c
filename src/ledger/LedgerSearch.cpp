#include "ledger/LedgerSearch.h"
#include <algorithm>
#include <utility>

namespace vantrel {

namespace {

/// The first steps are short, so that something is shown at once.
constexpr qlonglong FirstStep = 1000;
constexpr qlonglong LongestStep = 20000;
constexpr qlonglong Growth = 3;

} // namespace

std::vector<qlonglong> LedgerSearch::Step(StoreDatabase& database)
{
    if (!m_begun) {
        const NumberRange range = EntryRange(database, m_filter);
        m_begun = true;
        m_first = range.First;
        m_behind = range.Last + 1;
        m_width = FirstStep;
    }
    const qlonglong width = std::exchange(m_width, std::min(m_width * Growth, LongestStep));
    if (IsDone())
        return {};
    m_filter.Before = m_behind;
    m_filter.From = std::max(m_first, m_behind - width);
    m_filter.Limit = 0;
    m_behind = *m_filter.From;
    return EntryNumbers(database, m_filter);
}

} // namespace vantrel
