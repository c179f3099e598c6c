#pragma once

#include <cstdint>

namespace vantrel {

class CardObject;

/// Position and scale of a form on the screen, for conversions between its twips and screen pixels.
struct FormOnScreen
{
    /// Upper left corner of the form's inside, in screen pixels.
    std::int32_t OriginX = 0;
    std::int32_t OriginY = 0;
    /// Rectangles are converted by the horizontal factor on both axes; the vertical one is used for
    /// the grips.
    double TwipsPerPixelX = 15;
    double TwipsPerPixelY = 15;
};

/// The designer's rectangle: an object's box in twips, or the rubber band in screen pixels. It may
/// be inverted while a grip is dragged past the opposite side. Its functions never fail; a length
/// that does not fit leaves its side unchanged.
class CRect
{
public:
    /// Bits in `Flags` for the sides that `NormalizeRect` has swapped. No object of a card needs
    /// them.
    static constexpr std::uint32_t SwappedX = 1U;
    static constexpr std::uint32_t SwappedY = 2U;

    std::int32_t Left = 0;
    std::int32_t Top = 0;
    std::int32_t Right = 0;
    std::int32_t Bottom = 0;
    std::uint32_t Flags = 0;

    /// Width and height; setting them moves the right or bottom side.
    std::int32_t Width() const { return Right - Left; }
    void SetWidth(std::int32_t width) { Right = Left + width; }
    std::int32_t Height() const { return Bottom - Top; }
    void SetHeight(std::int32_t height) { Bottom = Top + height; }

    /// Sets the rectangle to the object's box, in whole twips.
    void SetRectToCtrl(const CardObject& object);
    /// Normalizes the rectangle and sets the object's box to it.
    void SetCtrlToRect(CardObject& object);
    /// Convert the rectangle from screen pixels to twips of the form, and back.
    void ScreenToTwips(const FormOnScreen& form);
    void TwipsToScreen(const FormOnScreen& form);
    /// Swaps left and right, and top and bottom, if they are inverted.
    void NormalizeRect();
    /// Whether the point is inside. The left and top sides belong to the inside, the right and
    /// bottom sides do not.
    bool PtInRect(float x, float y) const;

    friend bool operator==(const CRect&, const CRect&) = default;
};

} // namespace vantrel
