#pragma once

#include "base/Failure.h"
#include <utility>

namespace vantrel {

/// Writes a passed-over step to the logging category `vantrel.skip`, which is off by default:
/// an integrator turns it on with QT_LOGGING_RULES="vantrel.skip.debug=true".
void TellSkipped(const char* step, const Failure& failure);

/// Runs exactly one step and passes over its `Failure`, so that the next step runs with what the
/// variables held. Anything else that is thrown is our own mistake and goes through.
/// @param step  the name of the step, for the log
/// @return whether the step was carried out
template <typename Step>
bool Skip(const char* step, Step&& run)
{
    try {
        std::forward<Step>(run)();
        return true;
    } catch (const Failure& failure) {
        TellSkipped(step, failure);
        return false;
    }
}

} // namespace vantrel
