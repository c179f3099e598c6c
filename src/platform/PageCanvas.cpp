#include "platform/PageCanvas.h"
#include "platform/Failure.h"
#include "platform/PictureData.h"
#include "platform/TextShaper.h"
#include "platform/Twips.h"
#include <QStringList>
#include <algorithm>
#include <cairo-pdf.h>
#include <cmath>
#include <vector>

namespace vantrel {

namespace {

/// In twips; nothing that lies farther out can reach a card, and the renderer cannot count so far.
constexpr double FarthestOut = 1'000'000.0;

bool IsNear(double length)
{
    return std::abs(length) <= FarthestOut; // false for what is no number, too
}

struct ContextDeleter
{
    void operator()(cairo_t* context) const { cairo_destroy(context); }
};

cairo_status_t WriteToSink(void* closure, const unsigned char* bytes, unsigned int count)
{
    const auto& sink = *static_cast<PageCanvas::Sink*>(closure);
    return sink(reinterpret_cast<const char*>(bytes), count) ? CAIRO_STATUS_SUCCESS
                                                             : CAIRO_STATUS_WRITE_ERROR;
}

} // namespace

struct PageCanvas::Surface
{
    Sink PdfSink;
    /// A page refers to its pictures until it is finished.
    std::vector<Picture> Painted;
    CairoSurface Target;
    std::unique_ptr<cairo_t, ContextDeleter> Context;

    bool IsPdf() const { return PdfSink != nullptr; }
};

std::unique_ptr<PageCanvas> PageCanvas::OnPdf(double width, double height, Sink sink)
{
    auto surface = std::make_unique<Surface>();
    surface->PdfSink = std::move(sink);
    surface->Target.reset(cairo_pdf_surface_create_for_stream(
        WriteToSink, &surface->PdfSink, PointsOfTwips(width), PointsOfTwips(height)));
    surface->Context.reset(cairo_create(surface->Target.get()));
    return std::unique_ptr<PageCanvas>(new PageCanvas(std::move(surface)));
}

std::unique_ptr<PageCanvas> PageCanvas::OnImage(QImage& image, double pixelsPerTwip)
{
    auto surface = std::make_unique<Surface>();
    const cairo_format_t format =
        image.format() == QImage::Format_RGB32 ? CAIRO_FORMAT_RGB24 : CAIRO_FORMAT_ARGB32;
    surface->Target.reset(
        cairo_image_surface_create_for_data(image.bits(), format, image.width(), image.height(),
                                            static_cast<int>(image.bytesPerLine())));
    surface->Context.reset(cairo_create(surface->Target.get()));
    const double pixelsPerPoint = TwipsOfPoints(pixelsPerTwip);
    cairo_scale(surface->Context.get(), pixelsPerPoint, pixelsPerPoint);
    return std::unique_ptr<PageCanvas>(new PageCanvas(std::move(surface)));
}

PageCanvas::PageCanvas(std::unique_ptr<Surface> surface) : m_surface(std::move(surface)) {}

PageCanvas::~PageCanvas()
{
    // A page that was given up has nobody left who waits for its bytes.
    if (m_surface->IsPdf())
        m_surface->PdfSink = [](const char*, std::size_t) { return false; };
}

void PageCanvas::DrawText(const QString& text, const Font& font, ColorValue color, double x,
                          double y)
{
    if (!IsNear(x) || !IsNear(y))
        return;
    cairo_t* context = m_surface->Context.get();
    const ColorParts parts = PartsOfColor(color);
    cairo_set_source_rgb(context, parts.Red / 255.0, parts.Green / 255.0, parts.Blue / 255.0);
    TextShaper& shaper = TextShaper::Get();
    const FontHeights heights = shaper.Heights(font);
    double baseline = PointsOfTwips(y) + heights.Ascent;
    const QStringList lines = LinesOfText(text);
    for (const QString& line : lines) {
        if (!line.isEmpty()) {
            const auto shaped = shaper.Line(line, font);
            cairo_move_to(context, PointsOfTwips(x), baseline);
            pango_cairo_show_layout_line(context,
                                         pango_layout_get_line_readonly(shaped->Layout.get(), 0));
        }
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
    const PictureData& data = *picture.Data();
    cairo_t* context = m_surface->Context.get();
    cairo_save(context);
    cairo_translate(context, PointsOfTwips(x), PointsOfTwips(y));
    cairo_scale(context, PointsOfTwips(width) / data.Pixels.width(),
                PointsOfTwips(height) / data.Pixels.height());
    cairo_transform(context, &data.ToUpright);
    cairo_set_source_surface(context, data.Surface.get(), 0, 0);
    if (m_surface->IsPdf()) {
        m_surface->Painted.push_back(picture);
        cairo_paint(context);
    } else {
        // Stretched pixels at the edge would else fade into what lies under the picture.
        cairo_pattern_set_extend(cairo_get_source(context), CAIRO_EXTEND_PAD);
        cairo_rectangle(context, 0, 0, data.Stored.width(), data.Stored.height());
        cairo_fill(context);
    }
    cairo_restore(context);
}

void PageCanvas::Finish()
{
    cairo_show_page(m_surface->Context.get());
    const cairo_status_t drawn = cairo_status(m_surface->Context.get());
    if (m_surface->IsPdf())
        cairo_surface_finish(m_surface->Target.get());
    else
        cairo_surface_flush(m_surface->Target.get());
    const cairo_status_t written = cairo_surface_status(m_surface->Target.get());
    const cairo_status_t failed = drawn != CAIRO_STATUS_SUCCESS ? drawn : written;
    if (failed != CAIRO_STATUS_SUCCESS)
        throw Failure(FailureNumber::PrinterError,
                      QStringLiteral("Printer error: ") +
                          QString::fromUtf8(cairo_status_to_string(failed)));
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
