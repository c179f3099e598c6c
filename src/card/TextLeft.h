#pragma once

namespace vantrel {

class CardObject;

/// Left edge of a label's text on the page, in twips, by the label's alignment. A text wider than
/// its object begins left of it, or overhangs on both sides. In single precision, as a card counts,
/// but for a text that begins so far off the card that this would move it.
/// @param textWidth  width of the caption; of no account for a left-aligned label
double TextLeft(const CardObject& label, double textWidth);

} // namespace vantrel
