#include "station/commands/ShrinkCommands.h"
#include "card/CaptionFigure.h"
#include "card/ObjectArrange.h"
#include "card/ObjectExtras.h"
#include "station/commands/FigureCommands.h"
#include "station/session/Session.h"

namespace vantrel {

void ShrinkSelected(Session& session, const CardObject* label, double points)
{
    CardDocument& document = session.Document;
    if (label == nullptr || SelectedLabel(document) != label)
        return;
    for (CardObject* object : SelectedObjects(document)) {
        if (object->IsLabel() && !IsFigureFont(object->Font()))
            SetShrinkTo(*object, points);
    }
    document.Refresh();
}

} // namespace vantrel
