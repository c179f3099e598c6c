#include "card/ObjectExtras.h"
#include "card/CardObject.h"
#include <algorithm>

namespace vantrel {

double ShrinkToOf(const CardObject& object)
{
    if (object.Extras.isEmpty())
        return 0;
    const double points = object.Extras.value(ExtraName::ShrinkTo).toDouble();
    return points > 0 ? std::clamp(points, LeastShrinkTo, MostShrinkTo) : 0;
}

void SetShrinkTo(CardObject& object, double points)
{
    if (points > 0)
        object.Extras.insert(ExtraName::ShrinkTo, std::clamp(points, LeastShrinkTo, MostShrinkTo));
    else
        object.Extras.remove(ExtraName::ShrinkTo);
}

} // namespace vantrel
