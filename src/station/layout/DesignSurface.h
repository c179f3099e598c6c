#pragma once

#include "card/CRect.h"
#include <cstdint>

namespace vantrel {

class CardObject;
class CardDocument;
class StationFace;

/// What a drag asks of the window that shows the document.
class DesignScreen
{
public:
    virtual ~DesignScreen() = default;

    struct Point
    {
        std::int32_t X = 0;
        std::int32_t Y = 0;
    };

    /// The pointer in screen pixels; inside the form while a drag is on.
    virtual Point Cursor() const = 0;
    virtual FormOnScreen Form() const = 0;
    /// Inverts the outline of a rectangle on the screen: the same one twice leaves no trace.
    virtual void InvertOutline(const CRect& rectangle) = 0;
    /// Keeps the mouse with the form and the pointer inside it, or lets both go.
    virtual void CaptureMouse() = 0;
    virtual void ReleaseMouse() = 0;
    /// Shows what has changed before it goes on.
    virtual void UpdateForm() = 0;
    virtual void CloseSizeDialog() = 0;
};

enum class MouseButton { Left, Right, Other };
/// Whether a shift, control or alternate key is held.
enum class ShiftState { None, Held };

/// Which pointer shape stands over a grip.
enum class GripCursor { NorthWest, NorthSouth, NorthEast, EastWest };
GripCursor CursorOfGrip(int grip);

/// @file What the operator's mouse does to the page: selecting, moving, sizing. Routines that find
/// the selected object gone, as after a record that reloaded the page, leave it at that.

/// A press on a card object: selects it and begins to move it, or opens its menu.
void PressObject(CardDocument& document, StationFace& face, DesignScreen& screen,
                 CardObject& object, MouseButton button, ShiftState shift);
/// A press on a grip begins to size the selected object.
void PressHandle(CardDocument& document, DesignScreen& screen, int grip);
/// A press on the empty page ends the selection.
void PressForm(CardDocument& document);
/// The mouse has moved over the form, with or without a drag.
void MoveMouse(CardDocument& document, DesignScreen& screen);
/// A button was released over the form: the left one ends a drag, the right one opens a menu.
void ReleaseButton(CardDocument& document, StationFace& face, DesignScreen& screen,
                   MouseButton button);

/// Begins to move the object.
void DragBegin(CardDocument& document, DesignScreen& screen, CardObject& object);
/// Ends the selection and whatever drag was on.
void DragEnd(CardDocument& document);

} // namespace vantrel
