#pragma once

#include "base/Failure.h"
#include <utility>

namespace vantrel {

/// Exit code of a station that a failure ended.
inline constexpr int FailedExit = 1;

/// Writes a failure in one line to stderr.
void TellRunTimeError(const Failure& failure);
/// Writes the failure and ends the event loop with `FailedExit`. Nothing is unloaded: settings stay
/// as they were last stored.
void EndWithRunTimeError(const Failure& failure);

/// Runs the handler of an event. No failure may reach Qt's event loop; one that was not handled
/// before is a run-time error and ends the station.
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
