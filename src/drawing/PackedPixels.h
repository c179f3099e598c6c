#pragma once

#include <QByteArray>

class QImage;

namespace vantrel {

/// The compressed pixels of a picture for a PDF: three colour bytes for each pixel, and one opacity
/// byte unless all pixels are opaque.
struct PackedPixels
{
    QByteArray Colors;
    QByteArray Opacity;
};

/// Compresses the pixels of an image. Never fails.
PackedPixels PackPixels(const QImage& image);

} // namespace vantrel
