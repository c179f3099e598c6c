#pragma once

#include "card/CardObject.h"

namespace vantrel {

class CardDocument;
class Session;

/// @file The choice whether the selected texts shrink to fit their boxes.

/// The smallest size that is offered for a text that does not shrink yet, in points.
inline constexpr double UsualShrinkTo = 6;

/// Makes the selected texts shrink and the card be drawn anew; objects that show no text stay as
/// they are. Does nothing if another object is selected than the one that was asked for.
/// @param label  the object that was asked for; not looked into
/// @param points  the smallest size, see `SetShrinkTo`; 0 for texts that keep their size
void ShrinkSelected(Session& session, const CardObject* label, double points);

} // namespace vantrel
