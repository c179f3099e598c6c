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
constexpr int CodeBusy = 5;
constexpr int CodeLocked = 6;

[[noreturn]] void FailWith(const QSqlError& error)
{
    const int code = error.nativeErrorCode().toInt() & PrimaryCodeMask;
    const bool busy = code == CodeBusy || code == CodeLocked;
    throw Failure(busy ? FailureNumber::StoreBusy : FailureNumber::StatementInvalid,
                  QStringLiteral("The layout database: ") +
                      (error.databaseText().isEmpty() ? error.text() : error.databaseText()));
}
} // namespace

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

QSqlQuery& StoreDatabase::Run(const QString& sql, const QVariantList& values)
{
    QSqlQuery* query = m_statements.object(sql);
    if (query == nullptr) {
        auto fresh = std::make_unique<QSqlQuery>(m_database);
        fresh->setForwardOnly(true);
        if (!fresh->prepare(sql))
            FailWith(fresh->lastError());
        m_statements.insert(sql, fresh.release());
        query = m_statements.object(sql);
    }
    for (int i = 0; i < values.size(); ++i)
        query->bindValue(i, values.at(i));
    if (!query->exec()) {
        const QSqlError error = query->lastError();
        query->finish();
        FailWith(error);
    }
    return *query;
}

QString StoreDatabase::KeyColumn(const QString& table) const
{
    return m_database.primaryIndex(table).fieldName(0);
}

} // namespace vantrel
