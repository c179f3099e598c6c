#include "store/postgres/PostgresDatabase.h"
#include "base/Failure.h"
#include "base/Skip.h"
#include "store/LayoutTables.h"
#include "store/postgres/PostgresAddress.h"
#include "store/postgres/PostgresSql.h"
#include <QCryptographicHash>
#include <QScopeGuard>
#include <QtEndian>
#include <algorithm>

namespace vantrel {

namespace {

constexpr int LongestLockWaitMs = 5000;
constexpr int OpenPatienceMs = 1000;

/// Bytes of values that are sent together.
constexpr std::size_t MostTogether = 1 << 20;

/// The number of a lock, which is this program's own for the store in this schema.
/// @param name  empty for the lock of the store itself
QByteArray LockNumber(const QString& name)
{
    const QByteArray hash = QCryptographicHash::hash(name.toUtf8(), QCryptographicHash::Sha256);
    const qint64 seed = name.isEmpty() ? 0 : qFromBigEndian<qint64>(hash.constData());
    return "hashtextextended('vantrel ' || current_schema(), " + QByteArray::number(seed) + ')';
}

/// Begins a transaction with its locks, which are let go at its end. A station that stands still,
/// or whose machine was lost, holds others up for ten seconds at most. Whoever writes only rows of
/// its own shares the lock of the store with others who do; who needs the whole store waits for
/// them, and they wait for it.
std::vector<PostgresConnection::Step> BeginSteps(int patienceMs, const StoreLock& lock)
{
    // The server's word that the lock was not given should come before patience ends.
    const int wait = std::clamp(patienceMs - patienceMs / 5, 1, LongestLockWaitMs);
    std::vector<PostgresConnection::Step> steps{
        {"BEGIN ISOLATION LEVEL READ COMMITTED READ WRITE"},
        {"SELECT set_config('lock_timeout', $1, true), "
         "set_config('idle_in_transaction_session_timeout', '10000', true), pg_advisory_xact_lock" +
             QByteArray(lock.IsOfStore() ? "(" : "_shared(") + LockNumber({}) + ')',
         PostgresParameters({QString::number(wait)})}};
    if (!lock.Name().isEmpty())
        // Both waits together take no longer than one.
        steps.push_back({"SELECT set_config('lock_timeout', greatest(1, $1 - (extract(epoch FROM "
                         "clock_timestamp() - now()) * 1000)::int)::text, true), "
                         "pg_advisory_xact_lock(" +
                             LockNumber(lock.Name()) + ')',
                         PostgresParameters({wait})});
    return steps;
}

/// The names of tables and columns as this program writes them; the server knows small letters
/// only.
QString OwnName(const QString& table, const QString& column)
{
    const StoreTable* known = FindLayoutTable(table);
    if (known == nullptr)
        return column;
    for (const StoreColumnRow& one : known->Columns)
        if (column.compare(QLatin1StringView(one.Name), Qt::CaseInsensitive) == 0)
            return QString(QLatin1StringView(one.Name));
    return column;
}

QByteArray OwnType(const QByteArray& type)
{
    if (type == "bigint")
        return "INTEGER";
    if (type == "double precision")
        return "REAL";
    return type == "bytea" ? "BLOB" : "TEXT";
}

/// The number that a statement has returned; 0 if it has returned none.
qlonglong NumberIn(const PGresult* result)
{
    return PQntuples(result) > 0 ? PostgresValue(result, 0, 0).toLongLong() : 0;
}

/// Where the transaction keeps the number that a named step has given.
QByteArray SettingOf(const char* name)
{
    return QByteArray("'vantrel.") + name + '\'';
}

PostgresConnection::Step StepOf(const StoreStep& step)
{
    QVariantList values;
    QHash<int, QByteArray> known;
    for (int i = 0; i < step.Values.size(); ++i) {
        if (step.Values[i].canConvert<NumberOfStep>())
            known.insert(i, "current_setting(" +
                                SettingOf(step.Values[i].value<NumberOfStep>().Name) + ")::bigint");
        else
            values.append(step.Values[i]);
    }
    QByteArray sql = WithNumberedPlaceholders(step.Sql, known);
    if (step.Result == StoreStep::Gives::Added)
        sql += " RETURNING ID";
    if (step.Name != nullptr)
        sql = "WITH added AS (" + sql + ") SELECT ID, set_config(" + SettingOf(step.Name) +
              ", ID::text, true) FROM added";
    return {sql, PostgresParameters(values)};
}

const char* const ColumnsSql =
    "SELECT a.attname::text, format_type(a.atttypid, NULL)::text, "
    "COALESCE(a.attnum = i.indkey[0], false) "
    "FROM pg_attribute a LEFT JOIN pg_index i ON i.indrelid = a.attrelid AND i.indisprimary "
    "WHERE a.attrelid = to_regclass($1) AND a.attnum > 0 AND NOT a.attisdropped "
    "ORDER BY a.attnum";

} // namespace

PostgresDatabase::PostgresDatabase(const QString& address)
    : m_connection((RequireSafeAddress(address), address))
{}

PostgresDatabase::~PostgresDatabase() = default;

PostgresResult PostgresDatabase::Run(const QString& sql, const QVariantList& values)
{
    auto failed = qScopeGuard([this] { NoteFailure(); });
    PostgresResult result =
        m_connection.Run(Step{WithNumberedPlaceholders(sql), PostgresParameters(values)});
    failed.dismiss();
    return result;
}

QVariant PostgresDatabase::Execute(const QString& sql)
{
    m_columns.clear();
    const PostgresResult result = m_connection.Run(sql.toUtf8());
    return result && PQntuples(result.get()) > 0 ? PostgresValue(result.get(), 0, 0) : QVariant();
}

void PostgresDatabase::Select(const QString& sql, const QVariantList& values, const TakeRow& take)
{
    const PostgresResult result = Run(sql, values);
    for (int row = 0; row < PQntuples(result.get()); ++row)
        take(PostgresRow(result.get(), row));
}

int PostgresDatabase::Change(const QString& sql, const QVariantList& values)
{
    const auto change = [&] {
        const PostgresResult result = Run(sql, values);
        return QByteArray(PQcmdTuples(result.get())).toInt();
    };
    return InTransaction() ? change() : Locked(StoreLock::OfOwnRows(), change);
}

qlonglong PostgresDatabase::Add(const QString& sql, const QVariantList& values)
{
    const auto add = [&] {
        const PostgresResult result = Run(sql + QStringLiteral(" RETURNING ID"), values);
        return NumberIn(result.get());
    };
    return InTransaction() ? add() : Locked(StoreLock::OfOwnRows(), add);
}

std::vector<qlonglong> PostgresDatabase::RunAll(const std::vector<StoreStep>& steps)
{
    // Without a transaction each of them would be committed by itself.
    if (!InTransaction())
        throw Failure(FailureNumber::StatementInvalid,
                      QStringLiteral("The layout database: no transaction is open."));
    std::vector<qlonglong> given;
    auto failed = qScopeGuard([this] { NoteFailure(); });
    std::vector<Step> together;
    std::size_t size = 0;
    const auto send = [&] {
        for (const PostgresResult& result : m_connection.RunAll(together)) {
            const bool isAdded = steps.at(given.size()).Result == StoreStep::Gives::Added;
            given.push_back(isAdded ? NumberIn(result.get())
                                    : QByteArray(PQcmdTuples(result.get())).toLongLong());
        }
        together.clear();
        size = 0;
    };
    for (const StoreStep& step : steps) {
        together.push_back(StepOf(step));
        size += together.back().Parameters.Size();
        if (size > MostTogether)
            send();
    }
    if (!together.empty())
        send();
    failed.dismiss();
    return given;
}

// A store is opened within the time in which the server must be reached.
void PostgresDatabase::RequireTables()
{
    const int left = OpenPatienceMs - m_connection.WaitedMs();
    m_connection.SetPatience(std::max(1, left));
    const auto opened = qScopeGuard([this] { m_connection.WaitForEachAnswer(); });
    if (ColumnsOf(QStringLiteral("VantrelStore")).empty())
        throw Failure(FailureNumber::StatementInvalid,
                      QStringLiteral("There is no layout store in %1. It is made by "
                                     "vantrel-admin store init.")
                          .arg(m_connection.Shown()));
    const PostgresResult result = m_connection.Run(Step{"SELECT version FROM vantrelstore"});
    const qlonglong version = NumberIn(result.get());
    if (version < StoreVersion)
        throw Failure(FailureNumber::StatementInvalid,
                      QStringLiteral("The layout store %1 is of an older version. It is brought "
                                     "up to date by vantrel-admin store init.")
                          .arg(m_connection.Shown()));
    if (version > StoreVersion)
        throw Failure(FailureNumber::StatementInvalid,
                      QStringLiteral("The layout store %1 is of a later version than this program.")
                          .arg(m_connection.Shown()));
}

QString PostgresDatabase::DoubtsAboutCommits()
{
    for (const char* setting : {"fsync", "synchronous_commit", "full_page_writes"})
        if (Execute(QStringLiteral("SHOW ") + QLatin1StringView(setting)).toString() ==
            QStringLiteral("off"))
            return QStringLiteral("The server may lose what is committed when its machine fails: "
                                  "%1 is off.")
                .arg(QLatin1StringView(setting));
    return {};
}

bool PostgresDatabase::Begin(const StoreLock& lock)
{
    if (InTransaction())
        return false;
    try {
        m_isCommitInDoubt = false;
        m_connection.RunAll(BeginSteps(m_connection.LeftMs(), lock));
    } catch (...) {
        NoteFailure();
        if (InTransaction())
            Skip("roll back", [this] { Rollback(); });
        throw;
    }
    return true;
}

bool PostgresDatabase::BeginWithNext(const StoreLock& lock)
{
    if (InTransaction())
        return false;
    m_isCommitInDoubt = false;
    m_connection.BeginWithNext(BeginSteps(m_connection.LeftMs(), lock));
    return true;
}

void PostgresDatabase::Ask()
{
    if (!InTransaction())
        m_connection.Ask();
}

void PostgresDatabase::BeginReading()
{
    m_connection.Run(Step{"BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY"});
}

void PostgresDatabase::Commit()
{
    if (!InTransaction())
        throw Failure(FailureNumber::StatementInvalid,
                      QStringLiteral("The layout database: no transaction is open."));
    const PostgresResult result = [this] {
        const auto known =
            qScopeGuard([this] { m_isCommitInDoubt = !m_connection.Trouble().isEmpty(); });
        return m_connection.Run(Step{"COMMIT"});
    }();
    // After a failure the server rolls back what it is told to commit.
    if (QByteArray(PQcmdStatus(result.get())) != "COMMIT")
        throw Failure(FailureNumber::StatementInvalid,
                      QStringLiteral("The layout database: the transaction has failed before."));
}

void PostgresDatabase::NoteFailure()
{
    ++m_failures;
    // Somebody may have changed a table.
    m_columns.clear();
}

void PostgresDatabase::Rollback()
{
    // Tables may have been made in the transaction.
    m_columns.clear();
    m_connection.Rollback();
}

bool PostgresDatabase::InTransaction() const
{
    return m_connection.InTransaction();
}

StoreDatabase::State PostgresDatabase::Now()
{
    const PostgresResult now =
        m_connection.Run(Step{"SELECT hashtextextended(pg_current_snapshot()::text, 0)"});
    return {PostgresValue(now.get(), 0, 0).toLongLong(), m_failures};
}

std::vector<StoreColumn> PostgresDatabase::ColumnsOf(const QString& table)
{
    const QString name = QString::fromLatin1(PostgresName(table));
    if (const auto known = m_columns.constFind(name); known != m_columns.cend())
        return *known;
    const PostgresResult result = m_connection.Run(Step{ColumnsSql, PostgresParameters({name})});
    std::vector<StoreColumn> columns;
    for (int row = 0; row < PQntuples(result.get()); ++row) {
        const QString column = PostgresValue(result.get(), row, 0).toString();
        if (column == QLatin1StringView(OddColumn))
            continue;
        columns.push_back({OwnName(table, column),
                           OwnType(PostgresValue(result.get(), row, 1).toString().toUtf8()),
                           PostgresValue(result.get(), row, 2).toInt() == 1});
    }
    if (!columns.empty())
        m_columns.insert(name, columns);
    return columns;
}

QByteArray PostgresDatabase::KeyOf(const QString& table)
{
    for (const StoreColumn& column : ColumnsOf(table))
        if (column.IsKey)
            return PostgresName(column.Name);
    throw Failure(FailureNumber::StatementInvalid,
                  QStringLiteral("The layout database: no such table: ") + table);
}

void PostgresDatabase::MakeTables(std::span<const StoreTable> tables)
{
    const auto make = [&] {
        for (const StoreTable& table : tables) {
            if (!ColumnsOf(QString(QLatin1StringView(table.Name))).empty())
                continue;
            m_connection.Run(PostgresTable(table));
            for (const StoreIndex& index : table.Indexes)
                m_connection.Run(PostgresIndex(table, index));
        }
        return true;
    };
    Locked(StoreLock::OfStore(), make);
}

QString PostgresDatabase::PassingOverLocked(const QString& alias) const
{
    return QStringLiteral(" FOR UPDATE OF ") + alias + QStringLiteral(" SKIP LOCKED");
}

QString PostgresDatabase::WithoutIndex(const QString& column) const
{
    return column;
}

bool PostgresDatabase::EmptyFiles(std::span<const StoreTable> tables)
{
    for (const StoreTable& table : tables) {
        const QString file = QStringLiteral("SELECT pg_relation_filenode('%1')")
                                 .arg(QString::fromLatin1(table.Name).toLower());
        const QVariant before = Execute(file);
        // Stations that wait for the table do so once. Who may not do this is only warned.
        m_connection.Run("VACUUM (FULL) " + QByteArray(table.Name).toLower());
        if (Execute(file) == before)
            return false;
    }
    return true;
}

} // namespace vantrel
