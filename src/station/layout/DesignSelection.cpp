#include "station/layout/DesignSelection.h"
#include "card/CardDocument.h"
#include "card/Grips.h"
#include "card/ObjectArrange.h"
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
                    MouseButton button)
{
    const DragMode mode = document.Drag.Mode;
    CardObject* const object = document.SelectedObject;
    if (button != MouseButton::Left || mode == DragMode::None || object == nullptr) {
        ReleaseButton(document, face, screen, button);
        return;
    }
    const CardObject before = *object;
    CRect began;
    began.SetRectToCtrl(before);
    began.TwipsToScreen(screen.Form());
    const bool isDragged = !(document.Drag.m_DragRect == began);
    ReleaseButton(document, face, screen, button);
    if (!isDragged) {
        // The way over pixels would have shifted it by a part of one.
        *object = before;
        AdjustHandles(document, *object);
    } else if (mode == DragMode::Moving) {
        MoveObjects(document.AlsoSelected, object->Left - before.Left, object->Top - before.Top);
        document.Refresh();
    }
}

} // namespace vantrel
