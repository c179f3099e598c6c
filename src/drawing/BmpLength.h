#pragma once

#include <QByteArrayView>
#include <optional>

namespace vantrel {

/// Decoders leave black what a cut bitmap lacks, so its length is what tells a torn photo.
/// @param file  a bitmap file, or its beginning
/// @return the bytes a whole file has at least; nothing where its lines are packed, where its head
/// is not there or where it is no bitmap
std::optional<qint64> LeastBmpLength(QByteArrayView file);

/// Whether a bitmap file, its lines packed or not, has all its lines.
bool IsWholeBmp(QByteArrayView file);

} // namespace vantrel
