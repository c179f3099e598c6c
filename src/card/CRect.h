#pragma once

#include <cstdint>

namespace vantrel {

class CardObject;

/// Where a form stands on the screen, for the conversions between its twips and the screen's
/// pixels.
struct FormOnScreen
{
    /// Upper left corner of the form's inside, in screen pixels.
    std::int32_t OriginX = 0;
    std::int32_t OriginY = 0;
    /// The vertical factor belongs to the grips; rectangles are converted by the horizontal one.
    double TwipsPerPixelX = 15;
    double TwipsPerPixelY = 15;
};

/// The designer's rectangle: an object's box in twips, or the rubber band in screen pixels. It may
/// be inverted while a grip is dragged past the opposite side. Fails with nothing; a length that
/// does not fit leaves its side as it was.
class CRect
{
public:
    /// Which sides `NormalizeRect` has swapped, for an object that has ends instead of sides. No
    /// object of a card has.
    static constexpr std::uint32_t SwappedX = 1U;
    static constexpr std::uint32_t SwappedY = 2U;

    std::int32_t Left = 0;
    std::int32_t Top = 0;
    std::int32_t Right = 0;
    std::int32_t Bottom = 0;
    std::uint32_t Flags = 0;

    std::int32_t Width() const { return Right - Left; }
    void SetWidth(std::int32_t width) { Right = Left + width; }
    std::int32_t Height() const { return Bottom - Top; }
    void SetHeight(std::int32_t height) { Bottom = Top + height; }

    /// Takes the object's box in whole twips.
    void SetRectToCtrl(const CardObject& object);
    /// Puts the rectangle right and gives the object its box.
    void SetCtrlToRect(CardObject& object);
    /// Turn the rectangle from screen pixels to twips of the form, and back.
    void ScreenToTwips(const FormOnScreen& form);
    void TwipsToScreen(const FormOnScreen& form);
    /// Swaps the sides that are the wrong way round.
    void NormalizeRect();
    /// Whether the point is inside; the left and top sides are, the right and bottom ones are not.
    bool PtInRect(float x, float y) const;

    friend bool operator==(const CRect&, const CRect&) = default;
};

} // namespace vantrel
