#pragma once

#include "printers/CupsQueues.h"
#include "printers/DriverSizes.h"
#include <QByteArray>
#include <optional>
#include <vector>

namespace vantrel {

/// An option that goes with a job.
struct JobOption
{
    QByteArray Name;
    QByteArray Value;
};

/// The sheet that a queue's jobs come out on.
struct QueueSheet
{
    SheetSize Size;
    /// What a job must carry so that it does.
    std::vector<JobOption> Options;
};

/// The size that is set for the queue as a user's option goes first, then the queue's default.
/// @return nothing where the queue tells no size
std::optional<QueueSheet> SheetOfQueue(cups_dest_t& queue, cups_dinfo_t& info);

} // namespace vantrel
