#pragma once

#include "base/Color.h"
#include <QColor>

namespace vantrel {

/// A stored colour for a window, and back.
inline QColor ColorOf(ColorValue color)
{
    const ColorParts parts = PartsOfColor(color);
    return {parts.Red, parts.Green, parts.Blue};
}

inline ColorValue ColorValueOf(const QColor& color)
{
    return ColorOfParts({color.red(), color.green(), color.blue()});
}

} // namespace vantrel
