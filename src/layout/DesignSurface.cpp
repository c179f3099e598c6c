#include "layout/DesignSurface.h"
#include "app/Session.h"
#include "layout/DocumentForm.h"
#include "layout/ObjectMenu.h"
#include <array>

namespace vantrel {

namespace {

/// A side of the rectangle that a grip moves along an axis, if any.
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

void DrawDragRect(const Session& session, DesignScreen& screen)
{
    screen.InvertOutline(session.Document.Drag.m_DragRect);
}

/// Lays the drag's rectangle around the object, on the screen.
void OutlineObject(Session& session, const DesignScreen& screen, const CardObject& object)
{
    CRect& rectangle = session.Document.Drag.m_DragRect;
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

void FinishDrag(Session& session, DesignScreen& screen)
{
    DragState& drag = session.Document.Drag;
    DrawDragRect(session, screen);
    if (CardObject* object = session.Document.SelectedObject) {
        drag.m_DragRect.ScreenToTwips(screen.Form());
        drag.m_DragRect.SetCtrlToRect(*object);
    }
    ShowHandles(session, true);
    screen.ReleaseMouse();
    drag.Mode = DragMode::None;
}

} // namespace

GripCursor CursorOfGrip(int grip)
{
    return GripTable.at(static_cast<std::size_t>(grip)).Cursor;
}

void AdjustHandles(Session& session, const CardObject& object)
{
    ShowHandles(session, false);
    session.Document.Drag.m_DragRect.SetRectToCtrl(object);
    ShowHandles(session, true);
}

void PressObject(Session& session, DesignScreen& screen, CardObject& object, MouseButton button,
                 ShiftState shift)
{
    CardDocument& document = session.Document;
    document.LayoutUnchanged = false;
    if (shift == ShiftState::Held)
        return;
    document.SelectedIndex = object.Index();
    document.SelectedFamily = FamilyName(object.Family());
    if (button == MouseButton::Left) {
        UpdateObjectMenu(session, object);
        screen.CloseSizeDialog();
        DragBegin(session, screen, object);
        return;
    }
    AdjustHandles(session, object);
    UpdateObjectMenu(session, object);
    screen.CloseSizeDialog();
    document.SelectedObject = &object;
    session.Face.AskPopUp(object.Family() == Family::lbl_AUTO ? PopUp::mnuAutoNumber
                                                              : PopUp::mnuProperties);
}

void DragBegin(Session& session, DesignScreen& screen, CardObject& object)
{
    DragState& drag = session.Document.Drag;
    ShowHandles(session, false);
    session.Document.SelectedObject = &object;
    const DesignScreen::Point cursor = screen.Cursor();
    OutlineObject(session, screen, object);
    drag.OffsetX = cursor.X - drag.m_DragRect.Left;
    drag.OffsetY = cursor.Y - drag.m_DragRect.Top;
    screen.UpdateForm();
    DrawDragRect(session, screen);
    drag.Mode = DragMode::Moving;
    screen.ReleaseMouse();
    screen.CaptureMouse();
}

void PressHandle(Session& session, DesignScreen& screen, int grip)
{
    CardDocument& document = session.Document;
    screen.CloseSizeDialog();
    if (document.SelectedObject != nullptr)
        OutlineObject(session, screen, *document.SelectedObject);
    document.Drag.Handle = static_cast<std::int16_t>(grip);
    ShowHandles(session, false);
    screen.UpdateForm();
    document.Drag.Mode = DragMode::Resizing;
    DrawDragRect(session, screen);
    document.LayoutUnchanged = false;
    screen.ReleaseMouse();
    screen.CaptureMouse();
}

void PressForm(Session& session)
{
    ShowHandles(session, false);
    session.Document.SelectedObject = nullptr;
}

void MoveMouse(Session& session, DesignScreen& screen)
{
    DragState& drag = session.Document.Drag;
    if (drag.Mode == DragMode::None)
        return;
    const DesignScreen::Point cursor = screen.Cursor();
    DrawDragRect(session, screen);
    if (drag.Mode == DragMode::Moving)
        MoveBand(drag, cursor);
    else
        SizeBand(drag, cursor);
    DrawDragRect(session, screen);
}

void ReleaseButton(Session& session, DesignScreen& screen, MouseButton button)
{
    if (button == MouseButton::Left && session.Document.Drag.Mode != DragMode::None)
        FinishDrag(session, screen);
    else if (button == MouseButton::Right)
        session.Face.AskPopUp(PopUp::mnuData);
}

void DragEnd(Session& session)
{
    session.Document.SelectedObject = nullptr;
    ShowHandles(session, false);
    session.Document.Drag.Mode = DragMode::None;
}

} // namespace vantrel
