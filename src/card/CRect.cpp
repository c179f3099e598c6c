#include "card/CRect.h"
#include "base/Convert.h"
#include "base/Skip.h"
#include "card/CardObject.h"
#include <utility>

namespace vantrel {

namespace {

void TakeRounded(std::int32_t& side, double value)
{
    Skip("side of a rectangle", [&] { side = RoundToLong(value); });
}

} // namespace

void CRect::SetRectToCtrl(const CardObject& object)
{
    const double left = object.Left;
    const double top = object.Top;
    TakeRounded(Left, left);
    TakeRounded(Top, top);
    TakeRounded(Right, left + static_cast<double>(object.Width));
    TakeRounded(Bottom, top + static_cast<double>(object.Height));
}

void CRect::SetCtrlToRect(CardObject& object)
{
    NormalizeRect();
    object.Left = static_cast<float>(Left);
    object.Top = static_cast<float>(Top);
    object.Width = static_cast<float>(Width());
    object.Height = static_cast<float>(Height());
}

void CRect::ScreenToTwips(const FormOnScreen& form)
{
    const auto convert = [&](std::int32_t& side, std::int32_t origin) {
        TakeRounded(side, (static_cast<double>(side) - origin) * form.TwipsPerPixelX);
    };
    convert(Left, form.OriginX);
    convert(Top, form.OriginY);
    convert(Right, form.OriginX);
    convert(Bottom, form.OriginY);
}

void CRect::TwipsToScreen(const FormOnScreen& form)
{
    const auto convert = [&](std::int32_t& side, std::int32_t origin) {
        TakeRounded(side,
                    RoundHalfToEven(static_cast<double>(side) / form.TwipsPerPixelX) + origin);
    };
    convert(Left, form.OriginX);
    convert(Top, form.OriginY);
    convert(Right, form.OriginX);
    convert(Bottom, form.OriginY);
}

void CRect::NormalizeRect()
{
    Flags = 0;
    if (Left > Right) {
        std::swap(Left, Right);
        Flags |= SwappedX;
    }
    if (Top > Bottom) {
        std::swap(Top, Bottom);
        Flags |= SwappedY;
    }
}

bool CRect::PtInRect(float x, float y) const
{
    return static_cast<float>(Left) <= x && x < static_cast<float>(Right) &&
           static_cast<float>(Top) <= y && y < static_cast<float>(Bottom);
}

} // namespace vantrel
