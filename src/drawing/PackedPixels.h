#pragma once

#include <QByteArray>

class QImage;

namespace vantrel {

/// The pixels of a picture as PDFs hold them, packed: three bytes of colour for each, and one of
/// opacity where not all are opaque.
struct PackedPixels
{
    QByteArray Colors;
    QByteArray Opacity;
};

PackedPixels PackPixels(const QImage& image);

} // namespace vantrel
