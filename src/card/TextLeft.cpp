#include "card/TextLeft.h"
#include "card/CardObject.h"
#include <cmath>

namespace vantrel {

namespace {

/// In twips; up to this distance single precision is finer than any printer.
constexpr double ExactInSingle = 1'000'000.0;

double AsCardsCount(double left)
{
    return std::abs(left) <= ExactInSingle ? static_cast<double>(static_cast<float>(left)) : left;
}

} // namespace

double TextLeft(const CardObject& label, double textWidth)
{
    const auto left = static_cast<double>(label.Left);
    const double room = static_cast<double>(label.Width) - textWidth;
    switch (label.Alignment) {
    case 0:
        return left;
    case 1:
        return AsCardsCount(left + room);
    default:
        return AsCardsCount(left + room / 2.0);
    }
}

} // namespace vantrel
