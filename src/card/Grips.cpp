#include "card/Grips.h"
#include "base/Convert.h"
#include "card/CardDocument.h"
#include <array>

namespace vantrel {

namespace {

constexpr double GripPixels = 5;

/// A column or row of the box in which a grip lies.
enum class Edge { Near, Middle, Far };

struct GripPlace
{
    Edge Column;
    Edge Row;
};

constexpr std::array<GripPlace, 8> GripPlaces = {{
    {Edge::Near, Edge::Near},
    {Edge::Middle, Edge::Near},
    {Edge::Far, Edge::Near},
    {Edge::Far, Edge::Middle},
    {Edge::Far, Edge::Far},
    {Edge::Middle, Edge::Far},
    {Edge::Near, Edge::Far},
    {Edge::Near, Edge::Middle},
}};

/// Half a screen pixel in twips, and then the side of a grip.
const std::int32_t HalfPixel = RoundToLong(FormOnScreen().TwipsPerPixelX / 2);
const std::int32_t GripSide = RoundToLong(FormOnScreen().TwipsPerPixelX * GripPixels);

std::int32_t GripAt(Edge edge, std::int32_t side, std::int32_t length)
{
    constexpr std::int32_t two = 2;
    const std::int32_t half = GripSide / two;
    switch (edge) {
    case Edge::Near:
        return side - half + HalfPixel;
    case Edge::Middle:
        return side + length / two - half;
    case Edge::Far:
        break;
    }
    return side + length - half - HalfPixel;
}

/// Places the grips around the drag rectangle.
void PlaceGrips(const CardDocument& document)
{
    const CRect& box = document.Drag.m_DragRect;
    for (std::size_t grip = 0; grip < GripPlaces.size(); ++grip) {
        CardObject* handle = document.Find(Family::picHandle, static_cast<int>(grip));
        if (handle == nullptr)
            continue;
        handle->Left = static_cast<float>(GripAt(GripPlaces[grip].Column, box.Left, box.Width()));
        handle->Top = static_cast<float>(GripAt(GripPlaces[grip].Row, box.Top, box.Height()));
    }
}

} // namespace

void DragInit(CardDocument& document)
{
    for (std::size_t grip = 0; grip < GripPlaces.size(); ++grip) {
        CardObject& handle = *document.Find(Family::picHandle, static_cast<int>(grip));
        handle.Width = handle.Height = static_cast<float>(GripSide);
    }
    document.SelectedObject = nullptr;
}

void ShowHandles(CardDocument& document, bool show)
{
    if (show && document.SelectedObject != nullptr)
        PlaceGrips(document);
    for (int grip = 0; grip <= document.HighestIndex(Family::picHandle); ++grip) {
        if (CardObject* handle = document.Find(Family::picHandle, grip))
            handle->Visible = show;
    }
    document.HandlesShown = show;
    document.Refresh();
}

void AdjustHandles(CardDocument& document, const CardObject& object)
{
    ShowHandles(document, false);
    document.Drag.m_DragRect.SetRectToCtrl(object);
    ShowHandles(document, true);
}

} // namespace vantrel
