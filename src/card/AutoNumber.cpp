#include "card/AutoNumber.h"
#include "base/Convert.h"
#include "card/CardObject.h"

namespace vantrel {

void Increment_If_AutoNumber(CardObject& object)
{
    if (object.LinkItem != Marker::AutoNumber)
        return;
    object.DataField = NumberText(ToDouble(object.DataField) + 1);
    object.SetCaption(object.DataField);
}

} // namespace vantrel
