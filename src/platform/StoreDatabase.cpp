#include "platform/StoreDatabase.h"
#include "platform/Failure.h"
#include <QSqlError>
#include <QSqlIndex>
#include <QUrl>
#include <memory>

namespace vantrel {

namespace {
constexpr int StatementsKept = 64;
constexpr int PrimaryCodeMask = 0xFF;
/// What is wrong lies in the statement itself, not in the file or its locks.
constexpr int CodeStatement = 1;
constexpr int CodeBusy = 5;
constexpr int CodeLocked = 6;

int PrimaryCode(const QSqlError& error)
{
    return error.nativeErrorCode().toInt() & PrimaryCodeMask;
}
} // namespace

void StoreDatabase::FailWith(const QSqlError& error)
{
    const int code = PrimaryCode(error);
    const bool busy = code == CodeBusy || code == CodeLocked;
    throw Failure(busy ? FailureNumber::StoreBusy : FailureNumber::StatementInvalid,
                  QStringLiteral("The layout database: ") +
                      (error.databaseText().isEmpty() ? error.text() : error.databaseText()));
}

StoreDatabase::StoreDatabase()
    // No two live objects share an address, so no two connections share a name.
    : m_name(QStringLiteral("vantrel-%1").arg(reinterpret_cast<quintptr>(this), 0, 16)),
      m_database(QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_name)),
      m_statements(StatementsKept)
{}

StoreDatabase::~StoreDatabase()
{
    m_statements.clear();
    m_database.close();
    m_database = QSqlDatabase();
    QSqlDatabase::removeDatabase(m_name);
}

void StoreDatabase::Open(const QString& path, OpenMode mode)
{
    const bool existing = mode == OpenMode::Existing;
    // Only the URI form can forbid SQLite to make a missing file.
    m_database.setConnectOptions(QStringLiteral("QSQLITE_OPEN_URI;QSQLITE_BUSY_TIMEOUT=5000"));
    m_database.setDatabaseName(
        QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded) +
        (existing ? QStringLiteral("?mode=rw") : QStringLiteral("?mode=rwc")));
    if (!m_database.open())
        FailWith(m_database.lastError());
    Execute(QStringLiteral("PRAGMA journal_mode = WAL"));
    Execute(QStringLiteral("PRAGMA synchronous = FULL"));
}

QVariant StoreDatabase::Execute(const QString& sql)
{
    QSqlQuery query(m_database);
    query.setForwardOnly(true);
    if (!query.exec(sql))
        FailWith(query.lastError());
    return query.next() ? query.value(0) : QVariant();
}

QSqlQuery& StoreDatabase::Prepared(const QString& sql)
{
    if (QSqlQuery* known = m_statements.object(sql))
        return *known;
    auto fresh = std::make_unique<QSqlQuery>(m_database);
    fresh->setForwardOnly(true);
    if (!fresh->prepare(sql))
        FailWith(fresh->lastError());
    m_statements.insert(sql, fresh.release());
    return *m_statements.object(sql);
}

QSqlQuery& StoreDatabase::Run(const QString& sql, const QVariantList& values)
{
    QSqlQuery& query = Prepared(sql);
    for (int i = 0; i < values.size(); ++i)
        query.bindValue(i, values.at(i));
    if (!query.exec()) {
        const QSqlError error = query.lastError();
        query.finish();
        FailWith(error);
    }
    return query;
}

bool StoreDatabase::Begin()
{
    QSqlQuery& query = Prepared(QStringLiteral("BEGIN IMMEDIATE"));
    const bool begun = query.exec();
    const QSqlError error = query.lastError();
    query.finish();
    // The only thing wrong with these words can be that a transaction is open.
    if (!begun && PrimaryCode(error) != CodeStatement)
        FailWith(error);
    return begun;
}

QString StoreDatabase::KeyColumn(const QString& table) const
{
    return m_database.primaryIndex(table).fieldName(0);
}

} // namespace vantrel
