#include "platform/BmpLength.h"
#include <QtEndian>
#include <cstdlib>

namespace vantrel {

std::optional<qint64> LeastBmpLength(QByteArrayView head)
{
    if (head.size() < BmpHeadBytes || !head.startsWith("BM"))
        return std::nullopt;
    const auto longAt = [&](qsizetype at) -> qint64 {
        return qFromLittleEndian<qint32>(head.data() + at);
    };
    const auto shortAt = [&](qsizetype at) -> qint64 {
        return qFromLittleEndian<quint16>(head.data() + at);
    };
    const qint64 pixelsAt = longAt(10);
    constexpr qint64 oldHeaderSize = 12;
    const bool isOld = longAt(14) == oldHeaderSize;
    const qint64 width = isOld ? shortAt(18) : longAt(18);
    // A negative height tells that the lines stand from top to bottom.
    const qint64 height = isOld ? shortAt(20) : std::abs(longAt(22));
    const qint64 bitsPerPixel = shortAt(isOld ? 24 : 28);
    const bool isCompressed = !isOld && longAt(30) != 0;
    if (isCompressed)
        return std::nullopt;
    const qint64 bytesPerLine = (width * bitsPerPixel + 31) / 32 * 4;
    return pixelsAt + bytesPerLine * height;
}

} // namespace vantrel
