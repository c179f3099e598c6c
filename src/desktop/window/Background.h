#pragma once

#include "station/session/StationFace.h"
#include <QBrush>
#include <QSize>

namespace vantrel {

/// The brush that paints the workspace. A picture is stretched to `size` (in pixels of the window)
/// with no regard to its proportions. Colour number 0, a number that is no colour, and no setting
/// give `standard`.
QBrush BackgroundBrush(const BackgroundSetting& background, QSize size, double devicePixelRatio,
                       const QBrush& standard);

} // namespace vantrel
