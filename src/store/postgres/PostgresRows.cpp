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

/// Hands over the rows that a cursor's statement has found.
void TakeRows(const CursorShape& shape, const PGresult* result,
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
        take(std::move(row));
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

PostgresDatabase::Step PostgresDatabase::ReadStep(const CursorShape& shape)
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
    return step;
}

void PostgresDatabase::ReadRows(const CursorShape& shape, const TakeCursorRow& take)
{
    const Step step = ReadStep(shape);
    auto failed = qScopeGuard([this] { NoteFailure(); });
    const PostgresResult result = m_connection.Run(step);
    failed.dismiss();
    TakeRows(shape, result.get(), take);
}

std::vector<CursorRows> PostgresDatabase::ReadAll(const std::vector<const CursorShape*>& shapes)
{
    std::vector<Step> steps;
    for (const CursorShape* shape : shapes)
        steps.push_back(ReadStep(*shape));
    if (steps.empty())
        return {};
    auto failed = qScopeGuard([this] { NoteFailure(); });
    const std::vector<PostgresResult> found = m_connection.RunAll(steps);
    failed.dismiss();
    std::vector<CursorRows> results(found.size());
    for (std::size_t i = 0; i < found.size(); ++i)
        TakeRows(*shapes[i], found[i].get(),
                 [&](CursorRow&& row) { results[i].push_back(std::move(row)); });
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

} // namespace vantrel
