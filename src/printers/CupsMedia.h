#pragma once

#include "printers/CupsQueues.h"
#include "printers/DriverSizes.h"
#include <QByteArray>
#include <optional>
#include <vector>

namespace vantrel {

/// A name and a value of a job option.
struct JobOption
{
    QByteArray Name;
    QByteArray Value;
};

/// The sheet size on which a queue prints.
struct QueueSheet
{
    SheetSize Size;
    /// Options that a job needs to be printed on this sheet.
    std::vector<JobOption> Options;
};

/// Finds the sheet size of a queue: the size that a user has set, otherwise the queue's default.
/// @return nothing if the queue reports no size
std::optional<QueueSheet> SheetOfQueue(cups_dest_t& queue, cups_dinfo_t& info);

} // namespace vantrel
