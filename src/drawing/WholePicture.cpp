#include "drawing/WholePicture.h"
#include "base/FileNumbers.h"

namespace vantrel {

namespace {

qint64 ByteAt(QByteArrayView file, qint64 at)
{
    return LittleEndianAt<quint8>(file, at);
}

/// @return the size in bytes of the GIF colour table that the flags declare
qint64 ColourTableBytes(qint64 flags)
{
    constexpr qint64 hasTable = 0x80;
    constexpr qint64 sizeBits = 0x07;
    return (flags & hasTable) != 0 ? qint64{3} << ((flags & sizeBits) + 1) : 0;
}

/// @return the offset after a sequence of GIF blocks, which ends with an empty block; past the end
/// of the file if the sequence is truncated
qint64 BehindBlocks(QByteArrayView file, qint64 at)
{
    while (at < file.size()) {
        const qint64 length = ByteAt(file, at);
        at += 1 + length;
        if (length == 0)
            return at;
    }
    return file.size() + 1;
}

} // namespace

bool IsWholePng(QByteArrayView file)
{
    constexpr qint64 signatureBytes = 8;
    // Length, name and checksum.
    constexpr qint64 bytesAroundChunk = 12;
    for (qint64 at = signatureBytes;;) {
        const qint64 length = BigEndianAt<quint32>(file, at);
        const qint64 end = at + bytesAroundChunk + length;
        if (length < 0 || end > file.size())
            return false;
        if (file.sliced(at + 4).startsWith("IEND"))
            return true;
        at = end;
    }
}

bool IsWholeGif(QByteArrayView file)
{
    constexpr qint64 headBytes = 13;
    constexpr qint64 imageHeadBytes = 10;
    qint64 at = headBytes + ColourTableBytes(ByteAt(file, headBytes - 3));
    while (at < file.size()) {
        switch (file[at]) {
        case ';':
            return true;
        case '!':
            at = BehindBlocks(file, at + 2);
            break;
        case ',': {
            const qint64 flags = ByteAt(file, at + imageHeadBytes - 1);
            // One byte holds the code width.
            at = BehindBlocks(file, at + imageHeadBytes + ColourTableBytes(flags) + 1);
            break;
        }
        default:
            return false;
        }
    }
    return false;
}

bool IsWholeWebP(QByteArrayView file)
{
    constexpr qint64 bytesBeforeLength = 4;
    const qint64 length = LittleEndianAt<quint32>(file, bytesBeforeLength);
    return length >= 0 && bytesBeforeLength + 4 + length <= file.size();
}

bool IsWholeIcon(QByteArrayView file)
{
    constexpr qint64 headBytes = 6;
    constexpr qint64 entryBytes = 16;
    const qint64 count = LittleEndianAt<quint16>(file, headBytes - 2);
    for (qint64 entry = 0; entry < count; ++entry) {
        const qint64 entryAt = headBytes + entry * entryBytes;
        const qint64 length = LittleEndianAt<quint32>(file, entryAt + 8);
        const qint64 pictureAt = LittleEndianAt<quint32>(file, entryAt + 12);
        if (length < 0 || pictureAt < 0 || pictureAt + length > file.size())
            return false;
    }
    return count > 0;
}

} // namespace vantrel
