#include "card/ObjectPlace.h"
#include "card/CardObject.h"
#include <algorithm>

namespace vantrel {

namespace {

/// In the order of `PlaceSide`.
constexpr std::array<float CardObject::*, PlaceSideCount> Sides = {
    &CardObject::Left, &CardObject::Top, &CardObject::Width, &CardObject::Height};

float CardObject::*MemberOf(PlaceSide side)
{
    return Sides[static_cast<std::size_t>(side)];
}

} // namespace

double SideOf(const CardObject& object, PlaceSide side)
{
    return static_cast<double>(object.*MemberOf(side));
}

std::optional<double> SharedSide(const std::vector<CardObject*>& objects, PlaceSide side)
{
    if (objects.empty())
        return std::nullopt;
    const double shared = SideOf(*objects.front(), side);
    const bool differ = std::ranges::any_of(
        objects, [&](const CardObject* object) { return SideOf(*object, side) != shared; });
    return differ ? std::nullopt : std::optional(shared);
}

bool IsSideAllowed(PlaceSide side, std::int32_t twips)
{
    const bool isSize = side == PlaceSide::Width || side == PlaceSide::Height;
    return twips >= (isSize ? 1 : -FarthestPlace) && twips <= FarthestPlace;
}

void SetSide(const std::vector<CardObject*>& objects, PlaceSide side, std::int32_t twips)
{
    for (CardObject* object : objects)
        object->*MemberOf(side) = static_cast<float>(twips);
}

} // namespace vantrel
