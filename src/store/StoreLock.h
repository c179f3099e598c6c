#pragma once

#include <QString>
#include <utility>

namespace vantrel {

/// What a transaction keeps to itself from its start to its end, where several programs write to
/// one server at the same time. In a file one transaction writes at a time, whatever it asks for.
class StoreLock
{
public:
    /// The whole store: nobody else writes meanwhile.
    static StoreLock OfStore() { return {true, {}}; }
    /// Rows that nobody else changes, such as those of a station's own records.
    static StoreLock OfOwnRows() { return {false, {}}; }
    /// The same, and what goes by a name, such as the numbers of a page: of all that ask for the
    /// same name one goes on at a time.
    static StoreLock OfName(QString name) { return {false, std::move(name)}; }

    bool IsOfStore() const { return m_isOfStore; }
    /// Empty for a lock that has none.
    const QString& Name() const { return m_name; }

private:
    StoreLock(bool isOfStore, QString name) : m_isOfStore(isOfStore), m_name(std::move(name)) {}

    bool m_isOfStore;
    QString m_name;
};

} // namespace vantrel
