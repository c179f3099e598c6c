#pragma once

namespace vantrel {

class CardDocument;
class CardObject;

/// Sets the size of the grips and clears the selection.
void DragInit(CardDocument& document);
/// Shows or hides the grips. If an object is selected, they are first placed around the drag
/// rectangle, which is the object's box in twips.
void ShowHandles(CardDocument& document, bool show);
/// Hides the grips, sets the drag rectangle to the object's box and shows the grips around it.
void AdjustHandles(CardDocument& document, const CardObject& object);

} // namespace vantrel
