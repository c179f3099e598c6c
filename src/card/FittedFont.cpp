#include "card/FittedFont.h"
#include "card/CaptionFigure.h"
#include "card/CardObject.h"
#include "card/ObjectExtras.h"
#include "drawing/PageCanvas.h"
#include <cmath>

namespace vantrel {

bool FitsBox(const CardObject& label, const Font& font)
{
    const QString& text = label.Caption();
    return PageCanvas::TextHeight(text, font) <= static_cast<double>(label.Height) &&
           PageCanvas::TextWidth(text, font) <= static_cast<double>(label.Width);
}

Font FittedFont(const CardObject& label)
{
    const Font& own = label.Font();
    const double least = ShrinkToOf(label);
    if (least == 0 || least >= own.Size || IsFigureFont(own) || FitsBox(label, own))
        return own;
    Font font = own;
    const auto fitsAt = [&](int step) {
        font.Size = least + step * ShrinkStep;
        return FitsBox(label, font);
    };
    // The text fits at `fits`, if at any step, and not at `tooLarge`.
    int fits = 0;
    int tooLarge = static_cast<int>(std::ceil((own.Size - least) / ShrinkStep));
    if (!fitsAt(0))
        return font;
    while (tooLarge - fits > 1) {
        const int middle = fits + (tooLarge - fits) / 2;
        (fitsAt(middle) ? fits : tooLarge) = middle;
    }
    font.Size = least + fits * ShrinkStep;
    return font;
}

} // namespace vantrel
