#pragma once

namespace vantrel {

class CardDocument;
class CardObject;

/// Sizes the grips and begins with nothing selected.
void DragInit(CardDocument& document);
/// Hides or shows the grips; where there is a selected object they are first placed around the
/// drag's rectangle, its box in twips.
void ShowHandles(CardDocument& document, bool show);
/// Hides the grips, lays the drag's rectangle around the object and shows them there.
void AdjustHandles(CardDocument& document, const CardObject& object);

} // namespace vantrel
