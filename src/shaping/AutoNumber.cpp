#include "shaping/AutoNumber.h"
#include "layout/CardObject.h"
#include "platform/Convert.h"

namespace vantrel {

void Increment_If_AutoNumber(CardObject& object)
{
    if (object.LinkItem != Marker::AutoNumber)
        return;
    object.DataField = NumberText(ToDouble(object.DataField) + 1);
    object.SetCaption(object.DataField);
}

} // namespace vantrel
