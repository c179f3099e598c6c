#pragma once

#include "base/Failure.h"
#include <QString>
#include <functional>

namespace vantrel {

/// What became of a job.
struct JobOutcome
{
    /// For the built-in printer: the file stands whole under its final name, and is on the disk if
    /// that printer is durable. For CUPS: the server has accepted the job.
    bool HandedOver = false;
    /// Number of the CUPS job; 0 for none.
    int JobId = 0;
    /// Name of the file without its folder, as in "card-000001.pdf"; empty for none.
    QString File;
    /// Why the job was not handed over, in plain English; empty if it was.
    QString Reason;
};

/// Is told what became of one job. Must not throw.
using JobEnd = std::function<void(const JobOutcome&)>;

/// The reason of a job that ended without an open page.
inline constexpr auto NothingDrawn = "Nothing was drawn";

/// The reason of a job that failed: the failure's text without "Printer error: ". Never empty.
QString ReasonOf(const Failure& failure);

} // namespace vantrel
