#pragma once

#include "base/Failure.h"
#include <utility>

namespace vantrel::test {

/// @return the number a step fails with, 0 where it does not fail
template <typename Step>
int FailureOf(Step&& step)
{
    try {
        std::forward<Step>(step)();
    } catch (const Failure& failure) {
        return failure.Number();
    }
    return 0;
}

/// @return the text of a step's failure, empty where it does not fail
template <typename Step>
QString FailureTextOf(Step&& step)
{
    try {
        std::forward<Step>(step)();
    } catch (const Failure& failure) {
        return failure.Text();
    }
    return {};
}

} // namespace vantrel::test
