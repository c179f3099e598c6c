#pragma once

#include "base/LengthUnit.h"

namespace vantrel {

/// How a ruler is divided: into steps with a number each, and each step into parts.
struct RulerScale
{
    /// Length of a step, in twips.
    double Step = 0;
    /// Parts of a step, each with a short line; 1 for none.
    int Parts = 1;
    /// The part in which a longer line stands, in the middle of a step; 0 for none.
    int Middle = 0;

    friend bool operator==(const RulerScale&, const RulerScale&) = default;
};

/// The finest division whose numbers have room and whose lines do not touch: decimal for
/// millimetres and twips, halves and quarters down to sixteenths for inches.
/// @param pixelsPerTwip  above 0
RulerScale ScaleOf(LengthUnit unit, double pixelsPerTwip);

} // namespace vantrel
