#include "drawing/Sketch.h"
#include "base/Twips.h"
#include <cairo.h>
#include <cmath>
#include <numbers>

namespace vantrel {

namespace {
constexpr double DotsPerInch = 300.0;
constexpr double HundredthsPerMetre = 100000.0;

struct PatternOwner
{
    void operator()(cairo_pattern_t* pattern) const { cairo_pattern_destroy(pattern); }
};
using Pattern = std::unique_ptr<cairo_pattern_t, PatternOwner>;

double Part(unsigned color, unsigned shift)
{
    return static_cast<double>((color >> shift) & 0xFFU) / 255.0;
}

void AddStop(const Pattern& pattern, double offset, Sketch::Ink ink)
{
    cairo_pattern_add_color_stop_rgba(pattern.get(), offset, Part(ink.Color, 16),
                                      Part(ink.Color, 8), Part(ink.Color, 0), ink.Opacity);
}

cairo_t* PenFor(QImage& image)
{
    cairo_surface_t* surface =
        cairo_image_surface_create_for_data(image.bits(), CAIRO_FORMAT_RGB24, image.width(),
                                            image.height(), static_cast<int>(image.bytesPerLine()));
    cairo_t* pen = cairo_create(surface);
    cairo_surface_destroy(surface); // The pen keeps it.
    return pen;
}
} // namespace

/// Owns the cairo context.
struct Sketch::Pen
{
    explicit Pen(cairo_t* handle) : Handle(handle) {}
    Pen(const Pen&) = delete;
    Pen& operator=(const Pen&) = delete;
    ~Pen() { cairo_destroy(Handle); }

    cairo_t* const Handle;
};

Sketch::~Sketch() = default;

Sketch::Sketch(int width, int height, double unitsWide)
    : m_image(width, height, QImage::Format_RGB32), m_pen(std::make_unique<Pen>(PenFor(m_image))),
      m_width(unitsWide), m_height(unitsWide * height / width)
{
    m_image.fill(Qt::white);
    cairo_scale(m_pen->Handle, width / unitsWide, width / unitsWide);
    cairo_set_line_cap(m_pen->Handle, CAIRO_LINE_CAP_ROUND);
    cairo_set_line_join(m_pen->Handle, CAIRO_LINE_JOIN_ROUND);
}

void Sketch::MoveTo(double x, double y) const
{
    cairo_move_to(m_pen->Handle, x, y);
}

void Sketch::LineTo(double x, double y) const
{
    cairo_line_to(m_pen->Handle, x, y);
}

void Sketch::CurveTo(double x1, double y1, double x2, double y2, double x, double y) const
{
    cairo_curve_to(m_pen->Handle, x1, y1, x2, y2, x, y);
}

void Sketch::ClosePath() const
{
    cairo_close_path(m_pen->Handle);
}

void Sketch::NewPath() const
{
    cairo_new_path(m_pen->Handle);
}

void Sketch::Save() const
{
    cairo_save(m_pen->Handle);
}

void Sketch::Restore() const
{
    cairo_restore(m_pen->Handle);
}

void Sketch::Translate(double x, double y) const
{
    cairo_translate(m_pen->Handle, x, y);
}

void Sketch::Scale(double x, double y) const
{
    cairo_scale(m_pen->Handle, x, y);
}

void Sketch::ClipPreserve() const
{
    cairo_clip_preserve(m_pen->Handle);
}

void Sketch::Use(Ink ink) const
{
    cairo_set_source_rgba(m_pen->Handle, Part(ink.Color, 16), Part(ink.Color, 8),
                          Part(ink.Color, 0), ink.Opacity);
}

void Sketch::Fill(Ink ink) const
{
    Use(ink);
    cairo_fill(m_pen->Handle);
}

void Sketch::FillDown(double top, Ink above, double bottom, Ink below) const
{
    const Pattern pattern(cairo_pattern_create_linear(0, top, 0, bottom));
    AddStop(pattern, 0, above);
    AddStop(pattern, 1, below);
    cairo_set_source(m_pen->Handle, pattern.get());
    cairo_fill(m_pen->Handle);
}

void Sketch::FillRound(double x, double y, double radius, Ink centre, Ink rim) const
{
    const Pattern pattern(cairo_pattern_create_radial(x, y, 0, x, y, radius));
    AddStop(pattern, 0, centre);
    AddStop(pattern, 1, rim);
    cairo_set_source(m_pen->Handle, pattern.get());
    cairo_fill(m_pen->Handle);
}

void Sketch::Line(double width, Ink ink) const
{
    Use(ink);
    cairo_set_line_width(m_pen->Handle, width);
    cairo_stroke(m_pen->Handle);
}

void Sketch::Rectangle(double x, double y, double width, double height) const
{
    cairo_rectangle(m_pen->Handle, x, y, width, height);
}

void Sketch::RoundedRectangle(double x, double y, double width, double height, double radius) const
{
    constexpr double Quarter = std::numbers::pi / 2;
    cairo_new_sub_path(m_pen->Handle);
    cairo_arc(m_pen->Handle, x + width - radius, y + radius, radius, -Quarter, 0);
    cairo_arc(m_pen->Handle, x + width - radius, y + height - radius, radius, 0, Quarter);
    cairo_arc(m_pen->Handle, x + radius, y + height - radius, radius, Quarter, 2 * Quarter);
    cairo_arc(m_pen->Handle, x + radius, y + radius, radius, 2 * Quarter, 3 * Quarter);
    cairo_close_path(m_pen->Handle);
}

void Sketch::Ellipse(double x, double y, double radiusX, double radiusY) const
{
    cairo_save(m_pen->Handle);
    cairo_translate(m_pen->Handle, x, y);
    cairo_scale(m_pen->Handle, radiusX, radiusY);
    cairo_new_sub_path(m_pen->Handle);
    cairo_arc(m_pen->Handle, 0, 0, 1, 0, 2 * std::numbers::pi);
    cairo_close_path(m_pen->Handle);
    cairo_restore(m_pen->Handle);
}

QImage Sketch::Image() const
{
    cairo_surface_flush(cairo_get_target(m_pen->Handle));
    QImage finished = m_image.copy();
    const int dotsPerMetre =
        static_cast<int>(std::lround(DotsPerInch * HundredthsPerMetre / HundredthsPerInch));
    finished.setDotsPerMeterX(dotsPerMetre);
    finished.setDotsPerMeterY(dotsPerMetre);
    return finished;
}

} // namespace vantrel
