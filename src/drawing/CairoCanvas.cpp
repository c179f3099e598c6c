#include "drawing/CairoCanvas.h"
#include "base/Failure.h"
#include "drawing/TextShaper.h"
#include <cairo-pdf.h>

namespace vantrel {

namespace {

cairo_status_t WriteToSink(void* closure, const unsigned char* bytes, unsigned int count)
{
    const auto& sink = *static_cast<PageCanvas::Sink*>(closure);
    return sink(reinterpret_cast<const char*>(bytes), count) ? CAIRO_STATUS_SUCCESS
                                                             : CAIRO_STATUS_WRITE_ERROR;
}

void SetColor(cairo_t* context, ColorValue color)
{
    const ColorParts parts = PartsOfColor(color);
    cairo_set_source_rgb(context, parts.Red / 255.0, parts.Green / 255.0, parts.Blue / 255.0);
}

void AddRoundedBox(cairo_t* context, const FilledBox& box)
{
    constexpr double quarter = 1.5707963267948966;
    const double right = box.Width / box.RadiusX;
    const double bottom = box.Height / box.RadiusY;
    cairo_save(context);
    cairo_translate(context, box.X, box.Y);
    cairo_scale(context, box.RadiusX, box.RadiusY);
    cairo_new_sub_path(context);
    cairo_arc(context, right - 1, 1, 1, -quarter, 0);
    cairo_arc(context, right - 1, bottom - 1, 1, 0, quarter);
    cairo_arc(context, 1, bottom - 1, 1, quarter, 2 * quarter);
    cairo_arc(context, 1, 1, 1, 2 * quarter, 3 * quarter);
    cairo_close_path(context);
    cairo_restore(context);
}

} // namespace

std::unique_ptr<CairoCanvas> CairoCanvas::OnPdf(double width, double height, Sink sink,
                                                Objects objects)
{
    std::unique_ptr<CairoCanvas> canvas(new CairoCanvas(width));
    canvas->m_sink = std::move(sink);
    canvas->m_surface.reset(
        cairo_pdf_surface_create_for_stream(WriteToSink, &canvas->m_sink, width, height));
    // Versions from 1.5 on may hold compressed objects.
    if (objects == Objects::Plain)
        cairo_pdf_surface_restrict_to_version(canvas->m_surface.get(), CAIRO_PDF_VERSION_1_4);
    canvas->m_context.reset(cairo_create(canvas->m_surface.get()));
    return canvas;
}

std::unique_ptr<CairoCanvas> CairoCanvas::OnImage(QImage& image, double pixelsPerPoint,
                                                  QPoint corner)
{
    std::unique_ptr<CairoCanvas> canvas(
        new CairoCanvas((corner.x() + image.width()) / pixelsPerPoint));
    const cairo_format_t format =
        image.format() == QImage::Format_RGB32 ? CAIRO_FORMAT_RGB24 : CAIRO_FORMAT_ARGB32;
    canvas->m_surface.reset(
        cairo_image_surface_create_for_data(image.bits(), format, image.width(), image.height(),
                                            static_cast<int>(image.bytesPerLine())));
    canvas->m_context.reset(cairo_create(canvas->m_surface.get()));
    cairo_translate(canvas->m_context.get(), -corner.x(), -corner.y());
    cairo_scale(canvas->m_context.get(), pixelsPerPoint, pixelsPerPoint);
    return canvas;
}

CairoCanvas::~CairoCanvas()
{
    // The bytes of an abandoned page go nowhere.
    if (IsPdf())
        m_sink = [](const char*, std::size_t) { return false; };
}

void CairoCanvas::Set(const PlacedLine& placed)
{
    cairo_t* context = m_context.get();
    SetColor(context, placed.Color);
    cairo_move_to(context, placed.X, placed.Baseline);
    pango_cairo_show_layout_line(context,
                                 pango_layout_get_line_readonly(placed.Line->Layout.get(), 0));
}

void CairoCanvas::Set(const PlacedPicture& placed)
{
    const PictureData& data = *placed.Content.Data();
    cairo_surface_t* surface = data.Surface();
    const QSizeF upright = data.UprightSize();
    cairo_t* context = m_context.get();
    cairo_save(context);
    if (const auto& window = placed.Window) {
        cairo_rectangle(context, window->X, window->Y, window->Width, window->Height);
        cairo_clip(context);
    }
    cairo_translate(context, placed.X, placed.Y);
    cairo_scale(context, placed.Width / upright.width(), placed.Height / upright.height());
    cairo_transform(context, &data.ToUpright);
    cairo_set_source_surface(context, surface, 0, 0);
    if (IsPdf()) {
        m_painted.push_back(placed.Content);
        cairo_paint(context);
    } else {
        // Otherwise stretched pixels at the edge would blend with what is under the picture.
        cairo_pattern_set_extend(cairo_get_source(context), CAIRO_EXTEND_PAD);
        cairo_rectangle(context, 0, 0, data.StoredSize().width(), data.StoredSize().height());
        cairo_fill(context);
    }
    cairo_restore(context);
}

void CairoCanvas::Set(const PlacedBoxes& placed)
{
    cairo_t* context = m_context.get();
    SetColor(context, placed.Color);
    cairo_new_path(context);
    for (const FilledBox& box : placed.Boxes) {
        if (box.IsRounded())
            AddRoundedBox(context, box);
        else
            cairo_rectangle(context, box.X, box.Y, box.Width, box.Height);
    }
    cairo_fill(context);
}

void CairoCanvas::Finish()
{
    cairo_show_page(m_context.get());
    const cairo_status_t drawn = cairo_status(m_context.get());
    if (IsPdf())
        cairo_surface_finish(m_surface.get());
    else
        cairo_surface_flush(m_surface.get());
    const cairo_status_t written = cairo_surface_status(m_surface.get());
    const cairo_status_t failed = drawn != CAIRO_STATUS_SUCCESS ? drawn : written;
    if (failed != CAIRO_STATUS_SUCCESS)
        throw Failure(FailureNumber::PrinterError,
                      QStringLiteral("Printer error: ") +
                          QString::fromUtf8(cairo_status_to_string(failed)));
}

} // namespace vantrel
