#pragma once

#include "card/Finding.h"

namespace vantrel {

class Session;

/// @file The check of the open layout before it is printed.

/// Checks all pages of the open layout with the values of the last record: the page in the designer
/// as it is, the others as they are stored. Nothing without a layout. Never fails; pages that
/// cannot be read are left out.
Findings CheckOpenLayout(Session& session);

/// Shows what a finding tells of: opens its page, if that is not open, after `MayLeavePage`, and
/// selects its object. Does nothing while a record is on its road.
/// @return false if the page was not left, or the object is not there any more
bool ShowFinding(Session& session, const Finding& finding);

} // namespace vantrel
