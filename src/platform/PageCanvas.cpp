#include "platform/PageCanvas.h"
#include "platform/CairoCanvas.h"
#include "platform/Failure.h"
#include "platform/PdfCanvas.h"
#include "platform/TextShaper.h"
#include "platform/Twips.h"
#include <QStringList>
#include <algorithm>
#include <cmath>

namespace vantrel {

namespace {

/// In twips; nothing that lies farther out can reach a card, and renderers cannot count so far.
constexpr double FarthestOut = 1'000'000.0;

bool IsNear(double length)
{
    return std::abs(length) <= FarthestOut; // false for what is no number, too
}

} // namespace

std::unique_ptr<PageCanvas> PageCanvas::OnPdf(double width, double height, Sink sink)
{
    return std::make_unique<PdfCanvas>(PointsOfTwips(width), PointsOfTwips(height),
                                       std::move(sink));
}

std::unique_ptr<PageCanvas> PageCanvas::OnImage(QImage& image, double pixelsPerTwip)
{
    return CairoCanvas::OnImage(image, TwipsOfPoints(pixelsPerTwip));
}

void PageCanvas::DrawText(const QString& text, const Font& font, ColorValue color, double x,
                          double y)
{
    if (!IsNear(x) || !IsNear(y))
        return;
    TextShaper& shaper = TextShaper::Get();
    const FontHeights heights = shaper.Heights(font);
    double baseline = PointsOfTwips(y) + heights.Ascent;
    const QStringList lines = LinesOfText(text);
    for (const QString& line : lines) {
        if (!line.isEmpty())
            Set(PlacedLine{shaper.Line(line, font), color, PointsOfTwips(x), baseline});
        baseline += heights.Line();
    }
}

void PageCanvas::PaintPicture(const Picture& picture, double x, double y, double width,
                              double height)
{
    if (!picture.HasHandle())
        throw Failure(FailureNumber::InvalidPicture, QStringLiteral("Invalid picture"));
    if (!IsNear(x) || !IsNear(y) || !IsNear(width) || !IsNear(height) || width == 0 || height == 0)
        return;
    Set(PlacedPicture{picture, PointsOfTwips(x), PointsOfTwips(y), PointsOfTwips(width),
                      PointsOfTwips(height)});
}

double PageCanvas::TextWidth(const QString& text, const Font& font)
{
    double widest = 0;
    const QStringList lines = LinesOfText(text);
    for (const QString& line : lines) {
        if (!line.isEmpty())
            widest = std::max(widest, TextShaper::Get().Line(line, font)->Width);
    }
    return TwipsOfPoints(widest);
}

double PageCanvas::TextHeight(const QString& text, const Font& font)
{
    const auto lines = static_cast<double>(LinesOfText(text).size());
    return TwipsOfPoints(lines * TextShaper::Get().Heights(font).Line());
}

QString PageCanvas::FontFamily(int index)
{
    const QStringList& families = TextShaper::Get().Families();
    if (index < 1 || index > families.size())
        throw Failure(FailureNumber::SubscriptOutOfRange, QStringLiteral("Subscript out of range"));
    return families[index - 1];
}

} // namespace vantrel
