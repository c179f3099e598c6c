#pragma once

#include "store/StoreTable.h"

namespace vantrel {

class StoreDatabase;

/// All tables of a layout database, in the order in which they are made.
std::span<const StoreTable> LayoutTables();

/// Adds one `PrinterTypes` row for each printer type code that the station supports. Fails like
/// `StoreDatabase`.
void FillPrinterTypes(StoreDatabase& database);

} // namespace vantrel
