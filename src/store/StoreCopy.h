#pragma once

#include "store/StoreTable.h"

namespace vantrel {

class StoreDatabase;

/// Copies the rows of all these tables with their keys, in one transaction. Tables that the source
/// does not have stay as they are. What other programs write to the source meanwhile is left out.
/// Fails with `InvalidCall` if the target holds layouts or cards already, otherwise like
/// `StoreDatabase`; the target is then unchanged.
/// @param tables  tables that the target has
void CopyStore(StoreDatabase& from, StoreDatabase& to, std::span<const StoreTable> tables);

} // namespace vantrel
