#pragma once

#include "base/Font.h"

namespace vantrel {

/// How far the letters of a font reach below the line on which they stand, in twips.
double TextDescent(const Font& font);

} // namespace vantrel
