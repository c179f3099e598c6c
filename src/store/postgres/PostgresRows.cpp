#include "base/Failure.h"
#include "store/LayoutTables.h"
#include "store/postgres/OddValues.h"
#include "store/postgres/PostgresDatabase.h"
#include "store/postgres/PostgresSql.h"
#include <QJsonDocument>
#include <QScopeGuard>
#include <algorithm>

// Reading and changing the rows of cursors; PostgresDatabase.cpp has statements and transactions.

namespace vantrel {

namespace {

constexpr const char* RowSavepoint = "vantrelrow";

/// How often rows are asked for in one look while others write them.
constexpr int MostRounds = 5;

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

/// What a row says of its place and of the transaction that wrote it, which are not those of any
/// earlier or later form of it as long as the same server is asked. Only tables that are rewritten
/// as a whole have other ones without a change.
constexpr const char* VersionOfRow = "concat(ctid, ' ', xmin)";

/// Hands over the rows that a cursor's statement has found.
/// @param era  what versions begin with; empty if they tell nothing
void TakeRows(const CursorShape& shape, const PGresult* result, const QByteArray& era,
              const StoreDatabase::TakeCursorRow& take)
{
    const auto count = static_cast<int>(shape.Columns().size());
    const int first = shape.HasKey() ? 1 : 0;
    for (int at = 0; at < PQntuples(result); ++at) {
        CursorRow row;
        if (shape.HasKey())
            row.Key = PostgresValue(result, at, 0).toLongLong();
        row.Values.reserve(count);
        for (int column = 0; column < count; ++column)
            row.Values.append(PostgresValue(result, at, first + column));
        if (shape.HasKey() && PQgetisnull(result, at, first + count) == 0)
            TakeOddValues(shape, PostgresValue(result, at, first + count), row.Values);
        const int last = PQnfields(result) - 1;
        if (!era.isEmpty())
            row.Version = era + PQgetvalue(result, at, last);
        take(std::move(row));
    }
}

/// Whether rows can be compared with those that a connection of that era finds.
bool AreOfEra(const CursorRows& rows, const QByteArray& era)
{
    return !era.isEmpty() && (rows.empty() || rows.front().Version.startsWith(era));
}

std::vector<StoreDatabase::KnownRows> Chosen(const std::vector<StoreDatabase::KnownRows>& known,
                                             const std::vector<std::size_t>& places)
{
    std::vector<StoreDatabase::KnownRows> chosen;
    chosen.reserve(places.size());
    for (const std::size_t place : places)
        chosen.push_back(known[place]);
    return chosen;
}

/// Whether the keys and versions that the server tells now are those of the rows that are known.
std::vector<bool> AreSame(const std::vector<StoreDatabase::KnownRows>& known, const PGresult* told,
                          const QByteArray& era)
{
    std::vector<bool> same(known.size(), true);
    std::vector<std::size_t> met(known.size());
    for (int at = 0; at < PQntuples(told); ++at) {
        const auto index = static_cast<std::size_t>(PostgresValue(told, at, 0).toLongLong());
        const CursorRows& rows = *known[index].Rows;
        const std::size_t place = met[index]++;
        same[index] = same[index] && place < rows.size() &&
                      rows[place].Key == PostgresValue(told, at, 1).toLongLong() &&
                      rows[place].Version == era + PQgetvalue(told, at, 2);
    }
    for (std::size_t i = 0; i < known.size(); ++i)
        same[i] = same[i] && met[i] == known[i].Rows->size();
    return same;
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

PostgresResult PostgresDatabase::RunChange(const Step& step)
{
    if (!InTransaction())
        return Locked(StoreLock::OfStore(), [&] { return m_connection.Run(step); });
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

QByteArrayList PostgresDatabase::ColumnsRead(const CursorShape& shape)
{
    QByteArrayList columns;
    for (const CursorShape::Column& column : shape.Columns())
        columns.append(PostgresName(column.Name));
    if (shape.HasKey()) {
        columns.prepend(KeyOf(shape.Select().Table));
        return columns << OddColumn << VersionOfRow;
    }
    // Of rows without keys, their values themselves tell whether they are the same.
    const QByteArray values = "ROW(" + columns.join(", ") + ")::text AS version";
    return columns << values;
}

PostgresDatabase::Step PostgresDatabase::ReadStep(const CursorShape& shape)
{
    const SelectStatement& select = shape.Select();
    const QByteArray key = shape.HasKey() ? KeyOf(select.Table) : QByteArray();
    const PostgresCondition where = PostgresWhere(select, ColumnsOf(select.Table), 1);
    Step step{(shape.HasKey() ? QByteArray("SELECT ") : QByteArray("SELECT DISTINCT ")) +
              ColumnsRead(shape).join(", ") + " FROM " + PostgresName(select.Table) + where.Sql +
              PostgresOrder(select, key)};
    for (const auto& [value, type] : where.Values)
        step.Parameters.Add(value, type);
    return step;
}

PostgresDatabase::Step PostgresDatabase::VersionsStep(const std::vector<KnownRows>& known)
{
    Step step;
    QByteArrayList reads;
    for (const KnownRows& one : known) {
        const SelectStatement& select = one.Shape->Select();
        const PostgresCondition where =
            PostgresWhere(select, ColumnsOf(select.Table), step.Parameters.Count() + 1);
        for (const auto& [value, type] : where.Values)
            step.Parameters.Add(value, type);
        const QByteArray from = " FROM " + PostgresName(select.Table) + where.Sql;
        const QByteArray index = QByteArray::number(reads.size());
        if (one.Shape->HasKey()) {
            const QByteArray key = KeyOf(select.Table);
            reads.append("(SELECT " + index + " AS i, " + key + " AS k, " + VersionOfRow + " AS v" +
                         from + PostgresOrder(select, key) + ')');
            continue;
        }
        reads.append("(SELECT " + index + ", 0::bigint, version FROM (SELECT DISTINCT " +
                     ColumnsRead(*one.Shape).join(", ") + from + PostgresOrder(select, {}) +
                     ") AS found" + index + ')');
    }
    step.Sql = reads.join(" UNION ALL ");
    return step;
}

void PostgresDatabase::ReadRows(const CursorShape& shape, const TakeCursorRow& take)
{
    auto failed = qScopeGuard([this] { NoteFailure(); });
    const QByteArray era = m_connection.Era();
    const PostgresResult result = m_connection.Run(ReadStep(shape));
    failed.dismiss();
    TakeRows(shape, result.get(), era, take);
}

// While some rows are read anew, others may be written by the same save, so that those are asked
// for once more at the same time.
std::vector<std::optional<CursorRows>>
PostgresDatabase::ReadChanged(const std::vector<KnownRows>& known)
{
    std::vector<std::optional<CursorRows>> results(known.size());
    if (known.empty())
        return results;
    auto failed = qScopeGuard([this] { NoteFailure(); });
    // Rows of a connection that is made meanwhile belong to a later one, and are read anew then.
    const QByteArray era = m_connection.Era();
    std::vector<KnownRows> present = known;
    std::vector<std::size_t> unread;
    for (std::size_t i = 0; i < known.size(); ++i)
        if (known[i].Rows == nullptr || !AreOfEra(*known[i].Rows, era))
            unread.push_back(i);
    for (int round = 0; round == 0 || !unread.empty(); ++round) {
        std::vector<std::size_t> asked;
        for (std::size_t i = 0; i < known.size() && round < MostRounds; ++i)
            if (!std::binary_search(unread.begin(), unread.end(), i))
                asked.push_back(i);
        std::vector<Step> steps;
        if (!asked.empty())
            steps.push_back(VersionsStep(Chosen(present, asked)));
        for (const std::size_t place : unread)
            steps.push_back(ReadStep(*known[place].Shape));
        const std::vector<PostgresResult> found = m_connection.RunAll(steps);
        auto next = found.end() - std::ssize(unread);
        for (const std::size_t place : unread) {
            CursorRows& rows = results[place].emplace();
            TakeRows(*known[place].Shape, (next++)->get(), era,
                     [&](CursorRow&& row) { rows.push_back(std::move(row)); });
            present[place].Rows = &rows;
        }
        unread.clear();
        if (asked.empty())
            break;
        const std::vector<bool> same =
            AreSame(Chosen(present, asked), found.front().get(), m_connection.Era());
        for (std::size_t i = 0; i < asked.size(); ++i)
            if (!same[i])
                unread.push_back(asked[i]);
    }
    failed.dismiss();
    return results;
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
    steps.reserve(rows.size());
    for (const QVariantList& values : rows)
        steps.push_back(InsertStep(table, columns, values, nullptr));
    Locked(StoreLock::OfStore(), [&] { return m_connection.RunAll(steps).size(); });
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

std::optional<CursorRow> PostgresDatabase::UpdateRow(const CursorShape& shape, qlonglong key,
                                                     const QStringList& columns,
                                                     const QVariantList& values)
{
    const QString& table = shape.Select().Table;
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
    // One that was made meanwhile has another era, so that the row is read anew.
    const QByteArray era = m_connection.Era();
    const QByteArray sql = "UPDATE " + PostgresName(table) + " SET " + settings.join(", ") +
                           " WHERE " + KeyOf(table) + " = $" +
                           QByteArray::number(row.Parameters.Count());
    const PostgresResult result =
        RunChange({sql + " RETURNING " + ColumnsRead(shape).join(", "), std::move(row.Parameters)});
    std::optional<CursorRow> stored;
    TakeRows(shape, result.get(), era, [&](CursorRow&& one) { stored = std::move(one); });
    return stored;
}

bool PostgresDatabase::DeleteRow(const QString& table, qlonglong key)
{
    Step step{"DELETE FROM " + PostgresName(table) + " WHERE " + KeyOf(table) + " = $1"};
    step.Parameters.Add(key, "INTEGER");
    const PostgresResult result = RunChange(step);
    return QByteArray(PQcmdTuples(result.get())) != "0";
}

} // namespace vantrel
