#pragma once

namespace vantrel {

class CardObject;

/// Left edge of a label's text on the page, in twips, by the label's alignment. A text wider than
/// its object begins left of it, or overhangs on both sides.
/// @param textWidth  width of the caption; of no account for a left-aligned label
float TextLeft(const CardObject& label, double textWidth);

} // namespace vantrel
