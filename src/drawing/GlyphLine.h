#pragma once

#include <QString>
#include <cstdint>
#include <hb.h>
#include <memory>
#include <pango/pango.h>
#include <span>
#include <vector>

namespace vantrel {

struct FaceDeleter
{
    void operator()(hb_face_t* face) const { hb_face_destroy(face); }
};
/// A font face as the font system has it, one for all its sizes.
using FaceHandle = std::shared_ptr<hb_face_t>;

/// A glyph in its place, in points from the line's start and above its baseline.
struct PlacedGlyph
{
    std::uint16_t Id = 0;
    double X = 0;
    double Y = 0;
};

/// The glyphs that stand for one piece of a run's text together: mostly one for one character.
struct GlyphCluster
{
    qsizetype FirstGlyph = 0;
    qsizetype GlyphCount = 0;
    qsizetype TextBegin = 0;
    qsizetype TextLength = 0;
};

/// A stretch of a line in one face at one size in points, from left to right.
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

/// What underlines or strikes a line, in points as the glyphs; `Y` is its upper edge.
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
    /// Whether these are all of the line. Faces that the font system slants or thickens, and the
    /// boxes that stand for characters no font has, need more than that.
    bool IsPlain = true;
    std::vector<GlyphRun> Runs;
    std::vector<LineBar> Bars;
};

GlyphLine GlyphsOf(PangoLayoutLine* line);

} // namespace vantrel
