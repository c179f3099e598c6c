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
    /// @param provided  all faces of the lines that are added; must outlive the content
    PdfContent(double pageHeight, const PageFaces& provided)
        : m_pageHeight(pageHeight), m_provided(provided)
    {}

    /// Append the operators of a line, a picture or filled boxes.
    void Add(const PlacedLine& placed);
    void Add(const PlacedPicture& placed);
    void Add(const PlacedBoxes& placed);

    /// Appends the operators that draw a form with its origin at this place, in points from the top
    /// left corner.
    /// @param form  its object number
    void AddForm(int form, double x, double y);

    const QByteArray& Operators() const { return m_operators; }
    /// Named F1, F2 ..., I1, I2 ... and X1, X2 ... in this order.
    const std::vector<std::shared_ptr<PdfFace>>& Faces() const { return m_faces; }
    const std::vector<Picture>& Pictures() const { return m_pictures; }
    const std::vector<int>& Forms() const { return m_forms; }

private:
    void AddColor(ColorValue color);
    void AddRoundedBox(const FilledBox& box);
    void AddRun(const GlyphRun& run, double x, double baseline);

    double m_pageHeight;
    const PageFaces& m_provided;
    QByteArray m_operators;
    std::vector<std::shared_ptr<PdfFace>> m_faces;
    std::vector<Picture> m_pictures;
    std::vector<int> m_forms;
};

} // namespace vantrel
