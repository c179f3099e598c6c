#include "drawing/TextDescent.h"
#include "base/Twips.h"
#include "drawing/TextShaper.h"

namespace vantrel {

double TextDescent(const Font& font)
{
    return TwipsOfPoints(TextShaper::Get().Heights(font).Descent);
}

} // namespace vantrel
