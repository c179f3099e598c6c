#include "drawing/PackedPixels.h"
#include "drawing/pdf/PdfSyntax.h"
#include <QImage>

namespace vantrel {

namespace {

/// Copies the lines without the padding between them.
QByteArray LinesOf(const QImage& image, qsizetype bytesOfLine)
{
    QByteArray lines;
    lines.reserve(bytesOfLine * image.height());
    for (int y = 0; y < image.height(); ++y)
        lines.append(reinterpret_cast<const char*>(image.constScanLine(y)), bytesOfLine);
    return lines;
}

} // namespace

PackedPixels PackPixels(const QImage& image)
{
    PackedPixels packed;
    packed.Colors = PackBytes(
        LinesOf(image.convertToFormat(QImage::Format_RGB888), qsizetype{3} * image.width()));
    if (image.hasAlphaChannel())
        packed.Opacity =
            PackBytes(LinesOf(image.convertToFormat(QImage::Format_Alpha8), image.width()));
    return packed;
}

} // namespace vantrel
