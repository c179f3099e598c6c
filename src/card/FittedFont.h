#pragma once

#include "base/Font.h"

namespace vantrel {

class CardObject;

/// Steps in which a text shrinks, in points, beginning at its smallest size.
inline constexpr double ShrinkStep = 0.25;

/// Whether the lines of a text in that font fit a label's box, in width and height. Takes time in
/// proportion to the text's length.
bool FitsBox(const CardObject& label, const Font& font);

/// The font in which a label's caption is shown and printed: its own, or where it shrinks to fit
/// (see `ShrinkToOf`) and does not fit, the same in the largest size that does, and in the smallest
/// size allowed if none does. The text is measured a few times at most, and twice if it is too long
/// for any size. Fails like `CardObject::Font`.
Font FittedFont(const CardObject& label);

} // namespace vantrel
