#pragma once

#include "Commands.h"

namespace vantrel::admin {

/// @file The commands on stores that several stations share. An address that holds a password is
/// refused with `InvalidCall` before anything is done.

void RunStoreInit(const Words& words);
void RunStoreCopy(const Words& words);
void RunStoreCheck(const Words& words);

} // namespace vantrel::admin
