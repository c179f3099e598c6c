#include "drawing/PartCanvas.h"
#include "base/Twips.h"
#include "drawing/CairoCanvas.h"
#include <QPoint>

namespace vantrel {

std::unique_ptr<PageCanvas> CanvasOnPart(QImage& image, double pixelsPerTwip, QPoint corner)
{
    return CairoCanvas::OnImage(image, TwipsOfPoints(pixelsPerTwip), corner);
}

} // namespace vantrel
