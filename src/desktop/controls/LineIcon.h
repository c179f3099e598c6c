#pragma once

#include <QIcon>
#include <QPolygonF>
#include <vector>

namespace vantrel {

/// The square on which line pictures are drawn has this many units to a side.
inline constexpr int LineIconGrid = 16;

/// Draws a picture of lines in that colour for one mode of an icon, sharp at any scale of the
/// screen.
void AddLines(QIcon& icon, const std::vector<QPolygonF>& lines, const QColor& color,
              QIcon::Mode mode);

/// An icon of that one picture.
QIcon LineIcon(const std::vector<QPolygonF>& lines, const QColor& color);

} // namespace vantrel
