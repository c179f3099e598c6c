#include "card/ObjectFindings.h"
#include "base/Twips.h"
#include "card/CaptionFigure.h"
#include "card/ObjectExtras.h"
#include "card/TextLeft.h"
#include "drawing/PageCanvas.h"
#include "drawing/TextDescent.h"
#include <QRectF>
#include <algorithm>
#include <cmath>

namespace vantrel {

namespace {

/// A text may reach this far beyond its box or the card before it counts: a point.
constexpr double Tolerance = TwipsPerPoint;
/// Modules differ from a length in millimetres by the rounding of dots.
constexpr double ModuleTolerance = 0.01;

QString Millimetres(double twips)
{
    constexpr double hundredthsPerMillimetre = 100;
    return QString::number(HundredthsOfTwips(twips) / hundredthsPerMillimetre, 'f', 1) +
           QStringLiteral(" mm");
}

/// How far the inner box reaches beyond the outer one on the side where it does most.
double Beyond(const QRectF& inner, const QRectF& outer)
{
    return std::max({outer.left() - inner.left(), outer.top() - inner.top(),
                     inner.right() - outer.right(), inner.bottom() - outer.bottom()});
}

/// The letters of a text as they stand on the card: from the top of the first line to the line on
/// which the last one stands.
QRectF LettersOf(const CardObject& label, const Font& shown)
{
    const double width = PageCanvas::TextWidth(label.Caption(), shown);
    const double height = PageCanvas::TextHeight(label.Caption(), shown) - TextDescent(shown);
    return {TextLeft(label, width), static_cast<double>(label.Top), width, height};
}

QString AdviceToFit(const CardObject& label)
{
    return ShrinkToOf(label) > 0
               ? QStringLiteral("Make the box larger, or let the text shrink further "
                                "(Station, Design Tools, Shrink to Fit).")
               : QStringLiteral("Make the box larger or the letters smaller, or let the text "
                                "shrink (Station, Design Tools, Shrink to Fit).");
}

} // namespace

std::optional<Finding> TextFinding(const CardObject& label, const Font& shown, const QSizeF& card)
{
    const QString& text = label.Caption();
    if (text.isEmpty())
        return std::nullopt;
    const QRectF letters = LettersOf(label, shown);
    const double beyondCard = Beyond(letters, {{0, 0}, card});
    if (!card.isEmpty() && beyondCard > Tolerance) {
        Finding finding = FindingOn(label, FindingKind::TextLeavesCard);
        finding.What = QStringLiteral("The text leaves the card");
        finding.Detail = QStringLiteral("by ") + Millimetres(beyondCard);
        finding.Advice = QStringLiteral("Move the text, or make its letters smaller.");
        return finding;
    }
    const QRectF box(static_cast<double>(label.Left), static_cast<double>(label.Top),
                     static_cast<double>(label.Width), static_cast<double>(label.Height));
    const double beyondBox = Beyond(letters, box);
    if (!(beyondBox > Tolerance))
        return std::nullopt;
    Finding finding = FindingOn(label, FindingKind::TextLeavesBox);
    finding.What = QStringLiteral("The text leaves its box");
    finding.Detail = QStringLiteral("by ") + Millimetres(beyondBox);
    finding.Advice = AdviceToFit(label);
    return finding;
}

std::optional<Finding> CodeFinding(const CardObject& label, const CaptionFigure& figure)
{
    if (!figure.Trouble.isEmpty()) {
        Finding finding = FindingOn(label, FindingKind::CodeImpossible);
        finding.What = figure.Trouble;
        finding.Advice = figure.NeedsLargerBox
                             ? QStringLiteral("Make the box larger, or the text shorter.")
                             : QStringLiteral("Use a kind of bar code that can hold the text.");
        return finding;
    }
    if (figure.Module == 0 || figure.Module >= LeastReadableModule - ModuleTolerance)
        return std::nullopt;
    Finding finding = FindingOn(label, FindingKind::CodeTooFine);
    finding.What = QStringLiteral("The modules of the code are smaller than 0.25 mm");
    constexpr double hundredthsPerMillimetre = 100;
    finding.Detail =
        QString::number(HundredthsOfTwips(figure.Module) / hundredthsPerMillimetre, 'f', 2) +
        QStringLiteral(" mm");
    finding.Advice = QStringLiteral("Make the box larger, or the text shorter.");
    return finding;
}

std::optional<Finding> CoarseFinding(const Picture& picture, PictureFit fit, const QSizeF& printed,
                                     const QString& where)
{
    if (!picture.HasHandle() || printed.isEmpty())
        return std::nullopt;
    const QSize pixels = picture.SizeInPixels();
    const double across = TwipsPerInch * pixels.width() / printed.width();
    const double down = TwipsPerInch * pixels.height() / printed.height();
    // A whole picture is drawn smaller than its box on two sides.
    const double dots = fit == PictureFit::Whole ? std::max(across, down) : std::min(across, down);
    if (dots >= LeastPictureDots)
        return std::nullopt;
    return Finding{
        .Kind = FindingKind::PictureCoarse,
        .Where = where,
        .What = QStringLiteral("The picture is too coarse for its size"),
        .Detail = QStringLiteral("%1 dots to the inch").arg(std::floor(dots)),
        .Advice = QStringLiteral("Use a picture with at least %1 by %2 pixels, or make it smaller.")
                      .arg(std::ceil(printed.width() / TwipsPerInch * LeastPictureDots))
                      .arg(std::ceil(printed.height() / TwipsPerInch * LeastPictureDots))};
}

} // namespace vantrel
