#pragma once

#include <functional>

namespace vantrel::test {

/// Lets events run until `holds` does. The limit only ends a test that has failed.
/// @return whether it does
bool EventsUntil(const std::function<bool()>& holds);

} // namespace vantrel::test
