#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <optional>

namespace vantrel {

/// What the markers of a JPEG file say about it.
struct JpegMarkers
{
    /// Colour components: 1 grey, 3 colour, 4 CMYK.
    int Components = 0;
    int BitsPerSample = 0;
    /// Baseline or progressive Huffman coding, which every PDF reader knows.
    bool IsCommonCoding = false;
};

/// Walks the markers of a whole JPEG file. Decoders fill up what a cut file lacks with grey, so
/// this walk is what tells a torn photo from a whole one.
/// @return nothing where the file is no JPEG or ends before its end marker
std::optional<JpegMarkers> ReadJpegMarkers(QByteArrayView file);

/// The same picture without all that is no part of it: comments, what applications added, and
/// whatever stands behind the end. What tells its colours stays: the bare JFIF and Adobe headers
/// and a colour profile. The orientation goes as well; who shows the picture has to turn it.
/// @param file  a file that `ReadJpegMarkers` takes for whole
QByteArray BareJpeg(QByteArrayView file);

} // namespace vantrel
