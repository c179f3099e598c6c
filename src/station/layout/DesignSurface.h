#pragma once

#include "card/CRect.h"
#include <cstdint>

namespace vantrel {

class CardObject;
class CardDocument;
class StationFace;

/// What a drag needs from the window that shows the document.
class DesignScreen
{
public:
    virtual ~DesignScreen() = default;

    struct Point
    {
        std::int32_t X = 0;
        std::int32_t Y = 0;
    };

    /// Position of the pointer in screen pixels; inside the form during a drag.
    virtual Point Cursor() const = 0;
    virtual FormOnScreen Form() const = 0;
    /// Inverts the outline of a rectangle on the screen; inverting it again removes it.
    virtual void InvertOutline(const CRect& rectangle) = 0;
    /// Capture the mouse and confine the pointer to the form, or release both.
    virtual void CaptureMouse() = 0;
    virtual void ReleaseMouse() = 0;
    /// Repaints the form immediately.
    virtual void UpdateForm() = 0;
    virtual void CloseSizeDialog() = 0;
};

enum class MouseButton { Left, Right, Other };
/// Whether a Shift, Control or Alt key is held.
enum class ShiftState { None, Held };

/// Shape of the pointer over a grip.
enum class GripCursor { NorthWest, NorthSouth, NorthEast, EastWest };
/// @param grip  0 to 7, clockwise from the upper left
GripCursor CursorOfGrip(int grip);

/// The sides of a box that a grip moves: -1 the left or top one, 1 the right or bottom one, 0 none.
struct GripSides
{
    int Across = 0;
    int Down = 0;
};
/// @param grip  0 to 7, clockwise from the upper left
GripSides SidesOfGrip(int grip);

/// @file Selecting, moving and resizing objects with the mouse. If the selected object no longer
/// exists, for example because a record has reloaded the page, these functions do nothing. They
/// never fail.

/// Handles a press on a card object: selects it and starts to move it, or opens its menu.
void PressObject(CardDocument& document, StationFace& face, DesignScreen& screen,
                 CardObject& object, MouseButton button, ShiftState shift);
/// Handles a press on a grip, 0 to 7: starts to resize the selected object.
void PressHandle(CardDocument& document, DesignScreen& screen, int grip);
/// Handles a press on the empty page: clears the selection.
void PressForm(CardDocument& document);
/// Handles a move of the mouse over the form.
void MoveMouse(CardDocument& document, DesignScreen& screen);
/// Handles a button release over the form: the left button ends a drag, the right one opens a menu.
void ReleaseButton(CardDocument& document, StationFace& face, DesignScreen& screen,
                   MouseButton button);

/// Starts to move the object.
void DragBegin(CardDocument& document, DesignScreen& screen, CardObject& object);
/// Clears the selection and ends any drag.
void DragEnd(CardDocument& document);

} // namespace vantrel
