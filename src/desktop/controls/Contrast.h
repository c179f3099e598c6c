#pragma once

#include <QColor>

namespace vantrel {

/// How far two colours stand apart to an eye: 1 the same, 21 black and white. A shape wants 3, text
/// 4.5.
double Contrast(const QColor& one, const QColor& other);

/// A colour of lines on that ground: the wanted one where it stands out, else black or white.
QColor InkOn(const QColor& ground, const QColor& wanted);

/// The colour between two, `share` of the first one, 0 to 1.
QColor Between(const QColor& first, const QColor& second, double share);

} // namespace vantrel
