#pragma once

#include <optional>
#include <span>
#include <vector>

namespace vantrel {

class CardDocument;

/// A line that objects are put on while they are dragged: a side or the middle of another object or
/// of the card. In twips.
struct SnapLine
{
    double Place = 0;
    /// What has that side or middle reaches from here to there, along the line.
    double From = 0;
    double To = 0;

    friend bool operator==(const SnapLine&, const SnapLine&) = default;
};

/// The lines of a page: upright ones by their distance from the left, level ones from the top.
struct SnapLines
{
    std::vector<SnapLine> Upright;
    std::vector<SnapLine> Level;
};

/// The lines of the card and of its visible objects, without those that are selected.
SnapLines LinesToSnapTo(const CardDocument& document);

/// Parts of a length that can lie on a line: its beginning, its middle and its end.
inline constexpr double SnapShares[] = {0, 0.5, 1};

/// What a dragged length has come to lie on.
struct SnapHit
{
    SnapLine Line;
    /// The part of the length that lies on it.
    double Share = 0;
};

/// The nearest line within reach of a part of the length; the first of several that are as near.
/// Lines at the same place are one, as long as they are together.
/// @param begin,length  in twips
/// @param shares  the parts of the length that may lie on a line
/// @param reach  in twips
std::optional<SnapHit> NearestLine(std::span<const SnapLine> lines, double begin, double length,
                                   std::span<const double> shares, double reach);

} // namespace vantrel
