#pragma once

#include <QStringView>

namespace vantrel {

/// Converts a decimal text of any length in linear time. @return the nearest number, infinite if it
/// is too large
/// @param number  digits with an optional sign, fraction and exponent, and nothing else
double DecimalNumber(QStringView number);

} // namespace vantrel
