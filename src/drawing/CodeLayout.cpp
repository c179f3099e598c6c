#include "drawing/CodeLayout.h"
#include "base/Twips.h"
#include "drawing/CodePattern.h"
#include <algorithm>
#include <cmath>

namespace vantrel {

namespace {

/// Of a dot: the smallest difference that counts.
constexpr double Nothing = 1e-3;

/// Where something stands along one side of the place, in dots.
struct Span
{
    double Start = 0;
    double Length = 0;
};

/// The whole dots between two ends in twips.
Span InDots(double start, double length, double dot)
{
    const double first = std::ceil(start / dot - Nothing);
    const double end = std::floor((start + length) / dot + Nothing);
    return {first, std::max(0.0, end - first)};
}

/// The first dot of so many in the middle of a span.
double MiddleStart(double dots, const Span& span)
{
    return span.Start + std::floor((span.Length - dots) / 2);
}

} // namespace

CodeLayout LayOutCode(const CodePattern& pattern, const FilledBox& place, int dotsPerInch)
{
    const CodeKindRow& row = RowOf(pattern.Kind);
    const double dot = TwipsPerInch / (dotsPerInch > 0 ? dotsPerInch : CardDotsPerInch);
    const Span across = InDots(place.X, place.Width, dot);
    const Span down = InDots(place.Y, place.Height, dot);
    const int columns = row.QuietLeft + pattern.Width + row.QuietRight;
    const int rows = pattern.Height + 2 * row.QuietAboveAndBelow;
    double module = std::floor(across.Length / columns);
    if (!row.IsLinear)
        module = std::min(module, std::floor(down.Length / rows));
    const bool isTooLow = row.IsLinear && down.Length * dot < LowestBars - Nothing;
    if (pattern.Width == 0 || module * dot < SmallestModule - Nothing || isTooLow)
        return {};

    const double left = MiddleStart(columns * module, across) + row.QuietLeft * module;
    double top = down.Start;
    double high = down.Length;
    if (!row.IsLinear) {
        top = MiddleStart(rows * module, down) + row.QuietAboveAndBelow * module;
        high = module;
    }
    CodeLayout layout{module * dot, {}};
    layout.Boxes.reserve(pattern.Runs.size());
    for (const ModuleRun& run : pattern.Runs)
        layout.Boxes.push_back({.X = (left + run.X * module) * dot,
                                .Y = (top + run.Y * high) * dot,
                                .Width = run.Width * module * dot,
                                .Height = run.Height * high * dot});
    return layout;
}

} // namespace vantrel
