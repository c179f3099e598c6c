#pragma once

#include "store/postgres/PostgresValues.h"
#include <QByteArray>
#include <QSet>

namespace vantrel {

/// Which statements a connection has made known to its server, so that they are read and planned
/// once instead of each time. Such a statement outlives the transaction, so there must be none
/// where a pooler may lend the server's connection to somebody else.
class PreparedStatements
{
public:
    /// Forgets all, as a new connection does.
    void Reset();
    /// Prepares nothing from now on until it is reset.
    void Forbid();

    /// The name of a statement that the server knows; empty for one that is to be sent whole.
    QByteArray NameOf(const QByteArray& sql, const PostgresParameters& parameters) const;
    /// The name by which a statement is to be made known first: a longer one that was asked for
    /// before, if there is room. Empty otherwise. Equal names always mean equal statements.
    QByteArray NameToPrepare(const QByteArray& sql, const PostgresParameters& parameters);
    /// Must be called when the server knows it.
    void Add(const QByteArray& name) { m_known.insert(name); }

private:
    bool m_isForbidden = false;
    QSet<QByteArray> m_known;
    /// Names of those that were asked for once.
    QSet<QByteArray> m_seen;
};

} // namespace vantrel
