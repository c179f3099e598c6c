#include "layout/TextLeft.h"
#include "layout/CardObject.h"

namespace vantrel {

float TextLeft(const CardObject& label, double textWidth)
{
    const double room = static_cast<double>(label.Width) - textWidth;
    switch (label.Alignment) {
    case 0:
        return label.Left;
    case 1:
        return static_cast<float>(static_cast<double>(label.Left) + room);
    default:
        return static_cast<float>(static_cast<double>(label.Left) + room / 2.0);
    }
}

} // namespace vantrel
