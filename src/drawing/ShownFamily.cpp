#include "drawing/ShownFamily.h"
#include <memory>
#include <pango/pangocairo.h>

namespace vantrel {

namespace {

struct DescriptionDeleter
{
    void operator()(PangoFontDescription* held) const { pango_font_description_free(held); }
};
using Description = std::unique_ptr<PangoFontDescription, DescriptionDeleter>;

struct ObjectDeleter
{
    void operator()(gpointer object) const { g_object_unref(object); }
};

/// The size does not matter for the family.
constexpr int SomeSize = 10 * PANGO_SCALE;
/// No installed font has a longer name.
constexpr qsizetype LongestName = 1000;

} // namespace

QString ShownFamily(const Font& font)
{
    PangoFontMap* const map = pango_cairo_font_map_get_default();
    const std::unique_ptr<PangoContext, ObjectDeleter> context(pango_font_map_create_context(map));
    const Description wanted(pango_font_description_new());
    pango_font_description_set_family(wanted.get(),
                                      font.Name.left(LongestName).toUtf8().constData());
    pango_font_description_set_size(wanted.get(), SomeSize);
    pango_font_description_set_weight(wanted.get(),
                                      font.Bold ? PANGO_WEIGHT_BOLD : PANGO_WEIGHT_NORMAL);
    pango_font_description_set_style(wanted.get(),
                                     font.Italic ? PANGO_STYLE_ITALIC : PANGO_STYLE_NORMAL);
    const std::unique_ptr<PangoFont, ObjectDeleter> shown(
        pango_font_map_load_font(map, context.get(), wanted.get()));
    if (!shown)
        return {};
    const Description described(pango_font_describe(shown.get()));
    return QString::fromUtf8(pango_font_description_get_family(described.get()));
}

} // namespace vantrel
