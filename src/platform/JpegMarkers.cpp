#include "platform/JpegMarkers.h"

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

/// Frame headers are 0xC0 to 0xCF, but for the tables for Huffman (C4) and arithmetic (CC) coding
/// and the reserved C8.
bool IsFrameHeader(int marker)
{
    return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

/// @return where the next marker's 0xFF stands behind the coded pixels of a scan, or the file's
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

} // namespace

std::optional<JpegMarkers> ReadJpegMarkers(QByteArrayView file)
{
    if (ByteAt(file, 0) != 0xFF || ByteAt(file, 1) != StartOfImage)
        return std::nullopt;
    JpegMarkers found;
    qsizetype at = 2;
    while (at < file.size()) {
        if (ByteAt(file, at) != 0xFF)
            return std::nullopt;
        const int marker = ByteAt(file, at + 1);
        if (marker == 0xFF) { // any number of fill bytes may stand before a marker
            ++at;
            continue;
        }
        if (marker == EndOfImage)
            return found.Components > 0 ? std::optional(found) : std::nullopt;
        const qsizetype length = ByteAt(file, at + 2) * 256 + ByteAt(file, at + 3);
        if (at + 4 > file.size() || length < 2)
            return std::nullopt;
        if (IsFrameHeader(marker)) {
            found.BitsPerSample = ByteAt(file, at + 4);
            found.Components = ByteAt(file, at + 9);
            found.IsCommonCoding = marker <= 0xC2;
        }
        at += 2 + length;
        if (marker == StartOfScan)
            at = EndOfCodedPixels(file, at);
    }
    return std::nullopt;
}

} // namespace vantrel
