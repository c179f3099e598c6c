#pragma once

#include "store/ColumnReader.h"

namespace vantrel {

class CardDocument;

/// Creates the card object of a row of `Controls`. The document must be loaded. A row of an unknown
/// type creates nothing; a value that cannot be applied leaves the default. Never fails.
void RowToObject(CardDocument& document, const ColumnReader& row);

} // namespace vantrel
