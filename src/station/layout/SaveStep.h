#pragma once

#include "base/Skip.h"
#include <utility>

namespace vantrel {

/// Runs one step of a save. Two failures belong to its normal course, a font that an image has not
/// and a prefix or suffix that a field has not: they are passed over, and the column stays null.
/// Any other goes through and ends the save.
template <typename Step>
void SaveStep(const char* step, Step&& run)
{
    try {
        std::forward<Step>(run)();
    } catch (const Failure& failure) {
        if (failure.Number() != FailureNumber::SubscriptOutOfRange &&
            failure.Number() != FailureNumber::PropertyNotSupported)
            throw;
        TellSkipped(step, failure);
    }
}

} // namespace vantrel
