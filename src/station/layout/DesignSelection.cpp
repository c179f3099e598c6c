#include "station/layout/DesignSelection.h"
#include "base/Convert.h"
#include "card/CardDocument.h"
#include "card/Grips.h"
#include "card/ObjectArrange.h"
#include "station/layout/DesignSnap.h"
#include "station/layout/ObjectMenu.h"
#include "station/session/StationFace.h"
#include <algorithm>

namespace vantrel {

namespace {

void AddOrTakeOut(CardDocument& document, StationFace& face, CardObject& object)
{
    std::vector<CardObject*> objects = SelectedObjects(document);
    if (CardObject* first = document.SelectedObject) {
        // The last one has the grips, and keeps them.
        std::erase(objects, first);
        objects.push_back(first);
    }
    if (std::erase(objects, &object) == 0)
        objects.insert(objects.begin(), &object);
    SelectObjects(document, face, objects);
}

/// Makes the object the one that has the grips, together with those that are selected with it.
void KeepOthers(CardDocument& document, CardObject& object)
{
    if (!IsSelected(document, object)) {
        document.AlsoSelected.clear();
        return;
    }
    if (document.SelectedObject == &object)
        return;
    std::erase(document.AlsoSelected, &object);
    document.AlsoSelected.push_back(document.SelectedObject);
    document.SelectedObject = &object;
}

bool LiesIn(const CardObject& object, const CRect& box)
{
    CRect own;
    own.SetRectToCtrl(object);
    return own.Left >= box.Left && own.Top >= box.Top && own.Right <= box.Right &&
           own.Bottom <= box.Bottom;
}

/// One axis of a drag: what it did to the box along that axis.
struct DraggedAxis
{
    float CardObject::*Place;
    float CardObject::*Length;
    std::int32_t CRect::*Near;
    std::int32_t CRect::*Far;
    const std::optional<SnapHit>* Hit;
    /// The side that a grip has moved: -1, 1, or 0 for none.
    int Side = 0;
};

/// A drag that has ended.
struct EndedDrag
{
    DragMode Mode = DragMode::None;
    /// Whether the band is another one than at the beginning.
    bool IsDragged = false;
    const CardObject& Before;
    /// The object's box and the rubber band, in screen pixels.
    CRect Began;
    CRect Band;
    double TwipsPerPixel = 0;
    std::int32_t OriginX = 0;
    std::int32_t OriginY = 0;

    /// Whether an axis without a line has its place already: nothing was dragged, or the form is
    /// unscaled, and then the band as a whole is the new box.
    bool IsSettled() const { return !IsDragged || TwipsPerPixel == FormOnScreen().TwipsPerPixelX; }
};

double WholeTwips(double twips)
{
    return RoundHalfToEven(twips);
}

/// Puts a moved object along one axis where it was dragged to, in its size.
void SettleMoved(CardObject& object, const EndedDrag& drag, const DraggedAxis& axis)
{
    const double length = drag.Before.*axis.Length;
    double place =
        drag.Before.*axis.Place +
        (static_cast<double>(drag.Band.*axis.Near) - drag.Began.*axis.Near) * drag.TwipsPerPixel;
    if (*axis.Hit)
        place = (*axis.Hit)->Line.Place - (*axis.Hit)->Share * length;
    object.*axis.Place = static_cast<float>(WholeTwips(place));
    object.*axis.Length = drag.Before.*axis.Length;
}

/// Puts the side of an object that a grip has moved where it was dragged to; the other side stays.
void SettleSized(CardObject& object, const EndedDrag& drag, const DraggedAxis& axis,
                 std::int32_t origin)
{
    const double begin = drag.Before.*axis.Place;
    const double end = begin + static_cast<double>(drag.Before.*axis.Length);
    const std::int32_t pixel = axis.Side < 0 ? drag.Band.*axis.Near : drag.Band.*axis.Far;
    double moved = (static_cast<double>(pixel) - origin) * drag.TwipsPerPixel;
    if (*axis.Hit)
        moved = (*axis.Hit)->Line.Place;
    const double other = axis.Side < 0 ? end : begin;
    const auto [low, high] = std::minmax({WholeTwips(moved), other});
    object.*axis.Place = static_cast<float>(axis.Side == 0 ? begin : low);
    object.*axis.Length =
        axis.Side == 0 ? drag.Before.*axis.Length : static_cast<float>(high - low);
}

/// Corrects what the way over whole pixels has done to the object.
void Settle(CardObject& object, const EndedDrag& drag, const DesignSnap* snap, GripSides sides)
{
    static const std::optional<SnapHit> none;
    const DraggedAxis across{&CardObject::Left,
                             &CardObject::Width,
                             &CRect::Left,
                             &CRect::Right,
                             snap == nullptr ? &none : &snap->Upright(),
                             sides.Across};
    const DraggedAxis down{&CardObject::Top,
                           &CardObject::Height,
                           &CRect::Top,
                           &CRect::Bottom,
                           snap == nullptr ? &none : &snap->Level(),
                           sides.Down};
    for (const DraggedAxis& axis : {across, down}) {
        if (drag.IsSettled() && !*axis.Hit)
            continue;
        if (drag.Mode == DragMode::Moving)
            SettleMoved(object, drag, axis);
        else
            SettleSized(object, drag, axis,
                        axis.Near == &CRect::Left ? drag.OriginX : drag.OriginY);
    }
}

} // namespace

void SelectObjects(CardDocument& document, StationFace& face,
                   const std::vector<CardObject*>& objects)
{
    document.SelectedObject = nullptr;
    document.AlsoSelected.clear();
    if (objects.empty()) {
        ShowHandles(document, false);
        return;
    }
    CardObject& last = *objects.back();
    document.AlsoSelected.assign(objects.begin(), objects.end() - 1);
    document.SelectedObject = &last;
    document.SelectedIndex = last.Index();
    document.SelectedFamily = FamilyName(last.Family());
    AdjustHandles(document, last);
    UpdateObjectMenu(face, document, last);
}

void SelectInside(CardDocument& document, StationFace& face, const CRect& box)
{
    CRect inside = box;
    inside.NormalizeRect();
    std::vector<CardObject*> objects;
    for (const auto& object : document.Objects()) {
        if (object->IsContent() && object->Visible && LiesIn(*object, inside))
            objects.push_back(object.get());
    }
    SelectObjects(document, face, objects);
}

void PressOneOfSeveral(CardDocument& document, StationFace& face, DesignScreen& screen,
                       CardObject& object, MouseButton button, ShiftState shift, bool adds)
{
    if (adds && button == MouseButton::Left) {
        document.LayoutUnchanged = false;
        screen.CloseSizeDialog();
        AddOrTakeOut(document, face, object);
        return;
    }
    if (shift == ShiftState::None)
        KeepOthers(document, object);
    PressObject(document, face, screen, object, button, shift);
}

void ReleaseSeveral(CardDocument& document, StationFace& face, DesignScreen& screen,
                    MouseButton button, const DesignSnap* snap)
{
    const DragMode mode = document.Drag.Mode;
    CardObject* const object = document.SelectedObject;
    if (button != MouseButton::Left || mode == DragMode::None || object == nullptr) {
        ReleaseButton(document, face, screen, button);
        return;
    }
    const CardObject before = *object;
    const FormOnScreen form = screen.Form();
    CRect began;
    began.SetRectToCtrl(before);
    began.TwipsToScreen(form);
    const CRect band = document.Drag.m_DragRect;
    const bool isDragged = !(band == began);
    const GripSides sides =
        mode == DragMode::Resizing ? SidesOfGrip(document.Drag.Handle) : GripSides();
    ReleaseButton(document, face, screen, button);
    // The way over pixels would shift an object that was only pressed by a part of one.
    if (!isDragged)
        *object = before;
    Settle(*object,
           {mode, isDragged, before, began, band, form.TwipsPerPixelX, form.OriginX, form.OriginY},
           snap, sides);
    AdjustHandles(document, *object);
    if (mode == DragMode::Moving) {
        MoveObjects(document.AlsoSelected, object->Left - before.Left, object->Top - before.Top);
        document.Refresh();
    }
}

} // namespace vantrel
