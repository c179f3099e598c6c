#pragma once

#include <QByteArrayView>
#include <optional>

namespace vantrel {

/// Decoders fill the missing part of a truncated bitmap with black, so only the file's length shows
/// that a photo is incomplete. Never fails.
/// @param file  a bitmap file, or its beginning
/// @return the least number of bytes of the complete file; nothing if its lines are packed, its
/// header is incomplete or it is not a bitmap
std::optional<qint64> LeastBmpLength(QByteArrayView file);

/// Whether a bitmap file, packed or not, contains all its lines. Never fails.
bool IsWholeBmp(QByteArrayView file);

} // namespace vantrel
