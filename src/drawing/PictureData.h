#pragma once

#include "drawing/PackedPixels.h"
#include "drawing/Picture.h"
#include <QImageIOHandler>
#include <cairo.h>
#include <memory>
#include <optional>

namespace vantrel {

/// Frees a cairo surface.
struct CairoSurfaceDeleter
{
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
};
using CairoSurface = std::unique_ptr<cairo_surface_t, CairoSurfaceDeleter>;

/// A JPEG picture, stripped by `BareJpeg`, that a PDF can embed unchanged; empty for other
/// pictures.
struct PlainJpeg
{
    QByteArray Bytes;
    /// True for one colour component, false for three.
    bool IsGrey = false;
};

/// The forms of a picture that the renderers need: decoded pixels, a cairo surface and compressed
/// pixels for PDFs. Each is made once, so nothing is converted again for the next card.
struct PictureData
{
    /// @param image  upright, in any format, not null. Fails with `InvalidPicture` if the image is
    /// too large for the renderer.
    explicit PictureData(const QImage& image);
    /// A JPEG that a PDF can embed unchanged. Fails with `InvalidPicture` if the image is too large
    /// for the renderer.
    /// @param image  as stored in the file; `toUpright` makes it upright
    PictureData(const QImage& image, QImageIOHandler::Transformations toUpright, PlainJpeg jpeg);

    /// Size in memory in bytes, including the largest possible result of `Packed`.
    qint64 BytesHeld() const;
    /// The compressed pixels of `Stored`, made on the first call.
    const PackedPixels& Packed() const;

    /// Is the same for pictures that look the same in a PDF, and differs for all others. Made on
    /// the first call, in a time linear in the size of the picture.
    const QByteArray& ContentKey() const;

    /// The pixels as stored in the file: RGB32 if all are opaque, otherwise ARGB32_Premultiplied.
    QImage Stored;
    /// The upright pixels; the same as `Stored` if the file needs no rotation.
    QImage Pixels;
    int WidthHundredths = 0;
    int HeightHundredths = 0;
    /// Shares its memory with `Stored`.
    CairoSurface Surface;
    /// Maps a pixel of `Stored` to its position in `Pixels`, so that a PDF can embed a rotated JPEG
    /// unchanged.
    cairo_matrix_t ToUpright;
    PlainJpeg Jpeg;

private:
    mutable std::optional<PackedPixels> m_packed;
    mutable QByteArray m_contentKey;
};

} // namespace vantrel
