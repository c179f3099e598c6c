#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <cstdint>

namespace vantrel {

/// The values of the last record, counted from 1. Copies share them. Short values are stored
/// together in one text, since a record may have millions of them; a long value is stored as its
/// own shared string.
class FieldValues
{
public:
    /// Number of values.
    int Count() const { return static_cast<int>(m_places.size()); }
    /// The value at a position, from 1. Fails with `SubscriptOutOfRange` if the record has no such
    /// value.
    QString Item(int position) const;
    /// Appends a value.
    void Add(const QString& value);

private:
    /// For a short value its place in the common text, for a long one its index in the list of long
    /// values.
    struct Place
    {
        std::uint32_t Begin = 0;
        std::uint32_t Length = 0;
    };

    QString m_short;
    QStringList m_long;
    QList<Place> m_places;
};

} // namespace vantrel
