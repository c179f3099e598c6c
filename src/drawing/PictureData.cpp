#include "drawing/PictureData.h"
#include "base/Failure.h"
#include "base/Twips.h"
#include <QCryptographicHash>
#include <QTransform>
#include <algorithm>
#include <cmath>
#include <utility>

namespace vantrel {

namespace {

/// Resolution assumed for a picture file that specifies none.
constexpr double DefaultDotsPerInch = 96.0;
constexpr double HundredthsPerMetre = 100000.0;
/// Cairo draws no larger picture.
constexpr int LongestSide = 32767;

[[noreturn]] void FailInvalid()
{
    throw Failure(FailureNumber::InvalidPicture, QStringLiteral("Invalid picture"));
}

bool IsOpaque(const QImage& premultiplied)
{
    for (int y = 0; y < premultiplied.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(premultiplied.constScanLine(y));
        if (!std::all_of(line, line + premultiplied.width(),
                         [](QRgb pixel) { return qAlpha(pixel) == 0xFF; }))
            return false;
    }
    return true;
}

/// Drops an alpha channel that is fully opaque; it would add a second image to every PDF.
QImage RendererPixels(const QImage& image)
{
    if (!image.hasAlphaChannel())
        return image.convertToFormat(QImage::Format_RGB32);
    QImage pixels = image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    return IsOpaque(pixels) ? pixels.convertToFormat(QImage::Format_RGB32) : pixels;
}

/// Qt gives an image without a resolution that of the screen, which is not a property of the
/// picture and differs between stations.
int HundredthsOf(int pixels, int dotsPerMetre, int dotsPerMetreOfScreen)
{
    if (dotsPerMetre <= 0 || dotsPerMetre == dotsPerMetreOfScreen)
        return static_cast<int>(std::lround(pixels * HundredthsPerInch / DefaultDotsPerInch));
    return static_cast<int>(std::lround(pixels * HundredthsPerMetre / dotsPerMetre));
}

void AttachJpeg(cairo_surface_t* surface, const QByteArray& bytes)
{
    auto kept = std::make_unique<QByteArray>(bytes);
    const auto* data = reinterpret_cast<const unsigned char*>(kept->constData());
    const auto size = static_cast<unsigned long>(kept->size());
    const auto release = [](void* held) { delete static_cast<QByteArray*>(held); };
    if (cairo_surface_set_mime_data(surface, CAIRO_MIME_TYPE_JPEG, data, size, release,
                                    kept.get()) == CAIRO_STATUS_SUCCESS)
        static_cast<void>(kept.release());
}

bool IsMirrored(QImageIOHandler::Transformations toUpright)
{
    return toUpright.testFlag(QImageIOHandler::TransformationMirror);
}

bool IsFlipped(QImageIOHandler::Transformations toUpright)
{
    return toUpright.testFlag(QImageIOHandler::TransformationFlip);
}

bool IsTurned(QImageIOHandler::Transformations toUpright)
{
    return toUpright.testFlag(QImageIOHandler::TransformationRotate90);
}

/// Mirrors and flips first, then rotates clockwise.
QImage Upright(const QImage& stored, QImageIOHandler::Transformations toUpright)
{
    if (toUpright == QImageIOHandler::TransformationNone)
        return stored;
    const QImage mirrored = stored.mirrored(IsMirrored(toUpright), IsFlipped(toUpright));
    return IsTurned(toUpright) ? mirrored.transformed(QTransform().rotate(90)) : mirrored;
}

/// The same transformation as a matrix.
cairo_matrix_t UprightMatrix(QSize stored, QImageIOHandler::Transformations toUpright)
{
    const double stepX = IsMirrored(toUpright) ? -1 : 1;
    const double stepY = IsFlipped(toUpright) ? -1 : 1;
    const double startX = IsMirrored(toUpright) ? stored.width() : 0;
    const double startY = IsFlipped(toUpright) ? stored.height() : 0;
    cairo_matrix_t matrix;
    if (IsTurned(toUpright))
        cairo_matrix_init(&matrix, 0, stepX, -stepY, 0, stored.height() - startY, startX);
    else
        cairo_matrix_init(&matrix, stepX, 0, 0, stepY, startX, startY);
    return matrix;
}

} // namespace

PictureData::PictureData(const QImage& image)
    : PictureData(image.size(), QImageIOHandler::TransformationNone, PlainJpeg())
{
    m_decoded = FormsOf(image);
}

PictureData::PictureData(QSize stored, QImageIOHandler::Transformations toUpright, PlainJpeg jpeg)
    : ToUpright(UprightMatrix(stored, toUpright)), Jpeg(std::move(jpeg)), m_storedSize(stored),
      m_toUpright(toUpright)
{
    if (stored.isEmpty() || stored.width() > LongestSide || stored.height() > LongestSide)
        FailInvalid();
}

QSize PictureData::UprightSize() const
{
    return IsTurned(m_toUpright) ? m_storedSize.transposed() : m_storedSize;
}

PictureData::DecodedForms PictureData::FormsOf(const QImage& image) const
{
    DecodedForms forms;
    forms.Stored = RendererPixels(image);
    forms.Pixels = Upright(forms.Stored, m_toUpright);
    const QImage untold(1, 1, QImage::Format_RGB32);
    forms.Hundredths = {
        HundredthsOf(image.width(), image.dotsPerMeterX(), untold.dotsPerMeterX()),
        HundredthsOf(image.height(), image.dotsPerMeterY(), untold.dotsPerMeterY())};
    if (IsTurned(m_toUpright))
        forms.Hundredths.transpose();
    const cairo_format_t format =
        forms.Stored.format() == QImage::Format_RGB32 ? CAIRO_FORMAT_RGB24 : CAIRO_FORMAT_ARGB32;
    // Cairo never writes to a source surface, so the pixels can stay shared.
    forms.Surface.reset(cairo_image_surface_create_for_data(
        const_cast<uchar*>(forms.Stored.constBits()), format, forms.Stored.width(),
        forms.Stored.height(), static_cast<int>(forms.Stored.bytesPerLine())));
    if (cairo_surface_status(forms.Surface.get()) != CAIRO_STATUS_SUCCESS)
        FailInvalid();
    if (!Jpeg.Bytes.isEmpty())
        AttachJpeg(forms.Surface.get(), Jpeg.Bytes);
    return forms;
}

const PictureData::DecodedForms& PictureData::Decoded() const
{
    if (!m_decoded) {
        const QImage image = QImage::fromData(Jpeg.Bytes, "jpeg");
        if (image.size() != m_storedSize)
            FailInvalid();
        m_decoded = FormsOf(image);
    }
    return *m_decoded;
}

qint64 PictureData::BytesHeld() const
{
    const qint64 pixels = qint64{4} * m_storedSize.width() * m_storedSize.height();
    const bool isShared = m_toUpright == QImageIOHandler::TransformationNone;
    return pixels * (isShared ? 1 : 2) + (Jpeg.Bytes.isEmpty() ? pixels : Jpeg.Bytes.size());
}

const PackedPixels& PictureData::Packed() const
{
    if (!m_packed)
        m_packed = PackPixels(Stored());
    return *m_packed;
}

const QByteArray& PictureData::ContentKey() const
{
    if (m_contentKey.isEmpty()) {
        // Photos may come from anybody, so nobody may be able to make two of one key.
        QCryptographicHash hash(QCryptographicHash::Blake2b_256);
        if (!Jpeg.Bytes.isEmpty()) {
            hash.addData(Jpeg.Bytes);
        } else {
            const QImage& stored = Stored();
            const QByteArray shape = QByteArray::number(stored.width()) + 'x' +
                                     QByteArray::number(stored.height()) +
                                     (stored.hasAlphaChannel() ? 'a' : 'o');
            hash.addData(shape);
            for (int y = 0; y < stored.height(); ++y)
                hash.addData(
                    QByteArrayView(stored.constScanLine(y), qsizetype{4} * stored.width()));
        }
        m_contentKey = hash.result();
    }
    return m_contentKey;
}

} // namespace vantrel
