#pragma once

#include "drawing/PageCanvas.h"
#include "drawing/pdf/PdfFace.h"
#include <vector>

namespace vantrel {

/// The drawing operators of one page with the fonts and pictures they refer to.
class PdfContent
{
public:
    /// @param pageHeight  in points
    /// @param provided  all faces of the lines that will be added; must outlive the content
    PdfContent(double pageHeight, const PageFaces& provided)
        : m_pageHeight(pageHeight), m_provided(provided)
    {}

    /// Append the operators of a line or a picture.
    void Add(const PlacedLine& placed);
    void Add(const PlacedPicture& placed);

    const QByteArray& Operators() const { return m_operators; }
    /// Named F1, F2 ... and I1, I2 ... in this order.
    const std::vector<std::shared_ptr<PdfFace>>& Faces() const { return m_faces; }
    const std::vector<Picture>& Pictures() const { return m_pictures; }

private:
    void AddRun(const GlyphRun& run, double x, double baseline);

    double m_pageHeight;
    const PageFaces& m_provided;
    QByteArray m_operators;
    std::vector<std::shared_ptr<PdfFace>> m_faces;
    std::vector<Picture> m_pictures;
};

} // namespace vantrel
