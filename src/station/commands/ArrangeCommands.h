#pragma once

#include "card/ObjectArrange.h"

namespace vantrel {

class Session;

/// @file Commands for all selected objects, for a station with design tools. They do nothing
/// without a selection and never fail.

/// Steps of the arrow keys, in twips: a point, and the smallest length.
inline constexpr float PointStep = 20;
inline constexpr float TwipStep = 1;

/// Moves the selected objects by so many twips.
void MoveSelected(Session& session, float right, float down);
/// Puts the selected objects on one line; a single one on that line of the card.
void AlignSelected(Session& session, AlignLine line);
/// Gives three or more selected objects equal gaps.
void SpreadSelected(Session& session, SpreadAxis axis);
/// Moves the selected objects in the stacking order.
void StackSelected(Session& session, StackMove move);

} // namespace vantrel
