#include "store/PendingRows.h"
#include <algorithm>

namespace vantrel {

namespace {

/// Keys from here on mark rows that are not in the file yet; they sort after all stored rows.
constexpr qlonglong FirstUnstoredKey = qlonglong{1} << 62;

bool SameTable(const SelectStatement& one, const SelectStatement& other)
{
    return one.Table.compare(other.Table, Qt::CaseInsensitive) == 0;
}

QString Temporary(const char* kind, const SelectStatement& select)
{
    return QStringLiteral("temp.[") + QLatin1StringView(kind) + QLatin1Char(' ') + select.Table +
           QLatin1Char(']');
}

QString Base(const SelectStatement& select)
{
    return Temporary("Base", select);
}

QString Pending(const SelectStatement& select)
{
    return Temporary("Pending", select);
}

QString InFile(const SelectStatement& select)
{
    return QStringLiteral("main.[") + select.Table + QLatin1Char(']');
}

/// The WHERE clause that selects the rows of the statement.
QString Of(const SelectStatement& select)
{
    return QStringLiteral(" WHERE (") +
           (select.Where.isEmpty() ? QStringLiteral("1") : select.Where) + QLatin1Char(')');
}

bool GivesRow(StoreDatabase& database, const QString& sql)
{
    return database.Execute(QStringLiteral("SELECT EXISTS (%1)").arg(sql)).toBool();
}

/// Column declarations of the file's table, so that values keep their types.
QString ColumnsOf(StoreDatabase& database, const SelectStatement& select)
{
    constexpr int nameColumn = 1;
    constexpr int typeColumn = 2;
    constexpr int keyColumn = 5;
    QStringList columns;
    database.Read(
        QStringLiteral("PRAGMA main.table_info([%1])").arg(select.Table),
        [](const StoreStatement&) {},
        [&](const StoreStatement& column) {
            columns.append(QLatin1Char('[') + column.Value(nameColumn).toString() +
                           QStringLiteral("] ") + column.Value(typeColumn).toString() +
                           (column.Value(keyColumn).toInt() == 1 ? QStringLiteral(" PRIMARY KEY")
                                                                 : QString()));
        });
    return columns.join(QStringLiteral(", "));
}

void MakeTables(StoreDatabase& database, const SelectStatement& select)
{
    const QString columns = ColumnsOf(database, select);
    for (const QString& table : {Base(select), Pending(select)})
        database.Execute(QStringLiteral("CREATE TABLE IF NOT EXISTS %1 (%2)").arg(table, columns));
    // The key comes last, so that the other columns keep the indexes they have in the file's table.
    database.Execute(QStringLiteral("CREATE TEMP VIEW IF NOT EXISTS [%1] AS "
                                    "SELECT *, rowid AS rowid FROM %2 WHERE rowid NOT IN "
                                    "(SELECT rowid FROM %3) "
                                    "UNION ALL SELECT *, rowid FROM %4")
                         .arg(select.Table, InFile(select), Base(select), Pending(select)));
}

void DropTables(StoreDatabase& database, const SelectStatement& select)
{
    database.Execute(QStringLiteral("DROP VIEW IF EXISTS temp.[%1]").arg(select.Table));
    for (const QString& table : {Base(select), Pending(select)})
        database.Execute(QStringLiteral("DROP TABLE IF EXISTS ") + table);
}

/// Runs the steps in one transaction and rolls it back if one fails.
template <typename Steps>
void InOne(StoreDatabase& database, Steps&& steps)
{
    database.Execute(QStringLiteral("BEGIN"));
    try {
        steps();
        database.Execute(QStringLiteral("COMMIT"));
    } catch (...) {
        if (database.InTransaction())
            database.Execute(QStringLiteral("ROLLBACK"));
        throw;
    }
}

} // namespace

void PendingRows::Uncover(StoreDatabase& database, const SelectStatement& select)
{
    for (const QString& table : {Base(select), Pending(select)})
        database.Execute(QStringLiteral("DELETE FROM ") + table + Of(select));
}

PendingRows::Page* PendingRows::Find(const QString& statement)
{
    const auto found = std::find_if(m_pages.begin(), m_pages.end(),
                                    [&](const Page& page) { return page.Statement == statement; });
    return found == m_pages.end() ? nullptr : &*found;
}

void PendingRows::Fill(StoreDatabase& database, const CursorResult& seen)
{
    const SelectStatement& select = seen.Shape->Select();
    database.Execute(QStringLiteral("INSERT INTO ") + Base(select) +
                     QStringLiteral(" SELECT * FROM ") + InFile(select) + Of(select));

    QStringList names{QStringLiteral("rowid")};
    const std::vector<CursorShape::Column>& columns = seen.Shape->Columns();
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (static_cast<int>(i) != seen.Shape->KeyColumn())
            names.append(QLatin1Char('[') + columns[i].Name + QLatin1Char(']'));
    }
    const QString insert =
        QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
            .arg(Pending(select), names.join(QStringLiteral(", ")),
                 QStringList(names.size(), QStringLiteral("?")).join(QStringLiteral(", ")));
    const qlonglong highest =
        database.Execute(QStringLiteral("SELECT max(rowid) FROM ") + Pending(select)).toLongLong();
    for (const CursorRow& row : *seen.Rows) {
        QVariantList values = row.Values;
        if (seen.Shape->KeyColumn() >= 0)
            values.removeAt(seen.Shape->KeyColumn());
        values.prepend(row.Key);
        database.Change(insert, values);
    }
    // Another session may by now have given a new row's key to a row of its own, and another page
    // whose save failed may have a new row with the same key.
    database.Change(QStringLiteral("UPDATE %1 SET rowid = rowid + ?%2 AND rowid < ? AND rowid NOT "
                                   "IN (SELECT rowid FROM %3)")
                        .arg(Pending(select), Of(select), Base(select)),
                    {std::max(FirstUnstoredKey, highest), FirstUnstoredKey});
}

void PendingRows::Keep(StoreDatabase& database, const CursorResult& seen, const QString& statement)
{
    const SelectStatement& select = seen.Shape->Select();
    InOne(database, [&] {
        MakeTables(database, select);
        Uncover(database, select);
        Fill(database, seen);
    });
    if (Find(statement) == nullptr)
        m_pages.push_back({statement, select});
}

bool PendingRows::OtherHasWritten(StoreDatabase& database, const Page& page) const
{
    return GivesRow(database, QStringLiteral("SELECT * FROM %1%2 EXCEPT SELECT * FROM %3%2")
                                  .arg(Base(page.Select), Of(page.Select), InFile(page.Select)));
}

bool PendingRows::BeforeReading(StoreDatabase& database, const SelectStatement& select,
                                const QString& statement)
{
    // Only a query for the whole page or the whole layout loads the page. Other queries must not
    // make the rest of a page visible again while the form shows a part of it.
    if (database.InTransaction() || select.Distinct)
        return false;
    bool isOther = false;
    for (std::size_t i = m_pages.size(); i-- > 0;) {
        Page& page = m_pages[i];
        if (!SameTable(page.Select, select) || !page.Statement.startsWith(statement))
            continue;
        if (OtherHasWritten(database, page)) {
            InOne(database, [&] { Uncover(database, page.Select); });
            m_pages.erase(m_pages.begin() + static_cast<std::ptrdiff_t>(i));
            isOther = true;
        } else if (page.Statement == statement) {
            page.IsLeft = true;
        }
    }
    return isOther;
}

bool PendingRows::BeforeChanging(StoreDatabase& database, const SelectStatement& select,
                                 const QString& statement)
{
    const auto isOfTable = [&](const Page& page) { return SameTable(page.Select, select); };
    if (!database.InTransaction()) {
        if (std::none_of(m_pages.begin(), m_pages.end(), isOfTable))
            return false;
        GiveUp(database);
        return true;
    }
    const Page* page = Find(statement);
    if (page == nullptr)
        return false;
    if (page->IsLeft) {
        // Hidden rows that the form does not hold have no counterpart in the other table.
        database.Execute(QStringLiteral("DELETE FROM %1%2 AND rowid IN (SELECT rowid FROM %3)")
                             .arg(Base(select), Of(select), Pending(select)));
        database.Execute(QStringLiteral("DELETE FROM ") + Pending(select) + Of(select));
    } else {
        Uncover(database, select);
    }
    return true;
}

void PendingRows::Leave()
{
    for (Page& page : m_pages)
        page.IsLeft = true;
}

void PendingRows::AfterCommit(StoreDatabase& database)
{
    const auto isSaved = [&](const Page& page) {
        const QString rows = QStringLiteral("SELECT 1 FROM %1%2");
        return !GivesRow(database, rows.arg(Base(page.Select), Of(page.Select))) &&
               !GivesRow(database, rows.arg(Pending(page.Select), Of(page.Select)));
    };
    if (IsEmpty())
        return;
    if (std::all_of(m_pages.begin(), m_pages.end(), isSaved))
        GiveUp(database);
    else
        std::erase_if(m_pages, isSaved);
}

void PendingRows::GiveUp(StoreDatabase& database)
{
    for (const Page& page : m_pages)
        DropTables(database, page.Select);
    m_pages.clear();
}

} // namespace vantrel
