#include "station/batch/NumberBlocks.h"
#include "base/Convert.h"
#include "base/Failure.h"
#include "station/layout/StoreStatements.h"
#include "station/layout/StoredNumbers.h"
#include "store/Recordset.h"
#include <algorithm>
#include <functional>

namespace vantrel {

namespace {

/// Calls `change` on each row of a page that is an automatic number, in stacking order. @return how
/// many there are
std::size_t ForEachNumber(Connection& store, const PageNumbers& page,
                          const std::function<void(Recordset& row, std::size_t index)>& change)
{
    Recordset rows(store);
    rows.Open(ObjectsOfPage(page.Layout, page.Page), CursorLock::Optimistic);
    std::size_t count = 0;
    for (; !rows.IsEof(); rows.MoveNext()) {
        if (IsNumberRow(rows))
            change(rows, count++);
    }
    return count;
}

void Write(Recordset& row, double number)
{
    row.SetValue(QStringLiteral("C_Value"), NumberText(number));
    row.Update();
}

/// The last number that a page shows before `number` rows more are taken.
double LastOf(const PageNumbers& page, std::size_t index, std::size_t rows)
{
    return page.First.at(index) + static_cast<double>(rows) * page.CardsPerRow - 1;
}

void TakeNumbersOfPage(Connection& store, std::size_t rows, std::size_t expected, PageNumbers& page)
{
    page.First.clear();
    const std::size_t count = ForEachNumber(store, page, [&](Recordset& row, std::size_t index) {
        const double before = StoredNumber(row);
        page.First.push_back(before + 1);
        const double last = LastOf(page, index, rows);
        if (NumberText(last) == NumberText(last - 1))
            throw Failure(FailureNumber::Overflow,
                          QStringLiteral("The automatic number %1 cannot rise so far")
                              .arg(NumberText(before)));
        Write(row, last);
    });
    if (count != expected)
        throw Failure(FailureNumber::InvalidCall,
                      QStringLiteral("The layout %1 was changed meanwhile").arg(page.Layout));
}

} // namespace

std::vector<PageNumbers> PagesWithNumbers(const RowPlan& plan)
{
    std::vector<PageNumbers> pages;
    for (const PlannedCard& card : plan) {
        if (card.Numbers == 0)
            continue;
        const auto known = std::find_if(pages.begin(), pages.end(), [&](const PageNumbers& page) {
            return page.Layout == card.Layout && page.Page == card.Page;
        });
        if (known == pages.end())
            pages.push_back(
                {.Layout = card.Layout, .Page = card.Page, .CardsPerRow = 1, .First = {}});
        else
            ++known->CardsPerRow;
    }
    return pages;
}

void TakeNumbersOfRows(Connection& store, const RowPlan& plan, std::size_t rows,
                       std::vector<PageNumbers>& pages)
{
    for (PageNumbers& page : pages) {
        const auto card = std::find_if(plan.begin(), plan.end(), [&](const PlannedCard& one) {
            return one.Layout == page.Layout && one.Page == page.Page;
        });
        TakeNumbersOfPage(store, rows, static_cast<std::size_t>(card->Numbers), page);
    }
}

void GiveNumbersBack(Connection& store, const Batch& batch, std::size_t used)
{
    for (const PageNumbers& page : batch.Numbers) {
        ForEachNumber(store, page, [&](Recordset& row, std::size_t index) {
            if (index < page.First.size() &&
                StoredNumber(row) == LastOf(page, index, batch.Rows.size()))
                Write(row, LastOf(page, index, used));
        });
    }
}

} // namespace vantrel
