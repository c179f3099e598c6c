#pragma once

namespace vantrel {

class CardDocument;
class PageCanvas;
struct LayoutParamsRecord;

/// Paints the page as it prints: back image, then the objects in stacking order. Grips and
/// templates are not painted.
void PaintDocument(const CardDocument& document, const LayoutParamsRecord& params,
                   PageCanvas& canvas);

} // namespace vantrel
