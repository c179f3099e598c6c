#include "base/RulerScale.h"
#include <iterator>

namespace vantrel {

namespace {

/// Room for a number, and for a part, in pixels.
constexpr double NarrowestStep = 45;
constexpr double NarrowestPart = 4;
constexpr double Ten = 10;

/// One way to divide a ruler, in the unit.
struct Division
{
    double Step;
    /// How the step may be divided, from fine to coarse; 0 ends it.
    int Parts[3];
};

constexpr Division DecimalDivisions[] = {{1, {10, 5, 2}}, {2, {10, 4, 2}}, {5, {10, 5, 0}}};
constexpr Division InchDivisions[] = {
    {0.125, {8, 4, 2}}, {0.25, {8, 4, 2}}, {0.5, {8, 4, 2}}, {1, {16, 8, 4}}};

RulerScale Divided(const Division& division, double step, double pixelsPerTwip)
{
    for (const int parts : division.Parts) {
        if (parts > 1 && step * pixelsPerTwip / parts >= NarrowestPart)
            return {step, parts, parts % 2 == 0 ? parts / 2 : 0};
    }
    return {step, 1, 0};
}

} // namespace

RulerScale ScaleOf(LengthUnit unit, double pixelsPerTwip)
{
    const double twips = TwipsPerUnit(unit);
    if (unit == LengthUnit::Inches) {
        for (const Division& division : InchDivisions) {
            if (division.Step * twips * pixelsPerTwip >= NarrowestStep)
                return Divided(division, division.Step * twips, pixelsPerTwip);
        }
    }
    for (double power = 1;; power *= Ten) {
        for (const Division& division : DecimalDivisions) {
            const double step = division.Step * power * twips;
            // The last one is the way out for a scale that is no scale.
            if (step * pixelsPerTwip >= NarrowestStep || !(step * pixelsPerTwip > 0))
                return Divided(division, step, pixelsPerTwip);
        }
    }
}

} // namespace vantrel
