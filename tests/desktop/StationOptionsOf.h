#pragma once

#include "station/session/StationOptions.h"

namespace vantrel::test {

/// The options of a station that keeps a ledger and nothing else.
inline StationOptions WithLedger()
{
    StationOptions options;
    options.Ledger = true;
    return options;
}

} // namespace vantrel::test
