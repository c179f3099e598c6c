#include "store/StoreDatabase.h"
#include <QFile>
#include <exception>
#include <sqlite3.h>

namespace vantrel {

namespace {
constexpr int StatementsKept = 64;
constexpr int LockPatienceMs = 5000;
} // namespace

void StoreDatabase::Closer::operator()(sqlite3* database) const
{
    sqlite3_close_v2(database);
}

StoreDatabase::Running::Running(StoreDatabase& database, const QString& sql)
    : m_database(database), m_exceptions(std::uncaught_exceptions())
{
    try {
        m_statement = database.Prepared(sql);
    } catch (...) {
        ++m_database.m_failures;
        throw;
    }
}

StoreDatabase::Running::~Running()
{
    m_statement->Finish();
    if (std::uncaught_exceptions() > m_exceptions)
        ++m_database.m_failures;
}

StoreDatabase::StoreDatabase(const QString& path, OpenMode mode) : m_statements(StatementsKept)
{
    const int create = mode == OpenMode::Create ? SQLITE_OPEN_CREATE : 0;
    sqlite3* database = nullptr;
    const int code = sqlite3_open_v2(QFile::encodeName(path).constData(), &database,
                                     SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | create, nullptr);
    m_database.reset(database);
    if (code != SQLITE_OK)
        FailAsStore(database);
    sqlite3_busy_timeout(database, LockPatienceMs);
    Execute(QStringLiteral("PRAGMA journal_mode = WAL"));
    Execute(QStringLiteral("PRAGMA synchronous = FULL"));
    // Temporary tables must work even if the disk is full.
    Execute(QStringLiteral("PRAGMA temp_store = MEMORY"));
}

QVariant StoreDatabase::Execute(const QString& sql)
{
    StoreStatement statement(m_database.get(), sql);
    return statement.Step() ? statement.Value(0) : QVariant();
}

std::shared_ptr<StoreStatement> StoreDatabase::Prepared(const QString& sql)
{
    if (const auto* known = m_statements.object(sql))
        return *known;
    auto fresh = std::make_shared<StoreStatement>(m_database.get(), sql);
    m_statements.insert(sql, new std::shared_ptr<StoreStatement>(fresh));
    return fresh;
}

int StoreDatabase::Change(const QString& sql, const QVariantList& values)
{
    Running statement(*this, sql);
    statement->Bind(values);
    while (statement->Step())
        continue;
    return sqlite3_changes(m_database.get());
}

qlonglong StoreDatabase::LastKey() const
{
    return sqlite3_last_insert_rowid(m_database.get());
}

bool StoreDatabase::Begin()
{
    if (InTransaction())
        return false;
    Change(QStringLiteral("BEGIN IMMEDIATE"));
    return true;
}

bool StoreDatabase::InTransaction() const
{
    return sqlite3_get_autocommit(m_database.get()) == 0;
}

bool StoreDatabase::IsReadOnly() const
{
    return sqlite3_db_readonly(m_database.get(), "main") == 1;
}

StoreDatabase::State StoreDatabase::Now()
{
    State state;
    Running version(*this, QStringLiteral("PRAGMA data_version"));
    if (version->Step())
        state.OthersVersion = version->Value(0).toLongLong();
    state.FailureCount = m_failures;
    return state;
}

QString StoreDatabase::KeyColumn(const QString& table)
{
    constexpr int nameColumn = 1;
    constexpr int keyColumn = 5;
    Running columns(*this,
                    QStringLiteral("PRAGMA main.table_info([") + table + QStringLiteral("])"));
    while (columns->Step()) {
        if (columns->Value(keyColumn).toInt() == 1)
            return columns->Value(nameColumn).toString();
    }
    return {};
}

} // namespace vantrel
