#pragma once

#include "base/Contrast.h"

namespace vantrel {

/// A colour for lines on that background: the wanted one where its contrast suffices, otherwise
/// black or white.
QColor InkOn(const QColor& ground, const QColor& wanted);

/// A mixture of two colours with `share` of the first one, 0 to 1.
QColor Between(const QColor& first, const QColor& second, double share);

} // namespace vantrel
