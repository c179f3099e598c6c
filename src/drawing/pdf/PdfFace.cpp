#include "drawing/pdf/PdfFace.h"
#include "drawing/pdf/PdfSyntax.h"
#include <QCache>
#include <QtEndian>
#include <algorithm>
#include <hb-ot.h>
#include <hb-subset.h>
#include <utility>

namespace vantrel {

namespace {

constexpr int FacesKept = 64;
/// Enough for the characters of one European language with digits and signs.
constexpr std::size_t GlyphsKept = 160;
/// Units per thousandth of the font size in which advances are read, so that rounding is invisible.
constexpr int Fineness = 1000;

struct BlobDeleter
{
    void operator()(hb_blob_t* blob) const { hb_blob_destroy(blob); }
};
using Blob = std::unique_ptr<hb_blob_t, BlobDeleter>;

struct InputDeleter
{
    void operator()(hb_subset_input_t* input) const { hb_subset_input_destroy(input); }
};
using SubsetInput = std::unique_ptr<hb_subset_input_t, InputDeleter>;

/// @return a view that lives as long as the blob
QByteArrayView BytesOf(hb_blob_t* blob)
{
    unsigned int length = 0;
    const char* bytes = hb_blob_get_data(blob, &length);
    return {bytes, static_cast<qsizetype>(length)};
}

/// The name of a face in a PDF: the letters, digits and hyphens of its own name.
QByteArray PostScriptName(hb_face_t* face)
{
    char told[128];
    unsigned int size = sizeof told;
    hb_ot_name_get_utf8(face, HB_OT_NAME_ID_POSTSCRIPT_NAME, HB_LANGUAGE_INVALID, &size, told);
    QByteArray name;
    for (const char* at = told; *at != '\0'; ++at) {
        const bool isLetter = (*at >= 'A' && *at <= 'Z') || (*at >= 'a' && *at <= 'z');
        if (isLetter || (*at >= '0' && *at <= '9') || *at == '-')
            name.append(*at);
    }
    return name.isEmpty() ? QByteArrayLiteral("Font") : name;
}

/// Six capital letters and a plus sign; equal subsets get equal tags.
QByteArray TagOf(QByteArrayView program)
{
    std::size_t rest = qHashBits(program.data(), static_cast<std::size_t>(program.size()), 0);
    QByteArray tag;
    for (int i = 0; i < 6; ++i) {
        tag.append(static_cast<char>('A' + rest % 26));
        rest /= 26;
    }
    return tag + '+';
}

PdfFace::Measures MeasuresOf(hb_face_t* face, hb_font_t* font)
{
    PdfFace::Measures sizes;
    hb_font_extents_t extents = {};
    hb_font_get_h_extents(font, &extents);
    sizes.Ascent = static_cast<double>(extents.ascender) / Fineness;
    sizes.Descent = static_cast<double>(extents.descender) / Fineness;
    sizes.SlantAngle = static_cast<double>(hb_style_get_value(font, HB_STYLE_TAG_SLANT_ANGLE));
    const Blob head(hb_face_reference_table(face, HB_TAG('h', 'e', 'a', 'd')));
    const QByteArrayView bytes = BytesOf(head.get());
    constexpr qsizetype boxAt = 36;
    const auto unitsPerEm = static_cast<int>(hb_face_get_upem(face));
    for (qsizetype i = 0; i < 4 && boxAt + 2 * i + 2 <= bytes.size(); ++i)
        sizes.Box[i] = qFromBigEndian<qint16>(bytes.data() + boxAt + 2 * i) * 1000 / unitsPerEm;
    return sizes;
}

/// Whether a PDF reader needs the table in a face whose glyphs are addressed by number.
bool BelongsInPdf(hb_tag_t tag)
{
    switch (tag) {
    case HB_TAG('g', 'l', 'y', 'f'):
    case HB_TAG('h', 'e', 'a', 'd'):
    case HB_TAG('h', 'h', 'e', 'a'):
    case HB_TAG('h', 'm', 't', 'x'):
    case HB_TAG('l', 'o', 'c', 'a'):
    case HB_TAG('m', 'a', 'x', 'p'):
        return true;
    default:
        return false;
    }
}

bool HasTable(hb_face_t* face, hb_tag_t tag)
{
    hb_blob_t* table = hb_face_reference_table(face, tag);
    const bool has = hb_blob_get_length(table) > 0;
    hb_blob_destroy(table);
    return has;
}

bool HasPlainOutlines(hb_face_t* face)
{
    return HasTable(face, HB_TAG('g', 'l', 'y', 'f')) && hb_ot_var_has_data(face) == 0 &&
           hb_ot_color_has_layers(face) == 0 && hb_ot_color_has_png(face) == 0 &&
           hb_ot_color_has_svg(face) == 0;
}

void DropOtherTables(hb_subset_input_t* input, hb_face_t* face)
{
    hb_set_t* dropped = hb_subset_input_set(input, HB_SUBSET_SETS_DROP_TABLE_TAG);
    hb_tag_t tags[32];
    unsigned int count = 0;
    for (unsigned int from = 0;; from += count) {
        count = sizeof tags / sizeof tags[0];
        hb_face_get_table_tags(face, from, &count, tags);
        if (count == 0)
            return;
        for (unsigned int i = 0; i < count; ++i) {
            if (!BelongsInPdf(tags[i]))
                hb_set_add(dropped, tags[i]);
        }
    }
}

} // namespace

void CollectTexts(const GlyphRun& run, GlyphTexts& texts)
{
    for (const GlyphCluster& cluster : run.Clusters) {
        const bool isOne = cluster.GlyphCount == 1;
        for (const PlacedGlyph& glyph : run.GlyphsIn(cluster))
            texts.try_emplace(glyph.Id, isOne ? run.TextIn(cluster).toString() : QString());
    }
}

PdfFace::PdfFace(FaceHandle face)
    : m_face(std::move(face)), m_font(hb_font_create(m_face.get())),
      m_name(PostScriptName(m_face.get())), m_isPlain(HasPlainOutlines(m_face.get()))
{
    hb_font_set_scale(m_font.get(), 1000 * Fineness, 1000 * Fineness);
    m_sizes = MeasuresOf(m_face.get(), m_font.get());
}

bool PdfFace::HasAll(const GlyphRun& run) const
{
    return std::all_of(run.Glyphs.begin(), run.Glyphs.end(),
                       [this](const PlacedGlyph& glyph) { return Has(glyph.Id); });
}

bool PdfFace::Provide(const GlyphTexts& glyphs)
{
    if (!m_isPlain)
        return false;
    const std::size_t before = m_glyphs.size();
    Add(glyphs);
    if (m_glyphs.size() == before)
        return true;
    if (m_glyphs.size() > GlyphsKept) {
        m_glyphs.clear();
        Add(glyphs);
    }
    if (Pack())
        return true;
    m_glyphs.clear();
    return false;
}

void PdfFace::Add(const GlyphTexts& glyphs)
{
    for (const auto& [glyph, text] : glyphs) {
        const hb_position_t advance = hb_font_get_glyph_h_advance(m_font.get(), glyph);
        m_glyphs.try_emplace(glyph, Glyph{text, static_cast<double>(advance) / Fineness});
    }
}

bool PdfFace::Pack()
{
    const SubsetInput input(hb_subset_input_create_or_fail());
    if (!input)
        return false;
    // Unhinted, as on the screen; with hints each printer would draw the text differently.
    hb_subset_input_set_flags(input.get(),
                              HB_SUBSET_FLAGS_RETAIN_GIDS | HB_SUBSET_FLAGS_NO_HINTING);
    DropOtherTables(input.get(), m_face.get());
    hb_set_t* wanted = hb_subset_input_glyph_set(input.get());
    for (const auto& [glyph, kept] : m_glyphs)
        hb_set_add(wanted, glyph);
    const std::unique_ptr<hb_face_t, FaceDeleter> cut(hb_subset_or_fail(m_face.get(), input.get()));
    if (!cut)
        return false;
    const Blob blob(hb_face_reference_blob(cut.get()));
    const QByteArrayView program = BytesOf(blob.get());
    m_packed.Name = TagOf(program) + m_name;
    m_packed.Program = PackBytes(program);
    m_packed.ProgramLength = program.size();
    m_packed.Widths = Widths();
    m_packed.ToUnicode = PackBytes(ToUnicode());
    return true;
}

QByteArray PdfFace::Widths() const
{
    QByteArray widths("[");
    for (const auto& [glyph, kept] : m_glyphs) {
        AppendNumber(widths, glyph);
        widths += '[';
        AppendNumber(widths, kept.Advance);
        widths += ']';
    }
    return widths + ']';
}

QByteArray PdfFace::ToUnicode() const
{
    QByteArray map("/CIDInit/ProcSet findresource begin 12 dict begin begincmap\n"
                   "/CIDSystemInfo<</Registry(Adobe)/Ordering(UCS)/Supplement 0>>def\n"
                   "/CMapName/Adobe-Identity-UCS def/CMapType 2 def\n"
                   "1 begincodespacerange<0000><FFFF>endcodespacerange\n");
    for (const auto& [glyph, kept] : m_glyphs) {
        if (kept.Text.isEmpty())
            continue;
        map += "1 beginbfchar<";
        AppendHex(map, glyph);
        map += "><";
        AppendHex(map, kept.Text);
        map += ">endbfchar\n";
    }
    return map + "endcmap CMapName currentdict/CMap defineresource pop end end\n";
}

std::shared_ptr<PdfFace> PdfFaceOf(const FaceHandle& face)
{
    static QCache<hb_face_t*, std::shared_ptr<PdfFace>> cache(FacesKept);
    if (const auto* known = cache.object(face.get()))
        return *known;
    auto made = std::make_shared<PdfFace>(face);
    cache.insert(face.get(), new std::shared_ptr<PdfFace>(made));
    return made;
}

} // namespace vantrel
