#pragma once

#include "Commands.h"

namespace vantrel::admin {

/// Prints what would not print as it should on the pages of layouts, of all where none is named.
/// Fails with `InvalidCall` if there is any such thing, with `ItemNotFound` for a layout that is
/// not there.
void RunCheck(const Words& words);

} // namespace vantrel::admin
