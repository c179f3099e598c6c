#pragma once

#include "drawing/PageCanvas.h"
#include "drawing/pdf/PdfFace.h"
#include <optional>
#include <variant>
#include <vector>

namespace vantrel {

/// A page as a PDF, written when it is finished: only then is known what it needs. Fonts and
/// pictures go in as they were packed for the cards before. A page with more in its fonts than
/// plain outlines is left to cairo.
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
