#pragma once

#include "drawing/PackedPixels.h"
#include "drawing/Picture.h"
#include <QImageIOHandler>
#include <cairo.h>
#include <memory>
#include <optional>

namespace vantrel {

struct CairoSurfaceDeleter
{
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
};
using CairoSurface = std::unique_ptr<cairo_surface_t, CairoSurfaceDeleter>;

/// A bare JPEG picture that a PDF may take as it is, without what else stood in its file; empty
/// where a picture was none.
struct PlainJpeg
{
    QByteArray Bytes;
    /// One colour component; three otherwise.
    bool IsGrey = false;
};

/// What the renderers keep of a picture: its pixels, decoded once, the same pixels as a surface to
/// draw from, and packed for PDFs, so that nothing is converted from card to card.
struct PictureData
{
    /// @param image  upright, in any format, not null. Fails with `InvalidPicture` where the
    /// renderer cannot take an image of that size.
    explicit PictureData(const QImage& image);
    /// A JPEG that a PDF may take as it is.
    /// @param image  as the file has it, to be turned upright by `toUpright`
    PictureData(const QImage& image, QImageIOHandler::Transformations toUpright, PlainJpeg jpeg);

    /// With what `Packed` may come to hold.
    qint64 BytesHeld() const;
    /// The pixels of `Stored`, packed when they are first asked for.
    const PackedPixels& Packed() const;

    /// As the file has them. Opaque pictures are RGB32, others ARGB32_Premultiplied.
    QImage Stored;
    /// Upright; the same as `Stored` where nothing is turned.
    QImage Pixels;
    int WidthHundredths = 0;
    int HeightHundredths = 0;
    /// Shares its memory with `Stored`.
    CairoSurface Surface;
    /// Where a pixel of `Stored` stands in `Pixels`: so the photo of a turned camera goes into a
    /// PDF as it is, too.
    cairo_matrix_t ToUpright;
    PlainJpeg Jpeg;

private:
    mutable std::optional<PackedPixels> m_packed;
};

} // namespace vantrel
