#pragma once

#include "ledger/LedgerRows.h"

namespace vantrel::console {

/// An entry with the beginning of its values and of its cards only: a record may be of any length,
/// and a list or a live event shows little of it.
LedgerEntry Brief(LedgerEntry entry);

} // namespace vantrel::console
