#pragma once

#include <cstdint>

namespace vantrel {

/// A colour as the store and the objects hold it: 0x00BBGGRR.
using ColorValue = std::int32_t;

inline constexpr ColorValue ColorBlack = 0x000000;
inline constexpr ColorValue ColorWhite = 0xFFFFFF;

/// The red, green and blue parts of a stored colour, each 0 to 255.
struct ColorParts
{
    int Red = 0;
    int Green = 0;
    int Blue = 0;
};

/// Splits a stored colour into its parts. Never fails.
constexpr ColorParts PartsOfColor(ColorValue color)
{
    const auto bits = static_cast<std::uint32_t>(color);
    return {static_cast<int>(bits & 0xFFU), static_cast<int>((bits >> 8U) & 0xFFU),
            static_cast<int>((bits >> 16U) & 0xFFU)};
}

/// Builds a stored colour from its parts, which must each be 0 to 255.
constexpr ColorValue ColorOfParts(const ColorParts& parts)
{
    return parts.Red | (parts.Green << 8) | (parts.Blue << 16);
}
static_assert(ColorOfParts(PartsOfColor(0x123456)) == 0x123456);

} // namespace vantrel
