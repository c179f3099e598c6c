#pragma once

#include "drawing/GlyphLine.h"
#include <QByteArray>
#include <map>

namespace vantrel {

/// The text that each glyph represents.
using GlyphTexts = std::map<std::uint16_t, QString>;
/// Adds the glyphs of a run. A glyph that represents a text only together with others gets an empty
/// one.
void CollectTexts(const GlyphRun& run, GlyphTexts& texts);

/// A compressed subset of a font face, as embedded in PDFs.
struct PackedFace
{
    /// Begins with the tag that distinguishes subsets of the same face.
    QByteArray Name;
    /// The compressed TrueType program, and its length before compression in bytes.
    QByteArray Program;
    qsizetype ProgramLength = 0;
    /// The array of widths, and the compressed map from glyphs to characters.
    QByteArray Widths;
    QByteArray ToUnicode;
};

/// A TrueType face and its subset for PDFs. The subset keeps the glyphs of earlier cards, so that
/// after some cards it contains all letters and digits in use and is not built again. A subset that
/// has grown large is replaced by one with only the glyphs needed now. Subsets keep the face's own
/// glyph numbers.
class PdfFace
{
public:
    /// Lengths in thousandths of the font size; the box is left, bottom, right, top.
    struct Measures
    {
        int Box[4] = {};
        double Ascent = 0;
        double Descent = 0;
        double SlantAngle = 0;
    };

    explicit PdfFace(FaceHandle face);

    /// Measures of the whole face.
    const Measures& Sizes() const { return m_sizes; }
    bool Has(std::uint16_t glyph) const { return m_glyphs.contains(glyph); }
    bool HasAll(const GlyphRun& run) const;
    /// Adds glyphs; the subset is as before until `Pack`.
    void Add(const GlyphTexts& glyphs);
    /// Builds the subset of all glyphs added.
    /// @return false if the face cannot be subset
    bool Pack();
    /// Whether the face is plain TrueType outlines; colour, variable and PostScript faces are not.
    bool IsPlain() const { return m_isPlain; }
    /// Builds a new subset unless the present one has all these glyphs.
    /// @return false if the face is not plain or cannot be subset
    bool Provide(const GlyphTexts& glyphs);
    /// The text that a provided glyph represents in this subset.
    const QString& TextOf(std::uint16_t glyph) const { return m_glyphs.at(glyph).Text; }
    /// The advance of a provided glyph, in thousandths of the font size.
    double AdvanceOf(std::uint16_t glyph) const { return m_glyphs.at(glyph).Advance; }
    /// The present subset; valid after `Provide` or `Pack`.
    const PackedFace& Packed() const { return m_packed; }

private:
    struct Glyph
    {
        QString Text;
        double Advance = 0;
    };
    struct FontDeleter
    {
        void operator()(hb_font_t* font) const { hb_font_destroy(font); }
    };

    QByteArray Widths() const;
    QByteArray ToUnicode() const;

    FaceHandle m_face;
    std::unique_ptr<hb_font_t, FontDeleter> m_font;
    QByteArray m_name;
    bool m_isPlain;
    Measures m_sizes;
    std::map<std::uint16_t, Glyph> m_glyphs;
    PackedFace m_packed;
};

/// The cached subset of a face; for the main thread. Other faces may displace it from the cache, so
/// a page must hold the pointer while it needs it.
std::shared_ptr<PdfFace> PdfFaceOf(const FaceHandle& face);

/// The faces of one page, each provided with all the glyphs of the page.
using PageFaces = std::map<FaceHandle, std::shared_ptr<PdfFace>>;

} // namespace vantrel
