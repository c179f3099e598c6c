#include "drawing/PictureFormats.h"
#include "drawing/BmpLength.h"
#include "drawing/JpegMarkers.h"
#include "drawing/WholePicture.h"
#include "drawing/WholeTextPicture.h"
#include "drawing/WholeTiff.h"
#include <algorithm>

namespace vantrel {

namespace {

template <std::size_t length>
bool Begins(QByteArrayView head, const char (&signature)[length])
{
    return head.startsWith(QByteArrayView(signature, length - 1));
}

constexpr PictureFormat Formats[] = {
    {"png", "png", [](QByteArrayView head) { return Begins(head, "\x89PNG\r\n\x1A\n"); },
     IsWholePng},
    {"jpeg", "jpg jpeg jpe jfif", [](QByteArrayView head) { return Begins(head, "\xFF\xD8\xFF"); },
     [](QByteArrayView file) { return ReadJpegMarkers(file).has_value(); }},
    {"bmp", "bmp dib", [](QByteArrayView head) { return Begins(head, "BM"); }, IsWholeBmp},
    {"gif", "gif",
     [](QByteArrayView head) { return Begins(head, "GIF87a") || Begins(head, "GIF89a"); },
     IsWholeGif},
    {"tiff", "tif tiff",
     [](QByteArrayView head) { return Begins(head, "II*\0") || Begins(head, "MM\0*"); },
     IsWholeTiff},
    {"webp", "webp",
     [](QByteArrayView head) {
         constexpr qsizetype kindAt = 8;
         return Begins(head, "RIFF") && head.size() > kindAt && Begins(head.sliced(kindAt), "WEBP");
     },
     IsWholeWebP},
    {"ico", "ico",
     [](QByteArrayView head) { return Begins(head, "\0\0\1\0") || Begins(head, "\0\0\2\0"); },
     IsWholeIcon},
    // Qt reads all six PNM variants with this reader.
    {"ppm", "ppm pgm pbm pnm",
     [](QByteArrayView head) {
         return head.size() > 2 && head[0] == 'P' && head[1] >= '1' && head[1] <= '6';
     },
     IsWholePnm},
    {"xpm", "xpm", [](QByteArrayView head) { return Begins(head, "/* XPM"); }, IsWholeCText},
    // A comment may precede the first definition.
    {"xbm", "xbm",
     [](QByteArrayView head) { return Begins(head, "#define ") || Begins(head, "/*"); },
     IsWholeCText},
};

} // namespace

std::span<const PictureFormat> PictureFormats()
{
    return Formats;
}

const PictureFormat* FindPictureFormat(QByteArrayView head)
{
    const auto* found =
        std::find_if(std::begin(Formats), std::end(Formats),
                     [head](const PictureFormat& format) { return format.IsOne(head); });
    return found == std::end(Formats) ? nullptr : found;
}

} // namespace vantrel
