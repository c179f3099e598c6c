#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <cstdint>

namespace vantrel {

/// The values of the last record, counted from 1. A copy shares them. Short ones stand in one text,
/// since a host may send millions; a long one is kept as it came, so that all who hold it share it.
class FieldValues
{
public:
    int Count() const { return static_cast<int>(m_places.size()); }
    /// Fails with `SubscriptOutOfRange` for a position the record does not have.
    QString Item(int position) const;
    void Add(const QString& value);

private:
    /// Where a short value stands in the text; of a long one the number among its like.
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
