#pragma once

namespace vantrel {

class CardDocument;
class PageCanvas;
struct LayoutParamsRecord;

/// Paints the page as it is printed: the back image, then the objects in stacking order. Grips and
/// templates are not painted. Never fails.
void PaintDocument(const CardDocument& document, const LayoutParamsRecord& params,
                   PageCanvas& canvas);

} // namespace vantrel
