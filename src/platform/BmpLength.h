#pragma once

#include <QByteArrayView>
#include <optional>

namespace vantrel {

/// Bytes from the start of a bitmap file that are needed to tell its length.
inline constexpr qsizetype BmpHeadBytes = 34;

/// Decoders leave black what a cut bitmap lacks, so its length is what tells a torn photo.
/// @param head  the first `BmpHeadBytes` bytes of a file
/// @return the bytes a whole file has at least; nothing where it is compressed or no bitmap
std::optional<qint64> LeastBmpLength(QByteArrayView head);

} // namespace vantrel
