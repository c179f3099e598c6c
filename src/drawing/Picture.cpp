#include "drawing/Picture.h"
#include "base/Failure.h"
#include "base/FileStamp.h"
#include "base/Skip.h"
#include "drawing/JpegDecoding.h"
#include "drawing/JpegMarkers.h"
#include "drawing/PictureData.h"
#include "drawing/PictureFormats.h"
#include <QBuffer>
#include <QCache>
#include <QFile>
#include <QImageReader>

namespace vantrel {

namespace {

/// First size of the cache of decoded pictures in KiB, enough for some hundred photos and
/// backgrounds.
constexpr int CacheKiB = 256 * 1024;
/// Larger pictures are refused as a mistake or an attack; this many pixels need 256 MiB decoded.
constexpr qint64 MaxPixels = 64LL * 1024 * 1024;
constexpr qint64 MaxJpegBytes = MaxPixels;
/// Four bytes for each pixel and a header.
constexpr qint64 MaxFileBytes = MaxPixels * 4 + 1024LL * 1024;

[[noreturn]] void FailInvalid()
{
    throw Failure(FailureNumber::InvalidPicture, QStringLiteral("Invalid picture"));
}

/// The contents of a picture file.
struct PictureFile
{
    const PictureFormat* Format = nullptr;
    QByteArray Bytes;
};

/// Detects the format from the content and ignores the file name. Fails with `InvalidPicture` if
/// the file is not a picture or is truncated.
PictureFile ReadFile(QFile& file)
{
    if (file.size() > MaxFileBytes)
        FailInvalid();
    const PictureFormat* format = FindPictureFormat(file.peek(PictureHeadBytes));
    if (format == nullptr)
        FailInvalid();
    const QByteArray bytes = file.readAll();
    if (FindPictureFormat(bytes.left(PictureHeadBytes)) != format || !format->IsWhole(bytes))
        FailInvalid();
    return {format, bytes};
}

/// @return the JPEG file in a form that a PDF can embed; empty if it must be decoded instead
PlainJpeg PlainJpegOf(const QByteArray& file)
{
    const std::optional<JpegMarkers> markers = ReadJpegMarkers(file);
    const bool isCommon = markers && markers->IsCommonCoding && markers->BitsPerSample == 8 &&
                          (markers->Components == 1 || markers->Components == 3);
    return isCommon ? PlainJpeg{BareJpeg(file), markers->Components == 1} : PlainJpeg();
}

/// A picture with too many pixels is refused before it is decoded. Fails with `InvalidPicture`.
QSize SizeOf(const QImageReader& reader)
{
    const QSize size = reader.size();
    if (static_cast<qint64>(size.width()) * size.height() > MaxPixels)
        FailInvalid();
    return size;
}

/// Fails with `InvalidPicture`.
QImage Decode(QImageReader& reader)
{
    SizeOf(reader);
    QImage image = reader.read();
    if (image.isNull())
        FailInvalid();
    return image;
}

std::shared_ptr<const PictureData> ReadPicture(QFile& opened)
{
    PictureFile file = ReadFile(opened);
    QBuffer buffer(&file.Bytes);
    QImageReader reader(&buffer, file.Format->Name);
    // Auto-detection could select a reader of vector drawings, which opens other files that a
    // drawing names.
    reader.setAutoDetectImageFormat(false);
    if (file.Format->Name == QByteArrayView("jpeg")) {
        if (file.Bytes.size() > MaxJpegBytes)
            FailInvalid();
        if (PlainJpeg jpeg = PlainJpegOf(file.Bytes); !jpeg.Bytes.isEmpty()) {
            const QSize size = SizeOf(reader);
            if (!CanDecodeJpeg(file.Bytes))
                FailInvalid();
            return std::make_shared<const PictureData>(size, reader.transformation(),
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

/// A cache of picture files; emptying it costs only time. Like all drawing code it is used from the
/// main thread only.
QCache<QString, CachedPicture>& PictureCache()
{
    static QCache<QString, CachedPicture> cache(CacheKiB);
    return cache;
}

/// The picture of a file with this stamp, from the cache or read.
/// @param open  opens the file, and tells whether it is open
template <typename Open>
Picture CachedOrRead(const QString& path, const FileStamp& stamp, Open&& open)
{
    auto& cache = PictureCache();
    if (const CachedPicture* cached = cache.object(path); cached && cached->Stamp == stamp)
        return cached->Held;
    QFile file(path);
    if (!open(file))
        FailInvalid();
    Picture picture(ReadPicture(file));
    const qsizetype kib = picture.Data()->BytesHeld() / 1024 + 1;
    cache.insert(path, new CachedPicture{stamp, picture}, kib);
    return picture;
}

QSize HundredthsOf(const PictureData* data)
{
    QSize size(0, 0);
    if (data != nullptr)
        Skip("size of picture", [&] { size = data->Hundredths(); });
    return size;
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
    return HundredthsOf(m_data.get()).width();
}

int Picture::HeightHundredths() const
{
    return HundredthsOf(m_data.get()).height();
}

QSize Picture::SizeInPixels() const
{
    return m_data ? m_data->UprightSize() : QSize(0, 0);
}

QImage Picture::Image() const
{
    QImage image;
    if (m_data)
        Skip("decode picture", [&] { image = m_data->Pixels(); });
    return image;
}

Picture LoadPicture(const QString& path)
{
    if (path.isEmpty())
        return Picture();
    const FileStamp stamp = StampOfFile(path);
    if (!stamp.IsFile)
        throw Failure(FailureNumber::FileNotFound, QStringLiteral("File not found: ") + path);
    return CachedOrRead(path, stamp, [](QFile& file) { return file.open(QIODevice::ReadOnly); });
}

Picture LoadPicture(int descriptor, const QString& path)
{
    return CachedOrRead(path, StampOfFile(descriptor), [descriptor](QFile& file) {
        return file.open(descriptor, QIODevice::ReadOnly, QFileDevice::DontCloseHandle);
    });
}

void LimitPictureCache(int kib)
{
    PictureCache().setMaxCost(kib);
}

} // namespace vantrel
