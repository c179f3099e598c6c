#pragma once

#include "station/batch/Batch.h"

namespace vantrel {

class Connection;

/// @file Automatic numbers taken from the store for many rows at once.

/// The pages of a plan that show numbers, without their first numbers.
std::vector<PageNumbers> PagesWithNumbers(const RowPlan& plan);

/// Takes the numbers of so many rows. Must be called inside a transaction, which holds the write
/// lock, so that nobody else takes them; they are taken once it is committed. Fails like
/// `Recordset`, with `Overflow` for a number that cannot rise so far, and with `InvalidCall` if the
/// page in the store has another number of numbers than the plan.
/// @param pages  their first numbers are set
void TakeNumbersOfRows(Connection& store, const RowPlan& plan, std::size_t rows,
                       std::vector<PageNumbers>& pages);

/// Gives the numbers of the last rows of a batch back, which were drawn on no page. Those of a page
/// whose numbers have risen since, or were changed, stay taken. Like `TakeNumbersOfRows` inside a
/// transaction; fails like `Recordset`.
/// @param used  how many rows of the batch keep theirs
void GiveNumbersBack(Connection& store, const Batch& batch, std::size_t used);

} // namespace vantrel
