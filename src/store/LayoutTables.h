#pragma once

#include "store/StoreTable.h"

namespace vantrel {

class StoreDatabase;

/// All tables of a layout database, in the order in which they are made.
std::span<const StoreTable> LayoutTables();

/// The table of what objects have beside their rows. A file has it only once an object has such
/// things.
const StoreTable& ExtrasTable();

/// The one of all these that has this name, in letters of any case; null if none has.
const StoreTable* FindLayoutTable(QStringView name);

/// Adds one `PrinterTypes` row for each printer type code that the station supports. Fails like
/// `StoreDatabase`.
void FillPrinterTypes(StoreDatabase& database);

} // namespace vantrel
