#include "store/sqlite/SqliteTables.h"

namespace vantrel {

namespace {

QString Bracketed(const QString& name)
{
    return QLatin1Char('[') + name + QLatin1Char(']');
}

QString Bracketed(const char* name)
{
    return Bracketed(QString(QLatin1StringView(name)));
}

QLatin1StringView TypeName(StoreType type)
{
    switch (type) {
    case StoreType::Text:
        return QLatin1StringView("TEXT");
    case StoreType::Whole:
        return QLatin1StringView("INTEGER");
    case StoreType::Real:
        return QLatin1StringView("REAL");
    case StoreType::Bytes:
        return QLatin1StringView("BLOB");
    case StoreType::Counter:
        break;
    }
    return QLatin1StringView("INTEGER PRIMARY KEY AUTOINCREMENT");
}

QString Declaration(const StoreColumnRow& column)
{
    QString text = Bracketed(column.Name) + QLatin1Char(' ') + TypeName(column.Type);
    if (column.Null == StoreNull::Refused)
        text += QStringLiteral(" NOT NULL");
    if (column.IsKey)
        text += QStringLiteral(" PRIMARY KEY");
    return text;
}

QString Placeholders(qsizetype count)
{
    return QStringList(count, QStringLiteral("?")).join(QStringLiteral(", "));
}

} // namespace

QString SqliteTable(const StoreTable& table)
{
    QStringList columns;
    for (const StoreColumnRow& column : table.Columns)
        columns.append(Declaration(column));
    return QStringLiteral("CREATE TABLE IF NOT EXISTS ") + Bracketed(table.Name) +
           QStringLiteral(" (") + columns.join(QStringLiteral(", ")) + QLatin1Char(')');
}

QString SqliteIndex(const StoreTable& table, const StoreIndex& index)
{
    QStringList columns;
    for (const QString& column : QString(QLatin1StringView(index.Columns)).split(u','))
        columns.append(Bracketed(column.trimmed()));
    QString sql = QStringLiteral("CREATE %1INDEX IF NOT EXISTS ")
                      .arg(index.IsUnique ? QStringLiteral("UNIQUE ") : QString()) +
                  Bracketed(index.Name) + QStringLiteral(" ON ") + Bracketed(table.Name) +
                  QStringLiteral(" (") + columns.join(QStringLiteral(", ")) + QLatin1Char(')');
    if (*index.Where != '\0')
        sql += QStringLiteral(" WHERE ") + QLatin1StringView(index.Where);
    return sql;
}

QString SqliteInsert(const QString& table, const QStringList& columns,
                     const SelectStatement* unlessFound)
{
    const QString into = QStringLiteral("INSERT INTO ") + Bracketed(table);
    if (columns.isEmpty())
        return into + QStringLiteral(" DEFAULT VALUES");
    QStringList names;
    for (const QString& column : columns)
        names.append(Bracketed(column));
    const QString values = Placeholders(columns.size());
    QString sql = into + QStringLiteral(" (") + names.join(QStringLiteral(", ")) + QLatin1Char(')');
    if (unlessFound == nullptr)
        return sql + QStringLiteral(" VALUES (") + values + QLatin1Char(')');
    sql += QStringLiteral(" SELECT ") + values +
           QStringLiteral(" WHERE NOT EXISTS (SELECT 1 FROM ") + Bracketed(unlessFound->Table);
    if (!unlessFound->Where.isEmpty())
        sql += QStringLiteral(" WHERE ") + unlessFound->Where;
    return sql + QLatin1Char(')');
}

QString SqliteUpdate(const QString& table, const QStringList& columns)
{
    QStringList settings;
    for (const QString& column : columns)
        settings.append(Bracketed(column) + QStringLiteral(" = ?"));
    return QStringLiteral("UPDATE ") + Bracketed(table) + QStringLiteral(" SET ") +
           settings.join(QStringLiteral(", ")) + QStringLiteral(" WHERE rowid = ?");
}

QString SqliteDelete(const QString& table)
{
    return QStringLiteral("DELETE FROM ") + Bracketed(table) + QStringLiteral(" WHERE rowid = ?");
}

} // namespace vantrel
