#pragma once

#include "base/Skip.h"
#include <utility>

namespace vantrel {

/// Runs one step of a save. Two failures are expected and skipped, which leaves the column null: an
/// image has no font, and a field may have no prefix or suffix. Any other failure is thrown and
/// ends the save.
template <typename Step>
void SaveStep(const char* step, Step&& run)
{
    try {
        std::forward<Step>(run)();
    } catch (const Failure& failure) {
        if (failure.Number() != FailureNumber::SubscriptOutOfRange &&
            failure.Number() != FailureNumber::PropertyNotSupported)
            throw;
        LogSkipped(step, failure);
    }
}

} // namespace vantrel
