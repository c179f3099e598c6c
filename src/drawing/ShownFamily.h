#pragma once

#include "base/Font.h"

namespace vantrel {

/// The family in which a font's texts are shown, such as "Liberation Sans" for "Arial" where that
/// is not installed; empty if there is no font at all. Resolves the font anew each time.
QString ShownFamily(const Font& font);

} // namespace vantrel
