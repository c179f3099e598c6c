#pragma once

#include <QString>
#include <cstdint>
#include <optional>

namespace vantrel {

/// The units in which lengths are shown to operators and typed by them. Everything else is twips.
enum class LengthUnit { Millimetres, Inches, Twips };

/// The names of the units in the order of the enumeration, as the settings file has them and as
/// they stand behind a length.
inline constexpr const char* LengthUnitNames[] = {"mm", "inch", "twips"};

QString UnitName(LengthUnit unit);

/// @return how many twips one of the unit is
double TwipsPerUnit(LengthUnit unit);

/// The number of a length without its unit, with as many decimals as are needed to tell each twip
/// from the next: two for millimetres, four for inches, none for twips. There are no trailing zeros
/// and no grouping. `LengthOfText` gives back exactly the same whole twips.
QString LengthText(double twips, LengthUnit unit);
/// The same with a blank and the unit's name behind it.
QString LengthWithUnit(double twips, LengthUnit unit);

/// Reads a length that somebody has typed: a number with a point or a comma before its decimals,
/// and perhaps a unit behind it (mm, cm, inch, in, ", pt, twips), which then counts instead of
/// `unit`. Blanks and the case of letters do not matter.
/// @return whole twips, half to even; none for a text that is no length, or one that does not fit
std::optional<std::int32_t> LengthOfText(const QString& text, LengthUnit unit);

} // namespace vantrel
