#pragma once

#include "drawing/pdf/PdfFace.h"
#include <map>
#include <vector>

namespace vantrel {

class PdfFile;

/// The fonts of a document of many pages, each with the glyphs of all pages. Their objects are
/// numbered at their first use and written at the end.
class BookFonts
{
public:
    explicit BookFonts(PdfFile& file) : m_file(file) {}

    /// Adds the glyphs of a line. @return false if a font of the line cannot be embedded; the line
    /// must then be drawn in another way
    bool Take(const GlyphLine& line);
    /// The faces of all lines taken.
    const PageFaces& Faces() const { return m_faces; }
    /// The object number of a face.
    int NumberOf(const PdfFace& face) const { return m_numbers.at(&face); }
    /// Writes all fonts. Fails with `PrinterError` if one of them cannot be cut to its glyphs.
    void Write();

private:
    bool CanEmbed(const GlyphRun& run);

    PdfFile& m_file;
    PageFaces m_faces;
    /// Whether a face can be embedded, for all faces seen.
    std::map<FaceHandle, bool> m_canEmbed;
    std::map<const PdfFace*, int> m_numbers;
};

} // namespace vantrel
