#include "drawing/BmpLength.h"
#include "base/FileNumbers.h"
#include <QtNumeric>
#include <cstdlib>
#include <limits>

namespace vantrel {

namespace {

constexpr qint64 OldHeaderBytes = 12;
constexpr qint64 OldHeadBytes = 26;
/// Length of the header up to and including the field for the compression.
constexpr qint64 HeadBytes = 34;

/// Values of the compression field for run-length coded lines; all other values mean that lines are
/// not packed.
constexpr qint64 PackedBytes = 1;
constexpr qint64 PackedHalfBytes = 2;

struct BmpHead
{
    qint64 PixelsAt = 0;
    qint64 BitsPerPixel = 0;
    qint64 Width = 0;
    qint64 Height = 0;
    qint64 Packing = 0;
};

std::optional<BmpHead> ReadHead(QByteArrayView file)
{
    const bool isOld = LittleEndianAt<qint32>(file, 14) == OldHeaderBytes;
    if (!file.startsWith("BM") || file.size() < (isOld ? OldHeadBytes : HeadBytes))
        return std::nullopt;
    const qint64 pixelsAt = LittleEndianAt<qint32>(file, 10);
    if (isOld)
        return BmpHead{pixelsAt, LittleEndianAt<quint16>(file, 24),
                       LittleEndianAt<quint16>(file, 18), LittleEndianAt<quint16>(file, 20)};
    // A negative height means that lines are stored from top to bottom.
    return BmpHead{pixelsAt, LittleEndianAt<quint16>(file, 28), LittleEndianAt<qint32>(file, 18),
                   std::abs(LittleEndianAt<qint32>(file, 22)), LittleEndianAt<qint32>(file, 30)};
}

/// @return whether run-length coded lines reach their end code
bool HasEndCode(QByteArrayView file, const BmpHead& head)
{
    constexpr quint8 endOfPicture = 1;
    constexpr quint8 jump = 2;
    qint64 at = head.PixelsAt;
    for (;;) {
        const qint64 count = LittleEndianAt<quint8>(file, at);
        const qint64 code = LittleEndianAt<quint8>(file, at + 1);
        if (count < 0 || code < 0)
            return false;
        at += 2;
        if (count > 0)
            continue;
        if (code == endOfPicture)
            return true;
        if (code == jump)
            at += 2;
        else if (code > jump) // `code` literal pixels, padded to a whole number of words
            at += ((head.Packing == PackedHalfBytes ? (code + 1) / 2 : code) + 1) / 2 * 2;
    }
}

} // namespace

std::optional<qint64> LeastBmpLength(QByteArrayView file)
{
    const std::optional<BmpHead> head = ReadHead(file);
    if (!head || head->Packing == PackedBytes || head->Packing == PackedHalfBytes)
        return std::nullopt;
    const qint64 bytesPerLine = (head->Width * head->BitsPerPixel + 31) / 32 * 4;
    // The sides in a header may be so large that no file can hold the picture.
    qint64 length = 0;
    if (qMulOverflow(bytesPerLine, head->Height, &length) ||
        qAddOverflow(length, head->PixelsAt, &length))
        return std::numeric_limits<qint64>::max();
    return length;
}

bool IsWholeBmp(QByteArrayView file)
{
    const std::optional<BmpHead> head = ReadHead(file);
    if (!head)
        return false;
    const std::optional<qint64> least = LeastBmpLength(file);
    return least ? *least <= file.size() : HasEndCode(file, *head);
}

} // namespace vantrel
