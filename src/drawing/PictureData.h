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
/// pixels for PDFs. Each is made once, so nothing is converted again for the next card, and a JPEG
/// that only goes into PDFs is never decoded.
struct PictureData
{
    /// @param image  upright, in any format, not null. Fails with `InvalidPicture` if the image is
    /// too large for the renderer.
    explicit PictureData(const QImage& image);
    /// A JPEG that a PDF can embed unchanged and that can be decoded. Fails with `InvalidPicture`
    /// if the image is too large for the renderer.
    /// @param stored  its size as stored in the file; `toUpright` makes it upright
    PictureData(QSize stored, QImageIOHandler::Transformations toUpright, PlainJpeg jpeg);

    /// Size in memory in bytes, including everything that is made on a first call.
    qint64 BytesHeld() const;

    /// Sizes in pixels, as stored in the file and upright.
    QSize StoredSize() const { return m_storedSize; }
    QSize UprightSize() const;
    /// The pixels as stored in the file: RGB32 if all are opaque, otherwise ARGB32_Premultiplied.
    /// This and the following are made on the first call and fail with `InvalidPicture` if a JPEG
    /// cannot be decoded.
    const QImage& Stored() const { return Decoded().Stored; }
    /// The upright pixels; the same as `Stored` if the file needs no rotation.
    const QImage& Pixels() const { return Decoded().Pixels; }
    /// The upright picture's own size in hundredths of a millimetre.
    QSize Hundredths() const { return Decoded().Hundredths; }
    /// Shares its memory with `Stored`.
    cairo_surface_t* Surface() const { return Decoded().Surface.get(); }

    /// The compressed pixels of `Stored`, made on the first call.
    const PackedPixels& Packed() const;

    /// Is the same for pictures that look the same in a PDF, and differs for all others. Made on
    /// the first call, in a time linear in the size of the picture.
    const QByteArray& ContentKey() const;

    /// Maps a pixel of `Stored` to its position in `Pixels`, so that a PDF can embed a rotated JPEG
    /// unchanged.
    cairo_matrix_t ToUpright;
    PlainJpeg Jpeg;

private:
    struct DecodedForms
    {
        QImage Stored;
        QImage Pixels;
        QSize Hundredths;
        CairoSurface Surface;
    };

    DecodedForms FormsOf(const QImage& image) const;
    const DecodedForms& Decoded() const;

    QSize m_storedSize;
    QImageIOHandler::Transformations m_toUpright;
    mutable std::optional<DecodedForms> m_decoded;
    mutable std::optional<PackedPixels> m_packed;
    mutable QByteArray m_contentKey;
};

} // namespace vantrel
