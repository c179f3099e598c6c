#include "card/SnapLines.h"
#include "card/CardDocument.h"
#include "card/ObjectArrange.h"
#include <algorithm>
#include <cmath>

namespace vantrel {

namespace {

/// Lines nearer than this to each other are one: objects lie on whole twips, their middles on
/// halves.
constexpr double SamePlace = 0.5;

void AddLines(SnapLines& lines, double left, double top, double width, double height)
{
    for (const double share : SnapShares) {
        lines.Upright.push_back({left + share * width, top, top + height});
        lines.Level.push_back({top + share * height, left, left + width});
    }
}

} // namespace

SnapLines LinesToSnapTo(const CardDocument& document)
{
    SnapLines lines;
    AddLines(lines, 0, 0, document.Width, document.Height);
    for (const auto& object : document.Objects()) {
        if (object->IsContent() && object->Visible && !IsSelected(document, *object))
            AddLines(lines, object->Left, object->Top, object->Width, object->Height);
    }
    return lines;
}

std::optional<SnapHit> NearestLine(std::span<const SnapLine> lines, double begin, double length,
                                   std::span<const double> shares, double reach)
{
    std::optional<SnapHit> nearest;
    double least = reach;
    for (const SnapLine& line : lines) {
        for (const double share : shares) {
            const double distance = std::abs(begin + share * length - line.Place);
            if (distance > least || (nearest && distance == least))
                continue;
            least = distance;
            nearest = SnapHit{line, share};
        }
    }
    if (!nearest)
        return std::nullopt;
    for (const SnapLine& line : lines) {
        if (std::abs(line.Place - nearest->Line.Place) > SamePlace)
            continue;
        nearest->Line.From = std::min(nearest->Line.From, line.From);
        nearest->Line.To = std::max(nearest->Line.To, line.To);
    }
    return nearest;
}

} // namespace vantrel
