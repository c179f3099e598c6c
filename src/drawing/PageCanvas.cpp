#include "drawing/PageCanvas.h"
#include "base/Failure.h"
#include "base/Twips.h"
#include "drawing/CairoCanvas.h"
#include "drawing/LongLine.h"
#include "drawing/TextShaper.h"
#include "drawing/pdf/PdfCanvas.h"
#include <algorithm>
#include <cmath>

namespace vantrel {

namespace {

/// In twips; far beyond any card, and within the number range of the renderers.
constexpr double FarthestOut = 1'000'000.0;

bool IsNear(double length)
{
    return std::abs(length) <= FarthestOut; // also false for NaN
}

/// Number of lines of a text that are shaped to measure it; a card holds far fewer.
constexpr int LinesShaped = 1000;

double WidthOfLine(const QString& line, const Font& font, int number)
{
    if (line.isEmpty())
        return 0;
    if (number > LinesShaped || LongLine::IsLong(line, font))
        return LongLine(line, font).Width();
    return TextShaper::Get().Line(line, font)->Width;
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
    // A long text may start far to the left of the card and still reach it.
    if (!(x <= FarthestOut) || !IsNear(y))
        return;
    const FontHeights heights = TextShaper::Get().Heights(font);
    double baseline = PointsOfTwips(y) + heights.Ascent;
    TakeLinesOfText(text, [&](const QString& line) {
        DrawLine(line, font, color, PointsOfTwips(x), baseline);
        baseline += heights.Line();
        return IsNear(TwipsOfPoints(baseline));
    });
}

void PageCanvas::DrawLine(const QString& line, const Font& font, ColorValue color, double x,
                          double baseline)
{
    if (line.isEmpty())
        return;
    if (IsNear(TwipsOfPoints(x)) && !LongLine::IsLong(line, font)) {
        Set(PlacedLine{TextShaper::Get().Line(line, font), color, x, baseline});
        return;
    }
    for (LinePiece& piece : LongLine(line, font).PiecesWithin(-x, Width() - x))
        Set(PlacedLine{std::move(piece.Shaped), color, x + piece.X, baseline});
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

void PageCanvas::PaintFitted(const Picture& picture, PictureFit fit, double x, double y,
                             double width, double height)
{
    const QSizeF own = picture.SizeInPixels();
    if (fit == PictureFit::Stretched || own.isEmpty() || !(width > 0) || !(height > 0)) {
        PaintPicture(picture, x, y, width, height);
        return;
    }
    const double across = width / own.width();
    const double down = height / own.height();
    const double scale = fit == PictureFit::Whole ? std::min(across, down) : std::max(across, down);
    const double drawnWidth = own.width() * scale;
    const double drawnHeight = own.height() * scale;
    const double left = x + (width - drawnWidth) / 2;
    const double top = y + (height - drawnHeight) / 2;
    if (!IsNear(left) || !IsNear(top) || !IsNear(drawnWidth) || !IsNear(drawnHeight))
        return;
    PlacedPicture placed{picture, PointsOfTwips(left), PointsOfTwips(top),
                         PointsOfTwips(drawnWidth), PointsOfTwips(drawnHeight)};
    if (fit == PictureFit::Filled)
        placed.Window = FilledBox{PointsOfTwips(x), PointsOfTwips(y), PointsOfTwips(width),
                                  PointsOfTwips(height)};
    Set(placed);
}

void PageCanvas::FillBoxes(const std::vector<FilledBox>& boxes, ColorValue color)
{
    PlacedBoxes placed{{}, color};
    placed.Boxes.reserve(boxes.size());
    for (const FilledBox& box : boxes) {
        if (!IsNear(box.X) || !IsNear(box.Y) || !IsNear(box.Width) || !IsNear(box.Height) ||
            box.Width <= 0 || box.Height <= 0)
            continue;
        placed.Boxes.push_back({PointsOfTwips(box.X), PointsOfTwips(box.Y),
                                PointsOfTwips(box.Width), PointsOfTwips(box.Height),
                                PointsOfTwips(std::min(box.RadiusX, box.Width / 2)),
                                PointsOfTwips(std::min(box.RadiusY, box.Height / 2))});
    }
    if (!placed.Boxes.empty())
        Set(placed);
}

double PageCanvas::TextWidth(const QString& text, const Font& font)
{
    double widest = 0;
    int number = 0;
    TakeLinesOfText(text, [&](const QString& line) {
        widest = std::max(widest, WidthOfLine(line, font, ++number));
        return true;
    });
    return TwipsOfPoints(widest);
}

double PageCanvas::TextHeight(const QString& text, const Font& font)
{
    double lines = 0;
    TakeLinesOfText(text, [&lines](const QString&) {
        ++lines;
        return true;
    });
    return TwipsOfPoints(lines * TextShaper::Get().Heights(font).Line());
}

const QStringList& PageCanvas::FontFamilies()
{
    return TextShaper::Get().Families();
}

QString PageCanvas::FontFamily(int index)
{
    const QStringList& families = TextShaper::Get().Families();
    if (index < 1 || index > families.size())
        throw Failure(FailureNumber::SubscriptOutOfRange, QStringLiteral("Subscript out of range"));
    return families[index - 1];
}

} // namespace vantrel
