#pragma once

namespace vantrel {

class CardObject;

/// Left edge of a label's text on the page in twips, according to the label's alignment. A
/// right-aligned or centred text that is wider than its object extends beyond it to the left or on
/// both sides. The result is rounded to single precision, unless the text starts so far off the
/// card that this would move it visibly.
/// @param textWidth  width of the caption in twips; ignored for a left-aligned label
double TextLeft(const CardObject& label, double textWidth);

} // namespace vantrel
