#include "station/layout/DesignSurface.h"
#include "card/Grips.h"
#include "station/layout/DocumentForm.h"
#include "station/layout/ObjectMenu.h"
#include "station/session/Session.h"
#include <array>

namespace vantrel {

namespace {

/// The side of the rectangle that a grip moves along one axis; null if it moves none.
using Side = std::int32_t CRect::*;

struct GripRow
{
    GripCursor Cursor;
    Side Across;
    Side Down;
};

constexpr std::array<GripRow, 8> GripTable = {{
    {GripCursor::NorthWest, &CRect::Left, &CRect::Top},
    {GripCursor::NorthSouth, nullptr, &CRect::Top},
    {GripCursor::NorthEast, &CRect::Right, &CRect::Top},
    {GripCursor::EastWest, &CRect::Right, nullptr},
    {GripCursor::NorthWest, &CRect::Right, &CRect::Bottom},
    {GripCursor::NorthSouth, nullptr, &CRect::Bottom},
    {GripCursor::NorthEast, &CRect::Left, &CRect::Bottom},
    {GripCursor::EastWest, &CRect::Left, nullptr},
}};

void DrawDragRect(const CardDocument& document, DesignScreen& screen)
{
    screen.InvertOutline(document.Drag.m_DragRect);
}

/// Sets the drag rectangle to the object's box, in screen pixels.
void OutlineObject(CardDocument& document, const DesignScreen& screen, const CardObject& object)
{
    CRect& rectangle = document.Drag.m_DragRect;
    rectangle.SetRectToCtrl(object);
    rectangle.TwipsToScreen(screen.Form());
}

void MoveBand(DragState& drag, DesignScreen::Point cursor)
{
    CRect& band = drag.m_DragRect;
    const std::int32_t width = band.Width();
    const std::int32_t height = band.Height();
    band.Left = cursor.X - drag.OffsetX;
    band.Top = cursor.Y - drag.OffsetY;
    band.SetWidth(width);
    band.SetHeight(height);
}

void SizeBand(DragState& drag, DesignScreen::Point cursor)
{
    const GripRow& grip = GripTable.at(static_cast<std::size_t>(drag.Handle));
    if (grip.Across != nullptr)
        drag.m_DragRect.*grip.Across = cursor.X;
    if (grip.Down != nullptr)
        drag.m_DragRect.*grip.Down = cursor.Y;
}

void FinishDrag(CardDocument& document, DesignScreen& screen)
{
    DragState& drag = document.Drag;
    DrawDragRect(document, screen);
    if (CardObject* object = document.SelectedObject) {
        drag.m_DragRect.ScreenToTwips(screen.Form());
        drag.m_DragRect.SetCtrlToRect(*object);
    }
    ShowHandles(document, true);
    screen.ReleaseMouse();
    drag.Mode = DragMode::None;
}

} // namespace

GripCursor CursorOfGrip(int grip)
{
    return GripTable.at(static_cast<std::size_t>(grip)).Cursor;
}

GripSides SidesOfGrip(int grip)
{
    const GripRow& row = GripTable.at(static_cast<std::size_t>(grip));
    const auto sign = [](Side side, Side first) {
        return side == nullptr ? 0 : (side == first ? -1 : 1);
    };
    return {sign(row.Across, &CRect::Left), sign(row.Down, &CRect::Top)};
}

void PressObject(CardDocument& document, StationFace& face, DesignScreen& screen,
                 CardObject& object, MouseButton button, ShiftState shift)
{
    document.LayoutUnchanged = false;
    if (shift == ShiftState::Held)
        return;
    document.SelectedIndex = object.Index();
    document.SelectedFamily = FamilyName(object.Family());
    if (button == MouseButton::Left) {
        UpdateObjectMenu(face, document, object);
        screen.CloseSizeDialog();
        DragBegin(document, screen, object);
        return;
    }
    AdjustHandles(document, object);
    UpdateObjectMenu(face, document, object);
    screen.CloseSizeDialog();
    document.SelectedObject = &object;
    face.AskPopUp(object.Family() == Family::lbl_AUTO ? PopUp::mnuAutoNumber
                                                      : PopUp::mnuProperties);
}

void DragBegin(CardDocument& document, DesignScreen& screen, CardObject& object)
{
    DragState& drag = document.Drag;
    ShowHandles(document, false);
    document.SelectedObject = &object;
    const DesignScreen::Point cursor = screen.Cursor();
    OutlineObject(document, screen, object);
    drag.OffsetX = cursor.X - drag.m_DragRect.Left;
    drag.OffsetY = cursor.Y - drag.m_DragRect.Top;
    screen.UpdateForm();
    DrawDragRect(document, screen);
    drag.Mode = DragMode::Moving;
    screen.ReleaseMouse();
    screen.CaptureMouse();
}

void PressHandle(CardDocument& document, DesignScreen& screen, int grip)
{
    screen.CloseSizeDialog();
    if (document.SelectedObject != nullptr)
        OutlineObject(document, screen, *document.SelectedObject);
    document.Drag.Handle = static_cast<std::int16_t>(grip);
    ShowHandles(document, false);
    screen.UpdateForm();
    document.Drag.Mode = DragMode::Resizing;
    DrawDragRect(document, screen);
    document.LayoutUnchanged = false;
    screen.ReleaseMouse();
    screen.CaptureMouse();
}

void PressForm(CardDocument& document)
{
    ShowHandles(document, false);
    document.SelectedObject = nullptr;
    document.AlsoSelected.clear();
}

void MoveMouse(CardDocument& document, DesignScreen& screen)
{
    DragState& drag = document.Drag;
    if (drag.Mode == DragMode::None)
        return;
    const DesignScreen::Point cursor = screen.Cursor();
    DrawDragRect(document, screen);
    if (drag.Mode == DragMode::Moving)
        MoveBand(drag, cursor);
    else
        SizeBand(drag, cursor);
    DrawDragRect(document, screen);
}

void ReleaseButton(CardDocument& document, StationFace& face, DesignScreen& screen,
                   MouseButton button)
{
    if (button == MouseButton::Left && document.Drag.Mode != DragMode::None)
        FinishDrag(document, screen);
    else if (button == MouseButton::Right)
        face.AskPopUp(PopUp::mnuData);
}

void DragEnd(CardDocument& document)
{
    document.SelectedObject = nullptr;
    ShowHandles(document, false);
    document.Drag.Mode = DragMode::None;
}

} // namespace vantrel
