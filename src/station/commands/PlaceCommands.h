#pragma once

#include "card/ObjectPlace.h"
#include <QString>

namespace vantrel {

class Session;

/// @file Place and size of the selected objects, typed by the operator of a station with design
/// tools. Lengths without a unit are in the station's unit of lengths.

/// The text of the side that the selected objects share; empty if they differ or none is selected.
QString SelectedSideText(const Session& session, PlaceSide side);

/// Sets a side of all selected objects to a typed length, as one step that can be taken back. A
/// length that is the present one changes nothing.
/// @return what is wrong with the text, in one sentence for the operator; empty if it was taken.
/// Then nothing has changed.
QString TypeSelectedSide(Session& session, PlaceSide side, const QString& text);

/// Makes a side of each selected object longer by steps of the unit: a tenth of a millimetre, a
/// hundredth of an inch, or a twip. One that would leave the allowed range stays.
void StepSelectedSide(Session& session, PlaceSide side, int steps);

} // namespace vantrel
