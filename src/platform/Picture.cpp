#include "platform/Picture.h"
#include "platform/BmpLength.h"
#include "platform/Failure.h"
#include "platform/FileStamp.h"
#include "platform/JpegMarkers.h"
#include "platform/PictureData.h"
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

[[noreturn]] void FailInvalid()
{
    throw Failure(FailureNumber::InvalidPicture, QStringLiteral("Invalid picture"));
}

/// A JPEG file and what its markers say.
struct JpegFile
{
    QByteArray Bytes;
    JpegMarkers Markers;

    bool IsCommon() const
    {
        return Markers.IsCommonCoding && Markers.BitsPerSample == 8 &&
               (Markers.Components == 1 || Markers.Components == 3);
    }
};

/// Fails with `InvalidPicture` for a file that was cut.
JpegFile ReadJpeg(QFile& file)
{
    if (file.size() > MaxJpegBytes || !file.seek(0))
        FailInvalid();
    QByteArray bytes = file.readAll();
    const std::optional<JpegMarkers> markers = ReadJpegMarkers(bytes);
    if (!markers || !file.seek(0))
        FailInvalid();
    return {std::move(bytes), *markers};
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
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        FailInvalid();
    const std::optional<qint64> bmpLength = LeastBmpLength(file.peek(BmpHeadBytes));
    if (bmpLength && file.size() < *bmpLength)
        FailInvalid();
    const bool isJpeg = QImageReader::imageFormat(&file) == "jpeg";
    const JpegFile jpeg = isJpeg ? ReadJpeg(file) : JpegFile{};
    QImageReader reader(&file);
    reader.setDecideFormatFromContent(true);
    if (jpeg.IsCommon()) {
        const QImage stored = Decode(reader);
        return std::make_shared<const PictureData>(
            stored, reader.transformation(),
            PlainJpeg{BareJpeg(jpeg.Bytes), jpeg.Markers.Components == 1});
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
