#pragma once

#include <QLatin1StringView>

namespace vantrel {

class CardObject;

/// @file Properties of objects that have no column of their own in the store. They are kept by name
/// in `CardObject::Extras` and in the table `ObjectExtras`, so that the other tables keep their
/// columns and every station can open the file. A property that is not set has no name there, and
/// names of other stations are kept as they are. To add one: its name here, and a routine that
/// reads it and gives a sound value whatever the store holds. Saving, loading, copies, the
/// designer's steps and the ledger's pages follow.
namespace ExtraName {
/// A number, in points.
inline constexpr QLatin1StringView ShrinkTo{"ShrinkTo"};
} // namespace ExtraName

/// Limits of the size to which a text may shrink, in points.
inline constexpr double LeastShrinkTo = 1;
inline constexpr double MostShrinkTo = 200;

/// The smallest size, in points, in which a text is shown to fit its box, from `LeastShrinkTo` to
/// `MostShrinkTo`; 0 if it always has the size of its font.
double ShrinkToOf(const CardObject& object);
/// @param points  brought within the limits; 0 or less for a text that keeps its size
void SetShrinkTo(CardObject& object, double points);

} // namespace vantrel
