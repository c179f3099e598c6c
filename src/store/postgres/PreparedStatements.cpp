#include "store/postgres/PreparedStatements.h"
#include <QCryptographicHash>

namespace vantrel {

namespace {

/// The server keeps the plan of each in its memory.
constexpr qsizetype MostKnown = 200;
constexpr qsizetype MostSeen = 1000;
/// Shorter ones, such as those that begin and end transactions, are read in no time.
constexpr qsizetype ShortestPrepared = 32;

QByteArray Name(const QByteArray& sql, const PostgresParameters& parameters)
{
    QCryptographicHash hash(QCryptographicHash::Sha1);
    hash.addData(sql);
    for (int i = 0; i < parameters.Count(); ++i)
        hash.addData(QByteArray(" " + QByteArray::number(parameters.Types()[i])));
    return "vantrel_" + hash.result().toHex();
}

} // namespace

void PreparedStatements::Reset()
{
    *this = {};
}

void PreparedStatements::Forbid()
{
    Reset();
    m_isForbidden = true;
}

QByteArray PreparedStatements::NameOf(const QByteArray& sql,
                                      const PostgresParameters& parameters) const
{
    if (m_known.isEmpty())
        return {};
    const QByteArray name = Name(sql, parameters);
    return m_known.contains(name) ? name : QByteArray();
}

QByteArray PreparedStatements::NameToPrepare(const QByteArray& sql,
                                             const PostgresParameters& parameters)
{
    if (m_isForbidden || sql.size() < ShortestPrepared || m_known.size() >= MostKnown)
        return {};
    QByteArray name = Name(sql, parameters);
    if (m_known.contains(name))
        return {};
    if (m_seen.remove(name))
        return name;
    if (m_seen.size() >= MostSeen)
        m_seen.clear();
    m_seen.insert(name);
    return {};
}

} // namespace vantrel
