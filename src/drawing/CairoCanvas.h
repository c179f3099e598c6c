#pragma once

#include "drawing/PageCanvas.h"
#include "drawing/PictureData.h"
#include <QPoint>
#include <vector>

namespace vantrel {

/// A page drawn by cairo: for the screen, and for PDFs whose fonts a `PdfFace` cannot hold.
class CairoCanvas : public PageCanvas
{
public:
    /// @param image  of format ARGB32_Premultiplied or RGB32; must outlive the canvas
    /// @param corner  the part of the page that the image shows begins there, in its pixels
    static std::unique_ptr<CairoCanvas> OnImage(QImage& image, double pixelsPerPoint,
                                                QPoint corner = {});
    /// How a PDF's objects are written; `Plain` ones can be found by the table of their offsets.
    enum class Objects { AsCairoLikes, Plain };
    /// @param width,height  in points
    static std::unique_ptr<CairoCanvas> OnPdf(double width, double height, Sink sink,
                                              Objects objects = Objects::AsCairoLikes);
    ~CairoCanvas() override;

    void Set(const PlacedLine& placed) override;
    void Set(const PlacedPicture& placed) override;
    void Set(const PlacedBoxes& placed) override;
    void Finish() override;

private:
    struct ContextDeleter
    {
        void operator()(cairo_t* context) const { cairo_destroy(context); }
    };

    explicit CairoCanvas(double width) : m_width(width) {}
    double Width() const override { return m_width; }
    bool IsPdf() const { return m_sink != nullptr; }

    double m_width;
    Sink m_sink;
    /// A page refers to its pictures until it is finished.
    std::vector<Picture> m_painted;
    CairoSurface m_surface;
    std::unique_ptr<cairo_t, ContextDeleter> m_context;
};

} // namespace vantrel
