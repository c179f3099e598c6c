#include "BareCard.h"
#include <QFile>
#include <cairo-pdf.h>
#include <pango/pangocairo.h>

namespace vantrel::bench {

struct BareCard::Prepared
{
    std::vector<PictureOnCard> Pictures;
    std::vector<PangoFontDescription*> Fonts;
    std::vector<cairo_surface_t*> Surfaces;
    PangoFontMap* Map = pango_cairo_font_map_new();
    PangoContext* Context = nullptr;

    ~Prepared()
    {
        for (PangoFontDescription* font : Fonts)
            pango_font_description_free(font);
        for (cairo_surface_t* surface : Surfaces)
            cairo_surface_destroy(surface);
        g_object_unref(Context);
        g_object_unref(Map);
    }

    void PrepareText(const std::vector<TextOnCard>& places)
    {
        pango_cairo_font_map_set_resolution(PANGO_CAIRO_FONT_MAP(Map), 72);
        Context = pango_font_map_create_context(Map);
        for (const TextOnCard& text : places) {
            PangoFontDescription* font = pango_font_description_new();
            pango_font_description_set_family(font, text.Style.Name.toUtf8().constData());
            pango_font_description_set_size(font, static_cast<int>(text.Style.Size * PANGO_SCALE));
            if (text.Style.Bold)
                pango_font_description_set_weight(font, PANGO_WEIGHT_BOLD);
            Fonts.push_back(font);
        }
    }

    void PreparePictures()
    {
        for (const PictureOnCard& picture : Pictures) {
            const QImage& pixels = picture.Pixels;
            cairo_surface_t* surface = cairo_image_surface_create_for_data(
                const_cast<uchar*>(pixels.constBits()), CAIRO_FORMAT_RGB24, pixels.width(),
                pixels.height(), static_cast<int>(pixels.bytesPerLine()));
            if (!picture.Jpeg.isEmpty()) {
                cairo_surface_set_mime_data(
                    surface, CAIRO_MIME_TYPE_JPEG,
                    reinterpret_cast<const unsigned char*>(picture.Jpeg.constData()),
                    static_cast<unsigned long>(picture.Jpeg.size()), nullptr, nullptr);
            }
            Surfaces.push_back(surface);
        }
    }
};

BareCard::BareCard(const std::vector<TextOnCard>& places, std::vector<PictureOnCard> pictures)
    : m_prepared(std::make_unique<Prepared>())
{
    m_prepared->Pictures = std::move(pictures);
    m_prepared->PrepareText(places);
    m_prepared->PreparePictures();
}

BareCard::~BareCard() = default;

void BareCard::DrawTo(const QString& path, const std::vector<TextOnCard>& texts) const
{
    cairo_surface_t* surface =
        cairo_pdf_surface_create(QFile::encodeName(path).constData(), 153, 243);
    cairo_t* context = cairo_create(surface);
    for (std::size_t i = 0; i < m_prepared->Pictures.size(); ++i) {
        const PictureOnCard& picture = m_prepared->Pictures[i];
        cairo_save(context);
        cairo_translate(context, picture.X / 20, picture.Y / 20);
        cairo_scale(context, picture.Width / 20 / picture.Pixels.width(),
                    picture.Height / 20 / picture.Pixels.height());
        cairo_set_source_surface(context, m_prepared->Surfaces[i], 0, 0);
        cairo_paint(context);
        cairo_restore(context);
    }
    PangoLayout* layout = pango_layout_new(m_prepared->Context);
    cairo_set_source_rgb(context, 0, 0, 0);
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const QByteArray utf8 = texts[i].Text.toUtf8();
        pango_layout_set_font_description(layout, m_prepared->Fonts[i]);
        pango_layout_set_text(layout, utf8.constData(), static_cast<int>(utf8.size()));
        cairo_move_to(context, texts[i].X / 20, texts[i].Y / 20);
        pango_cairo_show_layout(context, layout);
    }
    g_object_unref(layout);
    cairo_destroy(context);
    cairo_surface_finish(surface);
    cairo_surface_destroy(surface);
}

} // namespace vantrel::bench
