#pragma once

#include <QString>
#include <cstdint>
#include <hb.h>
#include <memory>
#include <pango/pango.h>
#include <span>
#include <vector>

namespace vantrel {

/// Frees a HarfBuzz face.
struct FaceDeleter
{
    void operator()(hb_face_t* face) const { hb_face_destroy(face); }
};
/// A font face of the font system, independent of its size.
using FaceHandle = std::shared_ptr<hb_face_t>;

/// A glyph at its position, in points from the line's start and above its baseline.
struct PlacedGlyph
{
    std::uint16_t Id = 0;
    double X = 0;
    double Y = 0;
};

/// The glyphs that together represent one piece of a run's text, mostly one glyph for one
/// character.
struct GlyphCluster
{
    qsizetype FirstGlyph = 0;
    qsizetype GlyphCount = 0;
    qsizetype TextBegin = 0;
    qsizetype TextLength = 0;
};

/// A part of a line in one face and one size in points. Its glyphs are ordered from left to right.
struct GlyphRun
{
    FaceHandle Face;
    double Size = 0;
    std::vector<PlacedGlyph> Glyphs;
    QString Text;
    std::vector<GlyphCluster> Clusters;

    std::span<const PlacedGlyph> GlyphsIn(const GlyphCluster& cluster) const
    {
        return std::span(Glyphs).subspan(static_cast<std::size_t>(cluster.FirstGlyph),
                                         static_cast<std::size_t>(cluster.GlyphCount));
    }
    QStringView TextIn(const GlyphCluster& cluster) const
    {
        return QStringView(Text).sliced(cluster.TextBegin, cluster.TextLength);
    }
};

/// An underline or strikethrough, in points like the glyphs; `Y` is its upper edge.
struct LineBar
{
    double X = 0;
    double Y = 0;
    double Width = 0;
    double Height = 0;
};

/// A shaped line as glyphs and bars.
struct GlyphLine
{
    /// Whether the runs and bars describe the line completely. They do not if the font system
    /// slants or emboldens a face, or draws a box for a character that no font has.
    bool IsPlain = true;
    std::vector<GlyphRun> Runs;
    std::vector<LineBar> Bars;
};

/// Collects the glyphs and bars of a shaped line. Never fails.
GlyphLine GlyphsOf(PangoLayoutLine* line);

} // namespace vantrel
