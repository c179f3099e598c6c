#pragma once

#include "base/ByteSource.h"
#include <QByteArray>
#include <QStringList>
#include <algorithm>
#include <vector>

namespace vantrel::test {

/// Gives bytes in pieces of at most so many.
inline ReadBytes PiecesOf(const QByteArray& bytes, qsizetype piece)
{
    return [rest = bytes, piece](char* to, qsizetype most) mutable {
        const qsizetype count = std::min({piece, most, rest.size()});
        std::copy_n(rest.constData(), count, to);
        rest.remove(0, count);
        return count;
    };
}

inline QStringList List(const std::vector<const char*>& texts)
{
    QStringList list;
    for (const char* text : texts)
        list.append(QString::fromUtf8(text));
    return list;
}

} // namespace vantrel::test
