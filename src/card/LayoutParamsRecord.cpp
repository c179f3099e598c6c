#include "card/LayoutParamsRecord.h"

namespace vantrel {

void ResetBackImages(LayoutParamsRecord& params)
{
    params.BackImg1Picture = Picture();
    params.BackImg2Picture = Picture();
    params.BackImg1Path.clear();
    params.BackImg2Path.clear();
}

} // namespace vantrel
