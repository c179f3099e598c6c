#include "store/postgres/PostgresDatabase.h"
#include "base/Failure.h"
#include "base/Skip.h"
#include "store/LayoutTables.h"
#include "store/postgres/OddValues.h"
#include "store/postgres/PostgresAddress.h"
#include "store/postgres/PostgresSql.h"
#include <QJsonDocument>
#include <QScopeGuard>
#include <algorithm>

namespace vantrel {

namespace {

constexpr int LongestLockWaitMs = 5000;
constexpr int OpenPatienceMs = 1000;

/// Begins a transaction with the lock of the store, which is let go at its end. Its number is this
/// program's own, for the store in this schema. A station that stands still, or whose machine was
/// lost, holds others up for ten seconds at most.
QByteArray BeginSql(int patienceMs)
{
    // The server's word that the lock was not given should come before patience ends.
    const int wait = std::clamp(patienceMs - patienceMs / 5, 1, LongestLockWaitMs);
    return "BEGIN ISOLATION LEVEL READ COMMITTED READ WRITE; SET LOCAL lock_timeout = " +
           QByteArray::number(wait) +
           "; SET LOCAL idle_in_transaction_session_timeout = 10000; SELECT "
           "pg_advisory_xact_lock(hashtextextended('vantrel ' || current_schema(), 0))";
}

constexpr const char* RowSavepoint = "vantrelrow";

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

const char* const ColumnsSql =
    "SELECT a.attname::text, format_type(a.atttypid, NULL)::text, "
    "COALESCE(a.attnum = i.indkey[0], false) "
    "FROM pg_attribute a LEFT JOIN pg_index i ON i.indrelid = a.attrelid AND i.indisprimary "
    "WHERE a.attrelid = to_regclass($1) AND a.attnum > 0 AND NOT a.attisdropped "
    "ORDER BY a.attnum";

void RequireRoomForOdd(const QString& table, const QJsonObject& odd)
{
    if (FindLayoutTable(table) == nullptr)
        throw Failure(
            FailureNumber::StatementInvalid,
            QStringLiteral("The layout database: the column %1 of %2 cannot hold a value.")
                .arg(odd.keys().first(), table));
}

void TakeOddValues(const CursorShape& shape, const QVariant& json, QVariantList& values)
{
    const QJsonObject odd = QJsonDocument::fromJson(json.toString().toUtf8()).object();
    for (std::size_t i = 0; i < shape.Columns().size(); ++i) {
        const auto found = odd.constFind(shape.Columns()[i].Name.toLower());
        if (found != odd.constEnd())
            values[static_cast<qsizetype>(i)] = OddValue(found->toString());
    }
}

} // namespace

/// The values of a row that is written, as the columns hold them.
struct PostgresDatabase::RowOfTable
{
    QByteArrayList Names;
    PostgresParameters Parameters;
    /// The values that do not fit, by the names of their columns.
    QJsonObject Odd;

    RowOfTable(const std::vector<StoreColumn>& table, const QStringList& columns,
               const QVariantList& values)
    {
        for (qsizetype i = 0; i < columns.size(); ++i) {
            const QByteArray name = PostgresName(columns[i]);
            const auto column = std::find_if(table.begin(), table.end(), [&](const auto& one) {
                return one.Name.compare(columns[i], Qt::CaseInsensitive) == 0;
            });
            const QByteArray type = column == table.end() ? QByteArray() : column->Type;
            const FittedValue fitted = FitValue(values[i], type);
            Names.append(name);
            Parameters.Add(fitted.Value, type);
            if (!fitted.Odd.isEmpty())
                Odd.insert(QString::fromLatin1(name), fitted.Odd);
        }
    }
    /// Adds the values that do not fit. @return the number of their placeholder
    int AddOdd()
    {
        Parameters.Add(QString::fromUtf8(QJsonDocument(Odd).toJson(QJsonDocument::Compact)),
                       "TEXT");
        return Parameters.Count();
    }
};

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

template <typename Act>
auto PostgresDatabase::Locked(Act&& act)
{
    if (!Begin())
        return act();
    auto rollback = qScopeGuard([this] { Skip("roll back", [this] { Rollback(); }); });
    auto result = act();
    rollback.dismiss();
    Commit();
    return result;
}

PostgresResult PostgresDatabase::RunChange(const Step& step)
{
    if (!InTransaction())
        return Locked([&] { return m_connection.Run(step); });
    // A statement that fails ends the whole transaction on the server, up to the savepoint.
    const QByteArray savepoint(RowSavepoint);
    try {
        std::vector<PostgresResult> results = m_connection.RunAll(
            {{"SAVEPOINT " + savepoint}, step, {"RELEASE SAVEPOINT " + savepoint}});
        return std::move(results.at(1));
    } catch (...) {
        NoteFailure();
        if (InTransaction())
            m_connection.Run("ROLLBACK TO SAVEPOINT " + savepoint + "; RELEASE SAVEPOINT " +
                             savepoint);
        throw;
    }
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
    return InTransaction() ? change() : Locked(change);
}

qlonglong PostgresDatabase::Add(const QString& sql, const QVariantList& values)
{
    const auto add = [&] {
        const PostgresResult result = Run(sql + QStringLiteral(" RETURNING ID"), values);
        return PQntuples(result.get()) > 0 ? PostgresValue(result.get(), 0, 0).toLongLong()
                                           : qlonglong{0};
    };
    return InTransaction() ? add() : Locked(add);
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
    const qlonglong version =
        PQntuples(result.get()) > 0 ? PostgresValue(result.get(), 0, 0).toLongLong() : 0;
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

bool PostgresDatabase::Begin()
{
    if (InTransaction())
        return false;
    try {
        m_isCommitInDoubt = false;
        m_connection.Run(BeginSql(m_connection.LeftMs()));
    } catch (...) {
        NoteFailure();
        if (InTransaction())
            Skip("roll back", [this] { Rollback(); });
        throw;
    }
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
    m_connection.Run(QByteArray("ROLLBACK"));
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
    Locked(make);
}

void PostgresDatabase::ReadRows(const CursorShape& shape, const TakeCursorRow& take)
{
    const SelectStatement& select = shape.Select();
    const QByteArray key = shape.HasKey() ? KeyOf(select.Table) : QByteArray();
    QByteArrayList columns;
    if (shape.HasKey())
        columns.append(key);
    for (const CursorShape::Column& column : shape.Columns())
        columns.append(PostgresName(column.Name));
    if (shape.HasKey())
        columns.append(OddColumn);
    const PostgresCondition where = PostgresWhere(select, ColumnsOf(select.Table), 1);
    Step step{(shape.HasKey() ? QByteArray("SELECT ") : QByteArray("SELECT DISTINCT ")) +
              columns.join(", ") + " FROM " + PostgresName(select.Table) + where.Sql +
              PostgresOrder(select, key)};
    for (const auto& [value, type] : where.Values)
        step.Parameters.Add(value, type);
    auto failed = qScopeGuard([this] { NoteFailure(); });
    const PostgresResult result = m_connection.Run(step);
    failed.dismiss();

    const auto count = static_cast<int>(shape.Columns().size());
    const int first = shape.HasKey() ? 1 : 0;
    for (int at = 0; at < PQntuples(result.get()); ++at) {
        CursorRow row;
        if (shape.HasKey())
            row.Key = PostgresValue(result.get(), at, 0).toLongLong();
        row.Values.reserve(count);
        for (int column = 0; column < count; ++column)
            row.Values.append(PostgresValue(result.get(), at, first + column));
        if (shape.HasKey() && PQgetisnull(result.get(), at, first + count) == 0)
            TakeOddValues(shape, PostgresValue(result.get(), at, first + count), row.Values);
        take(std::move(row));
    }
}

PostgresDatabase::Step PostgresDatabase::InsertStep(const QString& table,
                                                    const QStringList& columns,
                                                    const QVariantList& values,
                                                    const SelectStatement* unlessFound)
{
    const std::vector<StoreColumn> known = ColumnsOf(table);
    RowOfTable row(known, columns, values);
    if (!row.Odd.isEmpty()) {
        RequireRoomForOdd(table, row.Odd);
        row.AddOdd();
        row.Names.append(OddColumn);
    }
    QByteArrayList placeholders;
    for (int i = 1; i <= row.Parameters.Count(); ++i)
        placeholders.append('$' + QByteArray::number(i));
    if (!row.Odd.isEmpty())
        placeholders.back() += "::jsonb";
    QByteArray sql = "INSERT INTO " + PostgresName(table);
    if (row.Names.isEmpty())
        sql += " DEFAULT VALUES";
    else
        sql += " (" + row.Names.join(", ") + ") SELECT " + placeholders.join(", ");
    if (unlessFound != nullptr) {
        const PostgresCondition where =
            PostgresWhere(*unlessFound, known, row.Parameters.Count() + 1);
        sql += " WHERE NOT EXISTS (SELECT 1 FROM " + PostgresName(table) + where.Sql + ')';
        for (const auto& [value, type] : where.Values)
            row.Parameters.Add(value, type);
    }
    return {sql, std::move(row.Parameters)};
}

std::optional<qlonglong> PostgresDatabase::InsertRow(const QString& table,
                                                     const QStringList& columns,
                                                     const QVariantList& values,
                                                     const SelectStatement* unlessFound)
{
    Step step = InsertStep(table, columns, values, unlessFound);
    step.Sql += " RETURNING " + KeyOf(table);
    const PostgresResult result = RunChange(step);
    if (PQntuples(result.get()) == 0)
        return std::nullopt;
    return PostgresValue(result.get(), 0, 0).toLongLong();
}

void PostgresDatabase::InsertRows(const QString& table, const QStringList& columns,
                                  const std::vector<QVariantList>& rows)
{
    std::vector<Step> steps;
    for (const QVariantList& values : rows)
        steps.push_back(InsertStep(table, columns, values, nullptr));
    Locked([&] { return m_connection.RunAll(steps).size(); });
}

void PostgresDatabase::ContinueKeys(const QString& table)
{
    const QByteArray key = KeyOf(table);
    const QByteArray name = PostgresName(table);
    m_connection.Run(Step{"SELECT setval(pg_get_serial_sequence('" + name + "', '" + key +
                          "'), COALESCE((SELECT max(" + key + ") FROM " + name +
                          "), 0) + 1, "
                          "false)"});
}

bool PostgresDatabase::UpdateRow(const QString& table, qlonglong key, const QStringList& columns,
                                 const QVariantList& values)
{
    RowOfTable row(ColumnsOf(table), columns, values);
    QByteArrayList settings;
    for (qsizetype i = 0; i < row.Names.size(); ++i)
        settings.append(row.Names[i] + " = $" + QByteArray::number(i + 1));
    const QByteArray names = "'{" + row.Names.join(',') + "}'::text[]";
    const QByteArray odd(OddColumn);
    if (row.Odd.isEmpty())
        settings.append(odd + " = NULLIF(" + odd + " - " + names + ", '{}')");
    else
        settings.append(odd + " = (COALESCE(" + odd + ", '{}') - " + names + ") || $" +
                        QByteArray::number(row.AddOdd()) + "::jsonb");
    row.Parameters.Add(key, "INTEGER");
    const QByteArray sql = "UPDATE " + PostgresName(table) + " SET " + settings.join(", ") +
                           " WHERE " + KeyOf(table) + " = $" +
                           QByteArray::number(row.Parameters.Count());
    const PostgresResult result = RunChange({sql, std::move(row.Parameters)});
    return QByteArray(PQcmdTuples(result.get())) != "0";
}

bool PostgresDatabase::DeleteRow(const QString& table, qlonglong key)
{
    Step step{"DELETE FROM " + PostgresName(table) + " WHERE " + KeyOf(table) + " = $1"};
    step.Parameters.Add(key, "INTEGER");
    const PostgresResult result = RunChange(step);
    return QByteArray(PQcmdTuples(result.get())) != "0";
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
