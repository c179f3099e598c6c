#pragma once

#include "drawing/GlyphLine.h"
#include <QByteArray>
#include <map>

namespace vantrel {

/// The texts that glyphs stand for.
using GlyphTexts = std::map<std::uint16_t, QString>;

/// A font face cut down to some of its glyphs and packed, as PDFs hold it.
struct PackedFace
{
    /// With the tag that tells one cut of a face from another.
    QByteArray Name;
    /// The TrueType program, packed, and its length before.
    QByteArray Program;
    qsizetype ProgramLength = 0;
    /// The array of widths, and the packed map from glyphs to characters.
    QByteArray Widths;
    QByteArray ToUnicode;
};

/// A TrueType face as it goes from card to card. The glyphs that came stay, so that after some
/// cards nothing is cut and packed any more: digits and letters come again. A cut that grew large
/// is given up for a new one of what is needed now. Cuts keep the face's own glyph numbers.
class PdfFace
{
public:
    /// Lengths in thousandths of the font's size; the box is left, bottom, right, top.
    struct Measures
    {
        int Box[4] = {};
        double Ascent = 0;
        double Descent = 0;
        double SlantAngle = 0;
    };

    explicit PdfFace(FaceHandle face);

    const Measures& Sizes() const { return m_sizes; }
    bool Has(std::uint16_t glyph) const { return m_glyphs.contains(glyph); }
    /// Cuts and packs the face anew unless it has all these.
    /// @return false where it is more than plain outlines, as coloured and variable faces and those
    /// of PostScript are, or cannot be cut
    bool Provide(const GlyphTexts& glyphs);
    /// The text that a provided glyph stands for in all cards of this cut.
    const QString& TextOf(std::uint16_t glyph) const { return m_glyphs.at(glyph).Text; }
    /// The advance of a provided glyph, in thousandths of the font's size.
    double AdvanceOf(std::uint16_t glyph) const { return m_glyphs.at(glyph).Advance; }
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

    void Add(const GlyphTexts& glyphs);
    bool Pack();
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

/// The face as the cards of this process hold it, for the interface thread. A cache, not a state:
/// many other faces may drive it out, so a page keeps what it has.
std::shared_ptr<PdfFace> PdfFaceOf(const FaceHandle& face);

/// The faces of one page, each provided with all the glyphs of the page.
using PageFaces = std::map<FaceHandle, std::shared_ptr<PdfFace>>;

} // namespace vantrel
