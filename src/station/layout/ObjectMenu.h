#pragma once

namespace vantrel {

class CardObject;
class CardDocument;
class StationFace;

/// Updates the menu for the selected object: its kind decides which entries are visible, its values
/// decide which are ticked. For static texts and images the ticks of the previous object stay.
void UpdateObjectMenu(StationFace& face, const CardDocument& document, const CardObject& object);

/// Enables the object menu while an object is selected. Called ten times a second.
void TickObjectMenu(StationFace& face, const CardDocument& document);

} // namespace vantrel
