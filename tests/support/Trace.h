#pragma once

#include <QStringList>
#include <functional>

namespace vantrel::test {

/// @return what a routine writes to a logging category such as "vantrel.macro" that is turned on
QStringList TraceOf(const char* category, const std::function<void()>& step);
/// @return the same with the category in its state at the start of a station
QStringList UntracedOf(const char* category, const std::function<void()>& step);

} // namespace vantrel::test
