#pragma once

#include <QString>
#include <cstdint>
#include <hb.h>
#include <memory>
#include <pango/pango.h>
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

/// The glyphs that stand for one piece of the text: mostly one for one character.
struct GlyphCluster
{
    std::vector<PlacedGlyph> Glyphs;
    QString Text;
};

/// A stretch of a line in one face at one size in points, from left to right.
struct GlyphRun
{
    FaceHandle Face;
    double Size = 0;
    std::vector<GlyphCluster> Clusters;
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
    /// Whether these are all of the line, each a plain outline of a TrueType face. Coloured,
    /// slanted or thickened faces, and the boxes that stand for characters no font has, need more
    /// than that.
    bool IsPlain = true;
    std::vector<GlyphRun> Runs;
    std::vector<LineBar> Bars;
};

GlyphLine GlyphsOf(PangoLayoutLine* line);

} // namespace vantrel
