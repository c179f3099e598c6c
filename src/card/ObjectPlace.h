#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

namespace vantrel {

class CardObject;

/// @file Place and size of objects as an operator types them. Nothing here fails.

/// What is typed about an object's box.
enum class PlaceSide { Left, Top, Width, Height };
inline constexpr int PlaceSideCount = 4;

/// The farthest from the card's corner, and the longest side, in twips: some fifteen times the
/// width of a large printer's page.
inline constexpr std::int32_t FarthestPlace = 100'000;

double SideOf(const CardObject& object, PlaceSide side);
/// The length that all the objects have, in twips; none if they differ or there is no object.
std::optional<double> SharedSide(const std::vector<CardObject*>& objects, PlaceSide side);

/// Whether a side may be that long: a width or height is at least one twip, and nothing is beyond
/// `FarthestPlace`. An object may begin outside the card, so that a picture reaches over its edge.
bool IsSideAllowed(PlaceSide side, std::int32_t twips);
/// Sets a side of all the objects, in twips.
void SetSide(const std::vector<CardObject*>& objects, PlaceSide side, std::int32_t twips);

} // namespace vantrel
