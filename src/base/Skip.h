#pragma once

#include "base/Failure.h"
#include <utility>

namespace vantrel {

/// Writes a skipped step to the logging category `vantrel.skip`. The category is off by default and
/// is turned on with QT_LOGGING_RULES="vantrel.skip.debug=true".
void LogSkipped(const char* step, const Failure& failure);

/// Runs one step and catches its `Failure`, so that the caller continues with the next step. Any
/// other exception is a programming error and is not caught.
/// @param step  name of the step for the log
/// @return false if the step failed
template <typename Step>
bool Skip(const char* step, Step&& run)
{
    try {
        std::forward<Step>(run)();
        return true;
    } catch (const Failure& failure) {
        LogSkipped(step, failure);
        return false;
    }
}

} // namespace vantrel
