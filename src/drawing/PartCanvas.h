#pragma once

#include "drawing/PageCanvas.h"

class QPoint;

namespace vantrel {

/// Draws a part of a page on an image (format ARGB32_Premultiplied or RGB32), which must outlive
/// the canvas. What lies outside the part is left out, so a page that is shown at many times its
/// size needs no more memory than the window.
/// @param pixelsPerTwip  scales the page
/// @param corner  the upper left corner of the part, in pixels of the scaled page
std::unique_ptr<PageCanvas> CanvasOnPart(QImage& image, double pixelsPerTwip, QPoint corner);

} // namespace vantrel
