#pragma once

#include <QStringList>
#include <functional>

namespace vantrel::test {

/// @return what a step writes to a logging category such as "vantrel.macro", once that is turned on
QStringList TraceOf(const char* category, const std::function<void()>& step);
/// @return the same while the category is as a station starts with it
QStringList UntracedOf(const char* category, const std::function<void()>& step);

} // namespace vantrel::test
