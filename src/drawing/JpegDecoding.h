#pragma once

#include <QByteArrayView>

namespace vantrel {

/// Whether a decoder makes a picture of a JPEG file, however damaged its pixels are. The coded
/// pixels themselves are not decoded, so the time goes by the file's size and hardly by its pixels.
/// Never throws.
/// @param file  a file that `ReadJpegMarkers` accepts
bool CanDecodeJpeg(QByteArrayView file);

} // namespace vantrel
