#include "desktop/controls/Contrast.h"
#include <cmath>

namespace vantrel {

namespace {

constexpr double LeastContrastOfLines = 3;

int Part(int first, int second, double share)
{
    return static_cast<int>(std::lround(first * share + second * (1 - share)));
}

} // namespace

QColor InkOn(const QColor& ground, const QColor& wanted)
{
    if (Contrast(ground, wanted) >= LeastContrastOfLines)
        return wanted;
    return Contrast(ground, Qt::black) > Contrast(ground, Qt::white) ? Qt::black : Qt::white;
}

QColor Between(const QColor& first, const QColor& second, double share)
{
    return {Part(first.red(), second.red(), share), Part(first.green(), second.green(), share),
            Part(first.blue(), second.blue(), share)};
}

} // namespace vantrel
