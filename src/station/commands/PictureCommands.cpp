#include "station/commands/PictureCommands.h"
#include "card/ObjectArrange.h"
#include "station/layout/ObjectMenu.h"
#include "station/session/Session.h"

namespace vantrel {

void FitSelectedPictures(Session& session, PictureFit fit)
{
    if (!session.Options.DesignTools || session.CurrentLayoutName.isEmpty())
        return;
    for (CardObject* object : SelectedObjects(session.Document)) {
        if (object->IsImage() &&
            (fit != PictureFit::Stretched || object->Family() != Family::img_CAM))
            object->Fit = fit;
    }
    TickObjectMenu(session.Face, session.Document);
    session.Document.Refresh();
}

} // namespace vantrel
