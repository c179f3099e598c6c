#pragma once

#include "base/Failure.h"
#include <utility>

namespace vantrel {

/// Exit code of a station that a failure ended.
inline constexpr int FailedExit = 1;

/// Tells a failure in one line on stderr.
void TellRunTimeError(const Failure& failure);
/// Tells it and ends the event loop with `FailedExit`. Nothing is unloaded: settings stay as they
/// were stored last.
void EndWithRunTimeError(const Failure& failure);

/// Runs what an event asks for. No failure may reach Qt's event loop; one that nobody passed over
/// is a run-time error and ends the station.
template <typename Step>
void RunOrEnd(Step&& run)
{
    try {
        std::forward<Step>(run)();
    } catch (const Failure& failure) {
        EndWithRunTimeError(failure);
    }
}

} // namespace vantrel
