#include "card/PaintDocument.h"
#include "base/Skip.h"
#include "card/CaptionFigure.h"
#include "card/CardDocument.h"
#include "card/FittedFont.h"
#include "card/LayoutParamsRecord.h"
#include "card/TextLeft.h"
#include "drawing/PageCanvas.h"

namespace vantrel {

namespace {

void PaintBox(PageCanvas& canvas, const Picture& picture, PictureFit fit, float x, float y,
              float width, float height)
{
    if (!picture.HasHandle())
        return;
    Skip("paint picture", [&] {
        canvas.PaintFitted(picture, fit, static_cast<double>(x), static_cast<double>(y),
                           static_cast<double>(width), static_cast<double>(height));
    });
}

void PaintFigure(PageCanvas& canvas, const CaptionFigure& figure, ColorValue color)
{
    canvas.FillBoxes(figure.Boxes, color);
    for (const NoticeLine& line : figure.Notice)
        canvas.DrawText(line.Text, figure.NoticeFont, color, line.X, line.Y);
}

/// A label paints only its text: no border, no fill, no clipping to its box.
void PaintLabel(PageCanvas& canvas, const CardObject& label)
{
    if (IsFigureFont(label.Font())) {
        PaintFigure(canvas, FigureOf(label, 0), label.ForeColor);
        return;
    }
    const Font font = FittedFont(label);
    const double textWidth =
        label.Alignment == 0 ? 0.0 : PageCanvas::TextWidth(label.Caption(), font);
    canvas.DrawText(label.Caption(), font, label.ForeColor, TextLeft(label, textWidth),
                    static_cast<double>(label.Top));
}

} // namespace

void PaintDocument(const CardDocument& document, const LayoutParamsRecord& params,
                   PageCanvas& canvas)
{
    PaintBox(canvas, params.BackImg1Picture, PictureFit::Stretched, 0, 0, document.Width,
             document.Height);
    for (const auto& object : document.Objects()) {
        if (!object->IsContent())
            continue;
        if (object->IsLabel())
            PaintLabel(canvas, *object);
        else if (object->IsImage())
            PaintBox(canvas, object->Picture, object->Fit, object->Left, object->Top, object->Width,
                     object->Height);
    }
}

} // namespace vantrel
