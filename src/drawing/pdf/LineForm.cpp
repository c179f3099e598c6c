#include "drawing/pdf/LineForm.h"
#include "drawing/CairoCanvas.h"
#include "drawing/TextShaper.h"
#include "drawing/pdf/PdfFile.h"
#include "drawing/pdf/PdfSyntax.h"
#include "drawing/pdf/PlainPdf.h"
#include <algorithm>
#include <cmath>

namespace vantrel {

namespace {

/// The part of the page around a line's start that its ink may reach, in points.
struct Reach
{
    double Left = 0;
    double Right = 0;
    double Above = 0;
    double Below = 0;
};

Reach ReachOf(const ShapedLine& line)
{
    PangoRectangle ink;
    PangoRectangle logical;
    pango_layout_line_get_extents(pango_layout_get_line_readonly(line.Layout.get(), 0), &ink,
                                  &logical);
    const auto points = [](int units) { return static_cast<double>(units) / PANGO_SCALE; };
    // The font system thickens some faces beyond the ink that it tells.
    const double margin = 1 + points(logical.height) / 4;
    return {margin - points(std::min(ink.x, logical.x)),
            margin + points(std::max(ink.x + ink.width, logical.x + logical.width)),
            margin - points(std::min(ink.y, logical.y)),
            margin + points(std::max(ink.y + ink.height, logical.y + logical.height))};
}

} // namespace

int AddLineForm(PdfFile& file, const std::shared_ptr<const ShapedLine>& line, ColorValue color)
{
    const Reach reach = ReachOf(*line);
    const double width = std::ceil(reach.Left + reach.Right);
    const double height = std::ceil(reach.Above + reach.Below);
    QByteArray pdf;
    const auto cairo = CairoCanvas::OnPdf(
        width, height,
        [&pdf](const char* bytes, std::size_t count) {
            pdf.append(bytes, static_cast<qsizetype>(count));
            return true;
        },
        CairoCanvas::Objects::Plain);
    cairo->Set(PlacedLine{line, color, reach.Left, reach.Above});
    cairo->Finish();

    QByteArray entries = "/BBox[0 0 ";
    AppendNumbers(entries, width, height);
    entries += "]/Matrix[1 0 0 1 ";
    AppendNumbers(entries, -reach.Left, reach.Above - height);
    return PlainPdf(std::move(pdf)).AddPageAsForm(file, entries + ']');
}

} // namespace vantrel
