#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <optional>

namespace vantrel {

/// Properties of a JPEG file that its markers declare.
struct JpegMarkers
{
    /// Colour components: 1 grey, 3 colour, 4 CMYK.
    int Components = 0;
    int BitsPerSample = 0;
    /// Baseline or progressive Huffman coding, which every PDF reader supports.
    bool IsCommonCoding = false;
};

/// Walks all markers of a JPEG file. Decoders fill the missing part of a truncated file with grey,
/// so this walk is needed to detect an incomplete photo. Never throws.
/// @return nothing if the file is not a JPEG or ends before its end marker
std::optional<JpegMarkers> ReadJpegMarkers(QByteArrayView file);

/// Removes from a JPEG file everything that does not belong to the picture: comments, application
/// data and bytes after the end. The JFIF and Adobe headers and a colour profile stay because they
/// define the colours. The orientation is removed too, so the caller has to rotate the picture.
/// @param file  a file that `ReadJpegMarkers` accepts
QByteArray BareJpeg(QByteArrayView file);

/// The file without the coded pixels of its scans. A decoder fills in grey for them, however little
/// of them is there, and fails for nothing in them; but it fails for tables and headers that no
/// picture can have. So it refuses this file if and only if it refuses the whole one, and much
/// sooner.
/// @param file  a file that `ReadJpegMarkers` accepts
QByteArray JpegWithoutPixels(QByteArrayView file);

} // namespace vantrel
