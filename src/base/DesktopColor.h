#pragma once

#include "base/Color.h"
#include <QColor>

namespace vantrel {

/// Converts a stored colour to Qt's colour type.
inline QColor ColorOf(ColorValue color)
{
    const ColorParts parts = PartsOfColor(color);
    return {parts.Red, parts.Green, parts.Blue};
}

/// Converts Qt's colour to a stored one; its opacity is dropped.
inline ColorValue ColorValueOf(const QColor& color)
{
    return ColorOfParts({color.red(), color.green(), color.blue()});
}

} // namespace vantrel
