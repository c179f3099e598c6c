#pragma once

#include <QColor>

namespace vantrel {

/// The contrast ratio of two colours: 1 for the same colour, 21 for black and white. Shapes need 3,
/// text needs 4.5.
double Contrast(const QColor& one, const QColor& other);

/// A colour for lines on that background: the wanted one where its contrast suffices, otherwise
/// black or white.
QColor InkOn(const QColor& ground, const QColor& wanted);

/// A mixture of two colours with `share` of the first one, 0 to 1.
QColor Between(const QColor& first, const QColor& second, double share);

} // namespace vantrel
