#pragma once

#include "station/layout/DesignSurface.h"
#include <vector>

namespace vantrel {

class DesignSnap;

/// @file Selecting several objects, for a station with design tools. What the mouse does to one
/// object stays as in `DesignSurface.h`. None of this fails.

/// Selects these objects and no others; the grips are shown around the last one, whose menus are
/// shown.
void SelectObjects(CardDocument& document, StationFace& face,
                   const std::vector<CardObject*>& objects);
/// Selects the objects that lie inside a box, in twips.
void SelectInside(CardDocument& document, StationFace& face, const CRect& box);

/// Handles a press on an object. Where `adds` is set, the object is added to the selection or taken
/// out of it. Otherwise a press on one of several selected objects leaves all of them selected.
void PressOneOfSeveral(CardDocument& document, StationFace& face, DesignScreen& screen,
                       CardObject& object, MouseButton button, ShiftState shift, bool adds);
/// Handles a button release over the form. The other selected objects move with the one that was
/// dragged. One that was pressed and not dragged stays exactly where it is. What was snapped lies
/// exactly on its line. At another scale than that of an unscaled form a pixel may be many twips,
/// so then nothing changes but what was dragged, by so many twips as it was dragged.
/// @param snap  the lines on which the dragged object lies; null for none
void ReleaseSeveral(CardDocument& document, StationFace& face, DesignScreen& screen,
                    MouseButton button, const DesignSnap* snap = nullptr);

} // namespace vantrel
