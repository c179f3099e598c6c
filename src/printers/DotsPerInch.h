#pragma once

#include "printers/CupsQueues.h"
#include <cstdint>

namespace vantrel {

/// @return the dots to the inch if any card printer may have so many, otherwise 0
int UsableDots(std::int64_t dotsPerInch);

/// The dots to the inch of a queue's default resolution, in which a job of the station is printed.
/// Where they differ across and down, such as 300 by 600, the number that divides both.
/// @return 0 if the queue does not tell
int DotsOfQueue(cups_dest_t& queue, cups_dinfo_t& info);

} // namespace vantrel
