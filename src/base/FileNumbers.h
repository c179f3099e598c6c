#pragma once

#include <QByteArrayView>
#include <QtEndian>

namespace vantrel {

/// @return the number that stands at this place of a file, or -1 where the file ends before its end
template <typename Number>
qint64 LittleEndianAt(QByteArrayView file, qint64 at)
{
    if (at < 0 || at + qint64{sizeof(Number)} > file.size())
        return -1;
    return qFromLittleEndian<Number>(file.data() + at);
}

/// The same for files that write the highest byte first.
template <typename Number>
qint64 BigEndianAt(QByteArrayView file, qint64 at)
{
    if (at < 0 || at + qint64{sizeof(Number)} > file.size())
        return -1;
    return qFromBigEndian<Number>(file.data() + at);
}

} // namespace vantrel
