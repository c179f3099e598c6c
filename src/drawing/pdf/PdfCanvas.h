#pragma once

#include "drawing/PageCanvas.h"
#include "drawing/pdf/PdfFace.h"
#include <optional>
#include <variant>
#include <vector>

namespace vantrel {

/// A page written as a PDF when it is finished, because only then its fonts and pictures are known.
/// Fonts and pictures that earlier cards have compressed are reused. A page whose fonts are more
/// than plain outlines is drawn by cairo instead.
class PdfCanvas : public PageCanvas
{
public:
    /// @param width,height  in points
    PdfCanvas(double width, double height, Sink sink);

    void Finish() override;

private:
    double Width() const override { return m_width; }
    void Set(const PlacedLine& placed) override { m_items.emplace_back(placed); }
    void Set(const PlacedPicture& placed) override { m_items.emplace_back(placed); }
    std::optional<PageFaces> ProvideFaces() const;
    void FinishByCairo();

    double m_width;
    double m_height;
    Sink m_sink;
    std::vector<std::variant<PlacedLine, PlacedPicture>> m_items;
};

} // namespace vantrel
