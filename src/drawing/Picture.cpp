#include "drawing/Picture.h"
#include "base/Failure.h"
#include "base/FileStamp.h"
#include "drawing/JpegMarkers.h"
#include "drawing/PictureData.h"
#include "drawing/PictureFormats.h"
#include <QBuffer>
#include <QCache>
#include <QFile>
#include <QImageReader>

namespace vantrel {

namespace {

/// Pictures kept decoded, in KiB: some hundred photos and backgrounds of one card each.
constexpr int CacheKiB = 256 * 1024;
/// Above this a file is no photo of a card but a mistake or an attack; decoded it takes 256 MiB.
constexpr qint64 MaxPixels = 64LL * 1024 * 1024;
constexpr qint64 MaxJpegBytes = MaxPixels;
/// Four bytes for each of so many pixels, and a head.
constexpr qint64 MaxFileBytes = MaxPixels * 4 + 1024LL * 1024;

[[noreturn]] void FailInvalid()
{
    throw Failure(FailureNumber::InvalidPicture, QStringLiteral("Invalid picture"));
}

/// A picture file as it was read, whole.
struct PictureFile
{
    const PictureFormat* Format = nullptr;
    QByteArray Bytes;
};

/// Its format is told by its content alone, for the name of a file says nothing. Fails with
/// `InvalidPicture` for what is no picture and for a file that was cut.
PictureFile ReadFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() > MaxFileBytes)
        FailInvalid();
    const PictureFormat* format = FindPictureFormat(file.peek(PictureHeadBytes));
    if (format == nullptr)
        FailInvalid();
    const QByteArray bytes = file.readAll();
    if (FindPictureFormat(bytes.left(PictureHeadBytes)) != format || !format->IsWhole(bytes))
        FailInvalid();
    return {format, bytes};
}

/// @return the JPEG file as a PDF may take it; empty where it must be decoded for that
PlainJpeg PlainJpegOf(const QByteArray& file)
{
    const std::optional<JpegMarkers> markers = ReadJpegMarkers(file);
    const bool isCommon = markers && markers->IsCommonCoding && markers->BitsPerSample == 8 &&
                          (markers->Components == 1 || markers->Components == 3);
    return isCommon ? PlainJpeg{BareJpeg(file), markers->Components == 1} : PlainJpeg();
}

/// Fails with `InvalidPicture`. A giant is refused before it is decoded.
QImage Decode(QImageReader& reader)
{
    const QSize size = reader.size();
    if (static_cast<qint64>(size.width()) * size.height() > MaxPixels)
        FailInvalid();
    QImage image = reader.read();
    if (image.isNull())
        FailInvalid();
    return image;
}

std::shared_ptr<const PictureData> ReadPicture(const QString& path)
{
    PictureFile file = ReadFile(path);
    QBuffer buffer(&file.Bytes);
    QImageReader reader(&buffer, file.Format->Name);
    // No other reader gets to see it, such as one of drawings, which opens what they name.
    reader.setAutoDetectImageFormat(false);
    if (file.Format->Name == QByteArrayView("jpeg")) {
        if (file.Bytes.size() > MaxJpegBytes)
            FailInvalid();
        if (PlainJpeg jpeg = PlainJpegOf(file.Bytes); !jpeg.Bytes.isEmpty()) {
            const QImage stored = Decode(reader);
            return std::make_shared<const PictureData>(stored, reader.transformation(),
                                                       std::move(jpeg));
        }
    }
    reader.setAutoTransform(true);
    return std::make_shared<const PictureData>(Decode(reader));
}

struct CachedPicture
{
    FileStamp Stamp;
    Picture Held;
};

/// A cache of what is on the disk, not a state: to empty it changes nothing but time. It is used
/// from the interface thread only, like all that draws.
QCache<QString, CachedPicture>& PictureCache()
{
    static QCache<QString, CachedPicture> cache(CacheKiB);
    return cache;
}

} // namespace

Picture Picture::FromImage(const QImage& image)
{
    if (image.isNull())
        return Picture();
    return Picture(std::make_shared<const PictureData>(image));
}

int Picture::WidthHundredths() const
{
    return m_data ? m_data->WidthHundredths : 0;
}

int Picture::HeightHundredths() const
{
    return m_data ? m_data->HeightHundredths : 0;
}

QImage Picture::Image() const
{
    return m_data ? m_data->Pixels : QImage();
}

Picture LoadPicture(const QString& path)
{
    if (path.isEmpty())
        return Picture();
    const FileStamp stamp = StampOfFile(path);
    if (!stamp.IsFile)
        throw Failure(FailureNumber::FileNotFound, QStringLiteral("File not found: ") + path);
    auto& cache = PictureCache();
    if (const CachedPicture* cached = cache.object(path); cached && cached->Stamp == stamp)
        return cached->Held;
    Picture picture(ReadPicture(path));
    const qsizetype kib = picture.Data()->BytesHeld() / 1024 + 1;
    cache.insert(path, new CachedPicture{stamp, picture}, kib);
    return picture;
}

} // namespace vantrel
