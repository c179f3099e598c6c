#pragma once

namespace vantrel {

class CardObject;
class CardDocument;
class StationFace;

/// Shapes the commands for the selected object: which of them show, by its kind, and which carry a
/// tick, by its values. A static text and an image leave the ticks of the object before.
void UpdateObjectMenu(StationFace& face, const CardDocument& document, const CardObject& object);

/// The look at the selection, ten times a second: its commands can be reached while there is one.
void TickObjectMenu(StationFace& face, const CardDocument& document);

} // namespace vantrel
