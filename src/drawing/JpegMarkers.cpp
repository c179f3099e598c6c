#include "drawing/JpegMarkers.h"
#include <QString>

namespace vantrel {

namespace {

constexpr int StartOfImage = 0xD8;
constexpr int EndOfImage = 0xD9;
constexpr int StartOfScan = 0xDA;
constexpr int FirstRestart = 0xD0;
constexpr int LastRestart = 0xD7;

int ByteAt(QByteArrayView file, qsizetype at)
{
    return at < file.size() ? static_cast<unsigned char>(file[at]) : -1;
}

/// Frame headers are 0xC0 to 0xCF except the tables for Huffman (C4) and arithmetic (CC) coding and
/// the reserved C8.
bool IsFrameHeader(int marker)
{
    return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

/// Frames, code tables, scans, quantization tables, the number of lines and restart intervals.
bool IsPartOfPicture(int marker)
{
    return (marker >= 0xC0 && marker <= 0xCF) || (marker >= StartOfScan && marker <= 0xDD);
}

/// @return the offset of the next marker's 0xFF after the coded pixels of a scan, or the file's
/// size
qsizetype EndOfCodedPixels(QByteArrayView file, qsizetype at)
{
    for (; at < file.size(); ++at) {
        at = file.indexOf('\xFF', at);
        if (at < 0)
            break;
        const int code = ByteAt(file, at + 1);
        const bool belongsToPixels = code == 0 || (code >= FirstRestart && code <= LastRestart);
        if (!belongsToPixels)
            return at;
    }
    return file.size();
}

/// One marker with its data.
struct JpegSegment
{
    int Marker = 0;
    /// Starts at the marker's 0xFF; a scan includes its coded pixels.
    QByteArrayView Bytes;

    bool Begins(QByteArrayView signature) const
    {
        return Bytes.sliced(HeadBytes).startsWith(signature);
    }
    static constexpr qsizetype HeadBytes = 4;
};

/// Calls `visit` for each segment between the start and the end marker.
/// @return whether the end marker was reached
template <typename Visit>
bool WalkSegments(QByteArrayView file, Visit visit)
{
    if (ByteAt(file, 0) != 0xFF || ByteAt(file, 1) != StartOfImage)
        return false;
    qsizetype at = 2;
    while (at < file.size()) {
        if (ByteAt(file, at) != 0xFF)
            return false;
        const int marker = ByteAt(file, at + 1);
        if (marker == 0xFF) { // fill bytes may precede a marker
            ++at;
            continue;
        }
        if (marker == EndOfImage)
            return true;
        const qsizetype length = ByteAt(file, at + 2) * 256 + ByteAt(file, at + 3);
        qsizetype end = at + 2 + length;
        if (at + JpegSegment::HeadBytes > file.size() || length < 2 || end > file.size())
            return false;
        if (marker == StartOfScan)
            end = EndOfCodedPixels(file, end);
        visit(JpegSegment{marker, file.sliced(at, end - at)});
        at = end;
    }
    return false;
}

/// Bytes of the JFIF and Adobe headers, marker and length included. A header in a file can be
/// longer, for example because of a thumbnail, which may show what was cropped from the photo.
constexpr int JfifBytes = 18;
constexpr int AdobeBytes = 16;
/// Offset of the thumbnail's size in the JFIF header.
constexpr qsizetype SmallPictureAt = 16;

QByteArray BareHeader(const JpegSegment& segment, int size)
{
    if (segment.Bytes.size() < size)
        return {};
    QByteArray header = segment.Bytes.first(size).toByteArray();
    header[2] = 0;
    header[3] = static_cast<char>(size - 2);
    return header;
}

/// @return the part of a segment that `BareJpeg` keeps
QByteArray PictureOwn(const JpegSegment& segment)
{
    switch (segment.Marker) {
    case 0xE0:
        if (segment.Begins(QByteArrayView("JFIF\0", 5))) {
            QByteArray header = BareHeader(segment, JfifBytes);
            for (qsizetype at = SmallPictureAt; at < header.size(); ++at)
                header[at] = 0;
            return header;
        }
        return {};
    case 0xE2:
        return segment.Begins(QByteArrayView("ICC_PROFILE\0", 12)) ? segment.Bytes.toByteArray()
                                                                   : QByteArray();
    case 0xEE:
        return segment.Begins("Adobe") ? BareHeader(segment, AdobeBytes) : QByteArray();
    default:
        return IsPartOfPicture(segment.Marker) ? segment.Bytes.toByteArray() : QByteArray();
    }
}

} // namespace

std::optional<JpegMarkers> ReadJpegMarkers(QByteArrayView file)
{
    JpegMarkers found;
    const bool isWhole = WalkSegments(file, [&found](const JpegSegment& segment) {
        if (!IsFrameHeader(segment.Marker))
            return;
        found.BitsPerSample = ByteAt(segment.Bytes, 4);
        found.Components = ByteAt(segment.Bytes, 9);
        found.IsCommonCoding = segment.Marker <= 0xC2;
    });
    return isWhole && found.Components > 0 ? std::optional(found) : std::nullopt;
}

QByteArray BareJpeg(QByteArrayView file)
{
    QByteArray bare("\xFF\xD8");
    bare.reserve(file.size());
    WalkSegments(file, [&bare](const JpegSegment& segment) { bare += PictureOwn(segment); });
    return bare + "\xFF\xD9";
}

QByteArray JpegWithoutPixels(QByteArrayView file)
{
    QByteArray frame("\xFF\xD8");
    WalkSegments(file, [&frame](const JpegSegment& segment) {
        const qsizetype length = ByteAt(segment.Bytes, 2) * 256 + ByteAt(segment.Bytes, 3);
        frame += segment.Bytes.first(2 + length);
    });
    return frame + "\xFF\xD9";
}

} // namespace vantrel
