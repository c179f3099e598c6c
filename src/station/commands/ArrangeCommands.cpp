#include "station/commands/ArrangeCommands.h"
#include "card/Grips.h"
#include "station/session/Session.h"

namespace vantrel {

namespace {

/// Changes the selected objects and shows the grips where they are now. During a drag the object
/// belongs to the mouse.
template <typename Change>
void ChangeSelected(Session& session, Change change)
{
    CardDocument& document = session.Document;
    if (!session.Options.DesignTools || document.SelectedObject == nullptr ||
        document.Drag.Mode != DragMode::None)
        return;
    change(document);
    AdjustHandles(document, *document.SelectedObject);
}

} // namespace

void MoveSelected(Session& session, float right, float down)
{
    ChangeSelected(session, [&](CardDocument& document) {
        MoveObjects(SelectedObjects(document), right, down);
    });
}

void AlignSelected(Session& session, AlignLine line)
{
    ChangeSelected(session, [&](CardDocument& document) {
        AlignObjects(document, SelectedObjects(document), line);
    });
}

void SpreadSelected(Session& session, SpreadAxis axis)
{
    ChangeSelected(session,
                   [&](CardDocument& document) { SpreadObjects(SelectedObjects(document), axis); });
}

void StackSelected(Session& session, StackMove move)
{
    ChangeSelected(session, [&](CardDocument& document) { RestackSelected(document, move); });
}

} // namespace vantrel
