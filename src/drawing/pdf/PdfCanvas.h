#pragma once

#include "drawing/pdf/ItemCanvas.h"
#include "drawing/pdf/PdfFace.h"
#include <optional>

namespace vantrel {

/// A page written as a PDF of its own when it is finished. Fonts and pictures that earlier cards
/// have compressed are reused. A page whose fonts are more than plain outlines is drawn by cairo
/// instead.
class PdfCanvas : public ItemCanvas
{
public:
    /// @param width,height  in points
    PdfCanvas(double width, double height, Sink sink);

    void Finish() override;

private:
    std::optional<PageFaces> ProvideFaces() const;
    void FinishByCairo();

    Sink m_sink;
};

} // namespace vantrel
