#pragma once

#include <QColor>

namespace vantrel {

/// The contrast ratio of two colours: 1 for the same colour, 21 for black and white. Shapes and
/// large letters need 3, other text needs 4.5.
double Contrast(const QColor& one, const QColor& other);

} // namespace vantrel
