#pragma once

#include <QString>
#include <QStringList>

namespace vantrel {

/// The values of the last record, counted from 1.
class FieldValues
{
public:
    int Count() const { return static_cast<int>(m_values.size()); }
    /// Fails with `SubscriptOutOfRange` for a position the record does not have.
    const QString& Item(int position) const;
    void Add(const QString& value) { m_values.append(value); }

private:
    QStringList m_values;
};

} // namespace vantrel
