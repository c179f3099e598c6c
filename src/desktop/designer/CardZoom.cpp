#include "desktop/designer/CardZoom.h"
#include <algorithm>
#include <cmath>
#include <iterator>

namespace vantrel::CardZoom {

namespace {
/// Steps this near to a zoom are that zoom.
constexpr double SameZoom = 0.001;
} // namespace

double Next(double zoom, int direction)
{
    if (direction > 0) {
        const auto* const above =
            std::ranges::find_if(Steps, [zoom](double step) { return step > zoom + SameZoom; });
        return above == std::end(Steps) ? Most : *above;
    }
    const auto below = std::find_if(std::rbegin(Steps), std::rend(Steps),
                                    [zoom](double step) { return step < zoom - SameZoom; });
    return below == std::rend(Steps) ? Least : *below;
}

double Allowed(double zoom)
{
    return std::isnan(zoom) ? Actual : std::clamp(zoom, Least, Most);
}

} // namespace vantrel::CardZoom
