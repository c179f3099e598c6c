#include "store/StoreCopy.h"
#include "base/Failure.h"
#include "base/Skip.h"
#include "store/LayoutTables.h"
#include "store/StoreDatabase.h"
#include "store/StoreTransaction.h"
#include <QScopeGuard>
#include <algorithm>
#include <optional>

namespace vantrel {

namespace {

constexpr int RowsAtATime = 500;

QString NameOf(const StoreTable& table)
{
    return QString(QLatin1StringView(table.Name));
}

QString KeyOf(const std::vector<StoreColumn>& columns)
{
    const auto key = std::find_if(columns.begin(), columns.end(),
                                  [](const StoreColumn& column) { return column.IsKey; });
    return key == columns.end() ? QStringLiteral("rowid") : key->Name;
}

/// The next rows of a table of layouts, whose columns may hold values of any type.
CursorShape RowsBehind(const QString& table, const std::vector<StoreColumn>& columns,
                       std::optional<qlonglong> behind)
{
    SelectStatement select;
    select.Table = table;
    select.Limit = RowsAtATime;
    if (behind) {
        const QString key = KeyOf(columns);
        const QString number = QString::number(*behind);
        select.Where = QLatin1Char('[') + key + QStringLiteral("] > ") + number;
        select.Conditions.push_back({key, true, false, number});
    }
    return {select, columns};
}

void CopyLayoutTable(StoreDatabase& from, StoreDatabase& to, const QString& table)
{
    const std::vector<StoreColumn> columns = from.ColumnsOf(table);
    const QString targetKey = KeyOf(to.ColumnsOf(table));
    std::optional<qlonglong> behind;
    std::vector<QVariantList> rows;
    do {
        const CursorShape shape = RowsBehind(table, columns, behind);
        QStringList names{targetKey};
        for (const CursorShape::Column& column : shape.Columns())
            if (column.Name.compare(targetKey, Qt::CaseInsensitive) != 0)
                names.append(column.Name);
        rows.clear();
        from.ReadRows(shape, [&](CursorRow&& row) {
            if (shape.KeyColumn() >= 0)
                row.Values.removeAt(shape.KeyColumn());
            row.Values.prepend(row.Key);
            behind = row.Key;
            rows.push_back(std::move(row.Values));
        });
        to.InsertRows(table, names, rows);
    } while (!rows.empty());
}

/// Copies a table whose first column is its key.
void CopyPlainTable(StoreDatabase& from, StoreDatabase& to, const StoreTable& table)
{
    QStringList names;
    for (const StoreColumnRow& column : table.Columns)
        names.append(QString(QLatin1StringView(column.Name)));
    const QString select =
        QStringLiteral("SELECT %1 FROM %2").arg(names.join(QStringLiteral(", ")), NameOf(table));
    const QString order = QStringLiteral(" ORDER BY %1 LIMIT ?").arg(names.first());
    const QString first = select + order;
    const QString next = select + QStringLiteral(" WHERE %1 > ?").arg(names.first()) + order;
    QVariant behind;
    std::vector<QVariantList> rows;
    do {
        rows.clear();
        const bool isFirst = behind.isNull();
        from.Select(isFirst ? first : next,
                    isFirst ? QVariantList{RowsAtATime} : QVariantList{behind, RowsAtATime},
                    [&](const StoreRow& row) {
                        QVariantList& values = rows.emplace_back();
                        for (int column = 0; column < names.size(); ++column)
                            values.append(row.Value(column));
                        behind = values.first();
                    });
        to.InsertRows(NameOf(table), names, rows);
    } while (!rows.empty());
}

void CopyTable(StoreDatabase& from, StoreDatabase& to, const StoreTable& table)
{
    const QString name = NameOf(table);
    if (from.ColumnsOf(name).empty())
        return;
    to.Change(QStringLiteral("DELETE FROM ") + name);
    if (table.HoldsAnyValue)
        CopyLayoutTable(from, to, name);
    else
        CopyPlainTable(from, to, table);
    if (table.Columns.front().Type == StoreType::Counter)
        to.ContinueKeys(name);
}

void RefuseUsed(StoreDatabase& to, std::span<const StoreTable> tables)
{
    for (const StoreTable& table : tables) {
        const QString name = NameOf(table);
        // A fresh store has its printer types.
        if (name == QStringLiteral("PrinterTypes") || to.ColumnsOf(name).empty())
            continue;
        if (!to.Execute(QStringLiteral("SELECT 1 FROM %1 LIMIT 1").arg(name)).isNull())
            throw Failure(FailureNumber::InvalidCall,
                          QStringLiteral("The target is in use: its table %1 has rows. Nothing is "
                                         "copied.")
                              .arg(name));
    }
}

} // namespace

void CopyStore(StoreDatabase& from, StoreDatabase& to, std::span<const StoreTable> tables)
{
    from.BeginReading();
    const auto end = qScopeGuard([&] { Skip("end of reading", [&] { from.Rollback(); }); });
    StoreTransaction transaction(to);
    RefuseUsed(to, tables);
    for (const StoreTable& table : tables)
        CopyTable(from, to, table);
    transaction.Commit();
}

} // namespace vantrel
