#include "drawing/GlyphLine.h"
#include <algorithm>
#include <pango/pangocairo.h>
#include <pango/pangofc-font.h>

namespace vantrel {

namespace {

/// A Pango renderer that collects the underlines and strikethroughs of a line instead of drawing
/// them.
struct Collector
{
    PangoRenderer Parent;
    GlyphLine* Line;
};
struct CollectorClass
{
    PangoRendererClass Parent;
};

struct ObjectDeleter
{
    void operator()(gpointer object) const { g_object_unref(object); }
};

GlyphLine& LineOf(PangoRenderer* renderer)
{
    return *reinterpret_cast<Collector*>(renderer)->Line;
}

double Points(int pangoUnits)
{
    return static_cast<double>(pangoUnits) / PANGO_SCALE;
}

/// Whether the font system emboldens the face because the family has no bold one.
bool IsThickened(PangoFont* font)
{
    if (PANGO_IS_FC_FONT(font) == 0)
        return true;
    FcBool thickened = FcFalse;
    FcPattern* pattern = pango_fc_font_get_pattern(PANGO_FC_FONT(font));
    return FcPatternGetBool(pattern, FC_EMBOLDEN, 0, &thickened) == FcResultMatch &&
           thickened == FcTrue;
}

/// @return a face's size in points, 0 if it is also slanted or stretched
double UprightSize(PangoFont* font)
{
    cairo_scaled_font_t* scaled = pango_cairo_font_get_scaled_font(PANGO_CAIRO_FONT(font));
    if (scaled == nullptr)
        return 0;
    cairo_matrix_t matrix;
    cairo_scaled_font_get_font_matrix(scaled, &matrix);
    const bool isUpright = matrix.xy == 0 && matrix.yx == 0 && matrix.xx == matrix.yy;
    return isUpright ? matrix.xx : 0;
}

GlyphRun BeginRun(PangoFont* font)
{
    GlyphRun run;
    run.Size = UprightSize(font);
    run.Face = FaceHandle(hb_face_reference(hb_font_get_face(pango_font_get_hb_font(font))),
                          FaceDeleter());
    return run;
}

/// The clusters of a run, in the order of the text.
class ClusterWalk
{
public:
    ClusterWalk(GlyphLine& line, GlyphRun& run, const PangoGlyphString& glyphs, int x, int baseline)
        : m_line(line), m_run(run), m_glyphs(glyphs), m_baseline(baseline)
    {
        const auto count = static_cast<std::size_t>(glyphs.num_glyphs);
        m_starts.reserve(count);
        run.Glyphs.reserve(count);
        run.Clusters.reserve(count);
        for (int i = 0; i < glyphs.num_glyphs; ++i) {
            m_starts.push_back(x);
            x += glyphs.glyphs[i].geometry.width;
        }
    }

    /// Adds the visible glyphs of `[from, to)` with the text they represent.
    void Add(int from, int to, QByteArrayView utf8)
    {
        GlyphCluster cluster;
        cluster.FirstGlyph = static_cast<qsizetype>(m_run.Glyphs.size());
        for (int i = from; i < to; ++i)
            AddGlyph(m_glyphs.glyphs[i], m_starts[static_cast<std::size_t>(i)]);
        cluster.GlyphCount = static_cast<qsizetype>(m_run.Glyphs.size()) - cluster.FirstGlyph;
        if (cluster.GlyphCount == 0)
            return;
        cluster.TextBegin = m_run.Text.size();
        m_run.Text += QString::fromUtf8(utf8);
        cluster.TextLength = m_run.Text.size() - cluster.TextBegin;
        m_run.Clusters.push_back(cluster);
    }

private:
    void AddGlyph(const PangoGlyphInfo& glyph, int start)
    {
        if (glyph.glyph == PANGO_GLYPH_EMPTY)
            return;
        if (glyph.glyph > UINT16_MAX) // a character that no font has
            m_line.IsPlain = false;
        m_run.Glyphs.push_back({static_cast<std::uint16_t>(glyph.glyph),
                                Points(start + glyph.geometry.x_offset),
                                -Points(m_baseline + glyph.geometry.y_offset)});
    }

    GlyphLine& m_line;
    GlyphRun& m_run;
    const PangoGlyphString& m_glyphs;
    int m_baseline;
    std::vector<int> m_starts;
};

void CollectGlyphs(PangoRenderer* renderer, const char* text, PangoGlyphItem* item, int x, int y)
{
    GlyphLine& line = LineOf(renderer);
    PangoFont* font = item->item->analysis.font;
    GlyphRun run = BeginRun(font);
    line.IsPlain = line.IsPlain && run.Size > 0 && !IsThickened(font);
    ClusterWalk walk(line, run, *item->glyphs, x, y);
    PangoGlyphItemIter cluster;
    for (gboolean more = pango_glyph_item_iter_init_start(&cluster, item, text); more != 0;
         more = pango_glyph_item_iter_next_cluster(&cluster)) {
        const bool isLeftToRight = cluster.start_glyph < cluster.end_glyph;
        const int from = isLeftToRight ? cluster.start_glyph : cluster.end_glyph + 1;
        const int to = isLeftToRight ? cluster.end_glyph : cluster.start_glyph + 1;
        walk.Add(from, to, {text + cluster.start_index, cluster.end_index - cluster.start_index});
    }
    if ((item->item->analysis.level & 1) != 0) // from right to left
        std::reverse(run.Clusters.begin(), run.Clusters.end());
    if (!run.Clusters.empty())
        line.Runs.push_back(std::move(run));
}

void CollectBar(PangoRenderer* renderer, PangoRenderPart /*part*/, int x, int y, int width,
                int height)
{
    LineOf(renderer).Bars.push_back({Points(x), -Points(y), Points(width), Points(height)});
}

void InitializeClass(gpointer held, gpointer /*data*/)
{
    auto* renderer = static_cast<PangoRendererClass*>(held);
    renderer->draw_glyph_item = CollectGlyphs;
    renderer->draw_rectangle = CollectBar;
}

GType CollectorType()
{
    static const GType type = g_type_register_static_simple(
        PANGO_TYPE_RENDERER, "VantrelGlyphCollector", sizeof(CollectorClass), InitializeClass,
        sizeof(Collector), nullptr, G_TYPE_FLAG_NONE);
    return type;
}

} // namespace

GlyphLine GlyphsOf(PangoLayoutLine* line)
{
    static const std::unique_ptr<Collector, ObjectDeleter> collector(
        static_cast<Collector*>(g_object_new(CollectorType(), nullptr)));
    GlyphLine glyphs;
    collector->Line = &glyphs;
    pango_renderer_draw_layout_line(&collector->Parent, line, 0, 0);
    collector->Line = nullptr;
    return glyphs;
}

} // namespace vantrel
