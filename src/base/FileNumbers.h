#pragma once

#include <QByteArrayView>
#include <QtEndian>

namespace vantrel {

/// @return the unsigned or signed little-endian number at byte `at` of a file, or -1 if the file
/// ends before or within it
template <typename Number>
qint64 LittleEndianAt(QByteArrayView file, qint64 at)
{
    if (at < 0 || at + qint64{sizeof(Number)} > file.size())
        return -1;
    return qFromLittleEndian<Number>(file.data() + at);
}

/// The same for big-endian files.
template <typename Number>
qint64 BigEndianAt(QByteArrayView file, qint64 at)
{
    if (at < 0 || at + qint64{sizeof(Number)} > file.size())
        return -1;
    return qFromBigEndian<Number>(file.data() + at);
}

} // namespace vantrel
