#include "drawing/TextShaper.h"
#include "drawing/PairWidths.h"
#include <QCache>
#include <QStringList>
#include <algorithm>
#include <cmath>

namespace vantrel {

static size_t qHash(const Font& font, size_t seed = 0)
{
    return qHashMulti(seed, font.Name, font.Size, font.Bold, font.Italic, font.Underline,
                      font.Strikethrough);
}

namespace {

constexpr int FontsKept = 256;
constexpr int LinesKept = 512;
constexpr int PairFontsKept = 8;
/// Longer lines are not cached; they are hardly ever repeated.
constexpr qsizetype LongestKept = 256;
constexpr double SmallestSize = 0.1;
constexpr double LargestSize = 2160.0;

struct ObjectDeleter
{
    void operator()(gpointer object) const { g_object_unref(object); }
};
template <typename T>
using ObjectOf = std::unique_ptr<T, ObjectDeleter>;

struct DescriptionDeleter
{
    void operator()(PangoFontDescription* held) const { pango_font_description_free(held); }
};
using Description = std::unique_ptr<PangoFontDescription, DescriptionDeleter>;

struct MetricsDeleter
{
    void operator()(PangoFontMetrics* held) const { pango_font_metrics_unref(held); }
};

struct ResolvedFont
{
    Description Described;
    FontHeights Heights;
};

struct LineKey
{
    Font Style;
    QString Text;

    friend bool operator==(const LineKey&, const LineKey&) = default;
};

size_t qHash(const LineKey& key, size_t seed = 0)
{
    return qHashMulti(seed, qHash(key.Style), key.Text);
}

double PointsOf(int pangoUnits)
{
    return static_cast<double>(pangoUnits) / PANGO_SCALE;
}

Description Describe(const Font& font)
{
    Description described(pango_font_description_new());
    pango_font_description_set_family(described.get(), font.Name.toUtf8().constData());
    // The comparison turns NaN into the smallest size.
    const double size = font.Size > SmallestSize ? std::min(font.Size, LargestSize) : SmallestSize;
    pango_font_description_set_size(described.get(),
                                    static_cast<int>(std::lround(size * PANGO_SCALE)));
    pango_font_description_set_weight(described.get(),
                                      font.Bold ? PANGO_WEIGHT_BOLD : PANGO_WEIGHT_NORMAL);
    pango_font_description_set_style(described.get(),
                                     font.Italic ? PANGO_STYLE_ITALIC : PANGO_STYLE_NORMAL);
    return described;
}

void Decorate(PangoLayout* layout, const Font& font)
{
    if (!font.Underline && !font.Strikethrough)
        return;
    PangoAttrList* attributes = pango_attr_list_new();
    if (font.Underline)
        pango_attr_list_insert(attributes, pango_attr_underline_new(PANGO_UNDERLINE_SINGLE));
    if (font.Strikethrough)
        pango_attr_list_insert(attributes, pango_attr_strikethrough_new(TRUE));
    pango_layout_set_attributes(layout, attributes);
    pango_attr_list_unref(attributes);
}

/// The renderers refuse noncharacters, and with them the whole page.
bool DrawsNothing(char32_t code)
{
    switch (QChar::category(code)) {
    case QChar::Other_Control:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return true;
    default:
        return QChar::isNonCharacter(code);
    }
}

bool IsSpecial(QChar unit)
{
    return unit.isSurrogate() || DrawsNothing(unit.unicode());
}

/// No installed font has a longer name; each kept line and font holds a copy of its name.
constexpr qsizetype LongestName = 1000;

Font WithoutRestOfName(Font font)
{
    font.Name.truncate(LongestName);
    font.Name.squeeze();
    return font;
}

} // namespace

struct TextShaper::Caches
{
    ObjectOf<PangoFontMap> Map{pango_cairo_font_map_new()};
    ObjectOf<PangoContext> Context;
    /// For parts of a line, which have the direction of the whole line.
    ObjectOf<PangoContext> LeftToRight;
    ObjectOf<PangoContext> RightToLeft;
    QCache<Font, std::shared_ptr<const ResolvedFont>> Fonts{FontsKept};
    QCache<LineKey, std::shared_ptr<const ShapedLine>> Lines{LinesKept};
    QCache<Font, PairWidths> Pairs{PairFontsKept};
    QStringList Families;

    Caches()
    {
        // At 72 dots to the inch a point is one unit of the page.
        pango_cairo_font_map_set_resolution(PANGO_CAIRO_FONT_MAP(Map.get()), 72.0);
        for (ObjectOf<PangoContext>* context : {&Context, &LeftToRight, &RightToLeft})
            *context = MakeContext();
        pango_context_set_base_dir(LeftToRight.get(), PANGO_DIRECTION_LTR);
        pango_context_set_base_dir(RightToLeft.get(), PANGO_DIRECTION_RTL);
    }

    ObjectOf<PangoContext> MakeContext() const
    {
        ObjectOf<PangoContext> context(pango_font_map_create_context(Map.get()));
        cairo_font_options_t* options = cairo_font_options_create();
        cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
        cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
        cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
        pango_cairo_context_set_font_options(context.get(), options);
        cairo_font_options_destroy(options);
        pango_context_set_round_glyph_positions(context.get(), FALSE);
        return context;
    }

    std::shared_ptr<const ResolvedFont> Resolved(const Font& font)
    {
        if (font.Name.size() > LongestName)
            return Resolved(WithoutRestOfName(font));
        if (const auto* known = Fonts.object(font))
            return *known;
        auto made = std::make_shared<ResolvedFont>();
        made->Described = Describe(font);
        const std::unique_ptr<PangoFontMetrics, MetricsDeleter> metrics(
            pango_context_get_metrics(Context.get(), made->Described.get(), nullptr));
        made->Heights.Ascent = PointsOf(pango_font_metrics_get_ascent(metrics.get()));
        made->Heights.Descent = PointsOf(pango_font_metrics_get_descent(metrics.get()));
        Fonts.insert(font, new std::shared_ptr<const ResolvedFont>(made));
        return made;
    }

    std::shared_ptr<const ShapedLine> Shape(PangoContext* context, QStringView text,
                                            const Font& font)
    {
        auto line = std::make_shared<ShapedLine>();
        line->Layout.reset(pango_layout_new(context));
        pango_layout_set_auto_dir(line->Layout.get(), context == Context.get() ? TRUE : FALSE);
        pango_layout_set_font_description(line->Layout.get(), Resolved(font)->Described.get());
        Decorate(line->Layout.get(), font);
        const QByteArray utf8 = text.toUtf8();
        pango_layout_set_text(line->Layout.get(), utf8.constData(), static_cast<int>(utf8.size()));
        PangoRectangle logical;
        pango_layout_get_extents(line->Layout.get(), nullptr, &logical);
        line->Width = PointsOf(logical.width);
        line->Glyphs = GlyphsOf(pango_layout_get_line_readonly(line->Layout.get(), 0));
        return line;
    }
};

TextShaper& TextShaper::Get()
{
    static TextShaper shaper;
    return shaper;
}

TextShaper::TextShaper() : m_caches(std::make_unique<Caches>()) {}

TextShaper::~TextShaper() = default;

FontHeights TextShaper::Heights(const Font& font)
{
    return m_caches->Resolved(font)->Heights;
}

std::shared_ptr<const ShapedLine> TextShaper::Line(const QString& text, const Font& font)
{
    if (font.Name.size() > LongestName)
        return Line(text, WithoutRestOfName(font));
    const LineKey key{font, text};
    if (const auto* kept = m_caches->Lines.object(key))
        return *kept;
    auto line = m_caches->Shape(m_caches->Context.get(), text, font);
    if (text.size() <= LongestKept)
        m_caches->Lines.insert(key, new std::shared_ptr<const ShapedLine>(line));
    return line;
}

std::shared_ptr<const ShapedLine> TextShaper::Stretch(QStringView text, const Font& font,
                                                      bool isRightToLeft)
{
    const auto& context = isRightToLeft ? m_caches->RightToLeft : m_caches->LeftToRight;
    return m_caches->Shape(context.get(), text, font);
}

PairWidths& TextShaper::Pairs(const Font& font)
{
    if (font.Name.size() > LongestName)
        return Pairs(WithoutRestOfName(font));
    PairWidths* pairs = m_caches->Pairs.object(font);
    if (pairs == nullptr) {
        pairs = new PairWidths(font);
        m_caches->Pairs.insert(font, pairs);
    }
    return *pairs;
}

const QStringList& TextShaper::Families()
{
    if (m_caches->Families.isEmpty()) {
        PangoFontFamily** families = nullptr;
        int count = 0;
        pango_font_map_list_families(m_caches->Map.get(), &families, &count);
        for (int i = 0; i < count; ++i)
            m_caches->Families.append(QString::fromUtf8(pango_font_family_get_name(families[i])));
        g_free(families);
    }
    return m_caches->Families;
}

void TakeLinesOfText(const QString& text, const std::function<bool(const QString& line)>& take)
{
    if (std::none_of(text.begin(), text.end(), IsSpecial)) {
        take(text);
        return;
    }
    QString line;
    char32_t before = 0;
    for (qsizetype at = 0; at < text.size(); ++at) {
        char32_t code = text[at].unicode();
        if (text[at].isSurrogate()) {
            const bool isPair =
                text[at].isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate();
            code = isPair ? QChar::surrogateToUcs4(text[at], text[at + 1])
                          : char32_t{QChar::ReplacementCharacter};
            at += isPair ? 1 : 0;
        }
        const bool isSecondHalf = before == U'\r' && code == U'\n';
        if ((code == U'\r' || code == U'\n') && !isSecondHalf) {
            if (!take(line))
                return;
            line.clear();
        } else if (!DrawsNothing(code)) {
            line.append(QChar::fromUcs4(code));
        }
        before = code;
    }
    take(line);
}

} // namespace vantrel
