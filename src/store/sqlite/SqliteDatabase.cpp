#include "store/sqlite/SqliteDatabase.h"
#include "store/LayoutTables.h"
#include "store/sqlite/SqliteTables.h"
#include <QFile>
#include <exception>
#include <sqlite3.h>

namespace vantrel {

namespace {
constexpr int StatementsKept = 64;
constexpr int LockPatienceMs = 5000;
} // namespace

class SqliteDatabase::Running
{
public:
    Running(SqliteDatabase& database, const QString& sql)
        : m_database(database), m_exceptions(std::uncaught_exceptions())
    {
        try {
            m_statement = database.Prepared(sql);
        } catch (...) {
            ++m_database.m_failures;
            throw;
        }
    }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;
    ~Running()
    {
        m_statement->Finish();
        if (std::uncaught_exceptions() > m_exceptions)
            ++m_database.m_failures;
    }
    SqliteStatement* operator->() { return m_statement.get(); }
    SqliteStatement& operator*() { return *m_statement; }

private:
    SqliteDatabase& m_database;
    std::shared_ptr<SqliteStatement> m_statement;
    int m_exceptions;
};

void SqliteDatabase::Closer::operator()(sqlite3* database) const
{
    sqlite3_close_v2(database);
}

SqliteDatabase::SqliteDatabase(const QString& path, OpenMode mode)
    : m_path(path), m_statements(StatementsKept)
{
    const int create = mode == OpenMode::Create ? SQLITE_OPEN_CREATE : 0;
    sqlite3* database = nullptr;
    const int code = sqlite3_open_v2(QFile::encodeName(path).constData(), &database,
                                     SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | create, nullptr);
    m_database.reset(database);
    if (code != SQLITE_OK)
        FailAsSqlite(database);
    sqlite3_busy_timeout(database, LockPatienceMs);
    Execute(QStringLiteral("PRAGMA journal_mode = WAL"));
    Execute(QStringLiteral("PRAGMA synchronous = FULL"));
    // What a statement sorts must find room even if the disk is full.
    Execute(QStringLiteral("PRAGMA temp_store = MEMORY"));
}

SqliteDatabase::~SqliteDatabase() = default;

void SqliteDatabase::RequireTables()
{
    for (const StoreTable& table : LayoutTables())
        Execute(QStringLiteral("SELECT 1 FROM [") + QLatin1StringView(table.Name) +
                QStringLiteral("] LIMIT 1"));
}

QVariant SqliteDatabase::Execute(const QString& sql)
{
    SqliteStatement statement(m_database.get(), sql);
    return statement.Step() ? statement.Value(0) : QVariant();
}

std::shared_ptr<SqliteStatement> SqliteDatabase::Prepared(const QString& sql)
{
    if (const auto* known = m_statements.object(sql))
        return *known;
    auto fresh = std::make_shared<SqliteStatement>(m_database.get(), sql);
    m_statements.insert(sql, new std::shared_ptr<SqliteStatement>(fresh));
    return fresh;
}

void SqliteDatabase::Select(const QString& sql, const QVariantList& values, const TakeRow& take)
{
    Running statement(*this, sql);
    statement->Bind(values);
    while (statement->Step())
        take(*statement);
}

int SqliteDatabase::Change(const QString& sql, const QVariantList& values)
{
    Running statement(*this, sql);
    statement->Bind(values);
    while (statement->Step())
        continue;
    return sqlite3_changes(m_database.get());
}

qlonglong SqliteDatabase::Add(const QString& sql, const QVariantList& values)
{
    return Change(sql, values) == 0 ? 0 : sqlite3_last_insert_rowid(m_database.get());
}

bool SqliteDatabase::Begin(const StoreLock& /*lock*/)
{
    if (InTransaction())
        return false;
    // The write lock is taken at once. A transaction that reads first and requests the lock later
    // fails without waiting if another session has written in between.
    Change(QStringLiteral("BEGIN IMMEDIATE"));
    return true;
}

void SqliteDatabase::BeginReading()
{
    Change(QStringLiteral("BEGIN"));
}

void SqliteDatabase::Commit()
{
    Change(QStringLiteral("COMMIT"));
}

void SqliteDatabase::Rollback()
{
    Change(QStringLiteral("ROLLBACK"));
}

bool SqliteDatabase::InTransaction() const
{
    return sqlite3_get_autocommit(m_database.get()) == 0;
}

bool SqliteDatabase::IsReadOnly() const
{
    return sqlite3_db_readonly(m_database.get(), "main") == 1;
}

StoreDatabase::State SqliteDatabase::Now()
{
    State state;
    Running version(*this, QStringLiteral("PRAGMA data_version"));
    if (version->Step())
        state.OthersVersion = version->Value(0).toLongLong();
    state.FailureCount = m_failures;
    return state;
}

std::vector<StoreColumn> SqliteDatabase::ColumnsOf(const QString& table)
{
    enum { Name = 1, Type = 2, Key = 5 };
    std::vector<StoreColumn> found;
    Select(QStringLiteral("PRAGMA table_info([") + table + QStringLiteral("])"), {},
           [&](const StoreRow& column) {
               found.push_back({column.Value(Name).toString(),
                                column.Value(Type).toString().toUtf8(),
                                column.Value(Key).toInt() == 1});
           });
    return found;
}

void SqliteDatabase::MakeTables(std::span<const StoreTable> tables)
{
    for (const StoreTable& table : tables) {
        Execute(SqliteTable(table));
        for (const StoreIndex& index : table.Indexes)
            Execute(SqliteIndex(table, index));
    }
}

void SqliteDatabase::ReadRows(const CursorShape& shape, const TakeCursorRow& take)
{
    Select(shape.Select().Sql(), {}, [&](const StoreRow& stored) {
        CursorRow row;
        if (shape.HasKey())
            row.Key = stored.Value(0).toLongLong();
        row.Values.reserve(std::ssize(shape.Columns()));
        for (const CursorShape::Column& column : shape.Columns())
            row.Values.append(stored.Value(column.Place));
        take(std::move(row));
    });
}

std::optional<qlonglong> SqliteDatabase::InsertRow(const QString& table, const QStringList& columns,
                                                   const QVariantList& values,
                                                   const SelectStatement* unlessFound)
{
    if (Change(SqliteInsert(table, columns, unlessFound), values) == 0)
        return std::nullopt;
    return sqlite3_last_insert_rowid(m_database.get());
}

void SqliteDatabase::InsertRows(const QString& table, const QStringList& columns,
                                const std::vector<QVariantList>& rows)
{
    const QString sql = SqliteInsert(table, columns, nullptr);
    for (const QVariantList& values : rows)
        Change(sql, values);
}

std::optional<CursorRow> SqliteDatabase::UpdateRow(const CursorShape& shape, qlonglong key,
                                                   const QStringList& columns,
                                                   const QVariantList& values)
{
    if (Change(SqliteUpdate(shape.Select().Table, columns), values + QVariantList{key}) == 0)
        return std::nullopt;
    return CursorRow{.Key = key, .Values = {}};
}

bool SqliteDatabase::DeleteRow(const QString& table, qlonglong key)
{
    return Change(SqliteDelete(table), {key}) != 0;
}

QString SqliteDatabase::WithoutIndex(const QString& column) const
{
    return QLatin1Char('+') + column;
}

void SqliteDatabase::OverwriteDeleted()
{
    Execute(QStringLiteral("PRAGMA secure_delete = ON"));
}

bool SqliteDatabase::EmptyFiles(std::span<const StoreTable> /*tables*/)
{
    /// Each try waits up to five seconds for others to end what they read.
    constexpr int triesToEmpty = 4;
    // A copy of the whole database would not fit into memory.
    Execute(QStringLiteral("PRAGMA temp_store = FILE"));
    // Rows that were moved from page to page leave copies behind, which overwriting what is deleted
    // does not reach: the file is written anew without gaps and its log emptied.
    Execute(QStringLiteral("VACUUM"));
    for (int attempt = 0; attempt < triesToEmpty; ++attempt)
        if (Execute(QStringLiteral("PRAGMA wal_checkpoint(TRUNCATE)")).toInt() == 0)
            return true;
    return false;
}

} // namespace vantrel
