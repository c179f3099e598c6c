#pragma once

#include "drawing/PictureFit.h"

namespace vantrel {

class Session;

/// @file How images show their pictures in their boxes. With `Options.DesignTools` only.

/// Sets how the selected images draw their pictures. Camera objects never stretch theirs, and are
/// left as they are where that is asked for.
void FitSelectedPictures(Session& session, PictureFit fit);

} // namespace vantrel
