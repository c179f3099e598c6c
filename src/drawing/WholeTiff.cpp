#include "drawing/WholeTiff.h"
#include "base/FileNumbers.h"
#include <QHash>
#include <QSet>
#include <algorithm>
#include <vector>

namespace vantrel {

namespace {

/// Tags whose values are offsets of other directories: thumbnails, EXIF and GPS.
constexpr int DirectoryTags[] = {330, 34665, 34853, 40965};

/// Pairs of tags for the offsets and the lengths of a page's parts.
struct PartTags
{
    int Places;
    int Lengths;
};
constexpr PartTags PagesParts[] = {
    {273, 279}, // strips
    {324, 325}, // tiles
    {513, 514}, // JPEG pictures
};

/// Bytes of one value, by its type; types count from 1.
constexpr int ValueBytes[] = {1, 1, 2, 4, 8, 1, 1, 2, 4, 8, 4, 8, 4};

/// The values of one tag.
struct Values
{
    qint64 At = 0;
    qint64 Count = 0;
    qint64 BytesOfEach = 0;
};

class TiffWalk
{
public:
    explicit TiffWalk(QByteArrayView file)
        : m_file(file), m_isLittleEndian(file.startsWith("II")), m_stepsLeft(file.size())
    {}

    bool IsWhole()
    {
        constexpr qint64 firstDirectoryAt = 4;
        const qint64 first = Number<quint32>(firstDirectoryAt);
        if (first <= 0)
            return false;
        m_directories.push_back(first);
        while (!m_directories.empty()) {
            const qint64 directory = m_directories.back();
            m_directories.pop_back();
            if (m_seen.contains(directory))
                continue;
            m_seen.insert(directory);
            if (!HasDirectory(directory))
                return false;
        }
        return true;
    }

private:
    template <typename Type>
    qint64 Number(qint64 at) const
    {
        return m_isLittleEndian ? LittleEndianAt<Type>(m_file, at) : BigEndianAt<Type>(m_file, at);
    }

    /// @return -1 also for types that are not whole numbers
    qint64 ValueOf(const Values& values, qint64 index) const
    {
        const qint64 at = values.At + index * values.BytesOfEach;
        switch (values.BytesOfEach) {
        case 2:
            return Number<quint16>(at);
        case 4:
            return Number<quint32>(at);
        default:
            return -1;
        }
    }

    /// A valid file has no more entries than bytes; more of them mean that it refers to itself in
    /// circles.
    bool Step() { return m_stepsLeft-- > 0; }

    bool HasDirectory(qint64 at)
    {
        constexpr qint64 entryBytes = 12;
        const qint64 count = Number<quint16>(at);
        const qint64 firstEntry = at + 2;
        const qint64 next = Number<quint32>(firstEntry + count * entryBytes);
        if (count < 0 || next < 0)
            return false;
        if (next > 0)
            m_directories.push_back(next);
        QHash<int, Values> rows;
        for (qint64 entry = 0; entry < count; ++entry) {
            if (!Step() || !HasEntry(firstEntry + entry * entryBytes, rows))
                return false;
        }
        return std::all_of(std::begin(PagesParts), std::end(PagesParts),
                           [&](const PartTags& tags) {
                               return HasParts(rows.value(tags.Places), rows.value(tags.Lengths));
                           }) &&
               std::all_of(std::begin(DirectoryTags), std::end(DirectoryTags),
                           [&](int tag) { return TakeDirectories(rows.value(tag)); });
    }

    bool HasEntry(qint64 at, QHash<int, Values>& rows) const
    {
        constexpr qint64 shortRow = 4;
        const auto type = static_cast<std::size_t>(Number<quint16>(at + 2));
        if (type < 1 || type > std::size(ValueBytes))
            return true; // an unknown type, which readers ignore
        Values values;
        values.BytesOfEach = ValueBytes[type - 1];
        values.Count = Number<quint32>(at + 4);
        const qint64 bytes = values.Count * values.BytesOfEach;
        values.At = bytes <= shortRow ? at + 8 : Number<quint32>(at + 8);
        rows.insert(static_cast<int>(Number<quint16>(at)), values);
        return values.At + bytes <= m_file.size();
    }

    bool HasParts(const Values& places, const Values& lengths)
    {
        for (qint64 part = 0; part < std::min(places.Count, lengths.Count); ++part) {
            if (!Step() || ValueOf(places, part) + ValueOf(lengths, part) > m_file.size())
                return false;
        }
        return true;
    }

    bool TakeDirectories(const Values& values)
    {
        for (qint64 index = 0; index < values.Count; ++index) {
            if (!Step())
                return false;
            if (const qint64 directory = ValueOf(values, index); directory > 0)
                m_directories.push_back(directory);
        }
        return true;
    }

    QByteArrayView m_file;
    bool m_isLittleEndian;
    qint64 m_stepsLeft;
    /// Offsets of the directories still to be read.
    std::vector<qint64> m_directories;
    QSet<qint64> m_seen;
};

} // namespace

bool IsWholeTiff(QByteArrayView file)
{
    return TiffWalk(file).IsWhole();
}

} // namespace vantrel
