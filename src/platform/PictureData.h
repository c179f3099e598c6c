#pragma once

#include "platform/Picture.h"
#include <cairo.h>
#include <memory>

namespace vantrel {

struct CairoSurfaceDeleter
{
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
};
using CairoSurface = std::unique_ptr<cairo_surface_t, CairoSurfaceDeleter>;

/// What the renderer keeps of a picture: its pixels, decoded once, and the same pixels as a surface
/// to draw from, so that nothing is converted from card to card.
struct PictureData
{
    /// @param image  in any format, not null
    /// @param jpegBytes  the file these pixels came from where a PDF may take it as it is, or empty
    /// Fails with `InvalidPicture` where the renderer cannot take an image of that size.
    PictureData(const QImage& image, const QByteArray& jpegBytes);

    /// Opaque pictures are RGB32, others ARGB32_Premultiplied.
    QImage Pixels;
    int WidthHundredths = 0;
    int HeightHundredths = 0;
    /// Shares its memory with `Pixels`.
    CairoSurface Surface;
};

} // namespace vantrel
