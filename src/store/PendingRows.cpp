#include "store/PendingRows.h"
#include "base/StoredForm.h"
#include "store/sqlite/SqliteDatabase.h"
#include <algorithm>

namespace vantrel {

namespace {

/// Keys from here on mark rows that are not in the database yet; they sort after all stored rows.
constexpr qlonglong FirstUnstoredKey = qlonglong{1} << 62;

bool SameTable(const SelectStatement& one, const SelectStatement& other)
{
    return one.Table.compare(other.Table, Qt::CaseInsensitive) == 0;
}

/// A cursor on all columns of the rows that a statement selects.
CursorShape WholeRows(StoreDatabase& database, const SelectStatement& select)
{
    SelectStatement whole;
    whole.Table = select.Table;
    whole.Where = select.Where;
    whole.Conditions = select.Conditions;
    return {whole, database.ColumnsOf(select.Table)};
}

std::map<qlonglong, QVariantList> StoredRows(StoreDatabase& database, const SelectStatement& select)
{
    std::map<qlonglong, QVariantList> rows;
    database.ReadRows(WholeRows(database, select),
                      [&](CursorRow&& row) { rows.emplace(row.Key, std::move(row.Values)); });
    return rows;
}

bool SameRow(const QVariantList& left, const QVariantList& right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(), SameStored);
}

/// Names of the columns that hold a value of their own, and their indexes in the shape.
struct ValueColumns
{
    QStringList Names{QStringLiteral("rowid")};
    std::vector<qsizetype> Indexes;

    explicit ValueColumns(const CursorShape& shape)
    {
        for (std::size_t i = 0; i < shape.Columns().size(); ++i) {
            if (static_cast<int>(i) == shape.KeyColumn())
                continue;
            Names.append(shape.Columns()[i].Name);
            Indexes.push_back(static_cast<qsizetype>(i));
        }
    }

    QVariantList ValuesOf(const CursorRow& row) const
    {
        QVariantList values{row.Key};
        for (const qsizetype index : Indexes)
            values.append(row.Values[index]);
        return values;
    }
};

/// A table in memory that answers every statement about the rows it is given.
class TableInMemory
{
public:
    TableInMemory(StoreDatabase& database, const CursorShape& whole) : m_table(whole.Select().Table)
    {
        QStringList columns;
        for (const StoreColumn& column : database.ColumnsOf(m_table))
            columns.append(QLatin1Char('[') + column.Name + QStringLiteral("] ") +
                           QString::fromUtf8(column.Type) +
                           (column.IsKey ? QStringLiteral(" PRIMARY KEY") : QString()));
        m_rows.Execute(QStringLiteral("CREATE TABLE [%1] (%2)")
                           .arg(m_table, columns.join(QStringLiteral(", "))));
        m_rows.Begin();
    }

    void Add(const CursorShape& shape, const CursorRow& row)
    {
        const ValueColumns columns(shape);
        m_rows.InsertRow(m_table, columns.Names, columns.ValuesOf(row), nullptr);
    }

    CursorRows Read(const CursorShape& shape)
    {
        CursorRows rows;
        m_rows.ReadRows(shape, [&](CursorRow&& row) { rows.push_back(std::move(row)); });
        return rows;
    }

private:
    QString m_table;
    SqliteDatabase m_rows{QStringLiteral(":memory:"), SqliteDatabase::OpenMode::Create};
};

} // namespace

bool PendingRows::Concerns(const SelectStatement& select) const
{
    return std::any_of(m_pages.begin(), m_pages.end(),
                       [&](const Page& page) { return SameTable(page.Select, select); });
}

PendingRows::Page* PendingRows::Find(const QString& statement)
{
    const auto found = std::find_if(m_pages.begin(), m_pages.end(),
                                    [&](const Page& page) { return page.Statement == statement; });
    return found == m_pages.end() ? nullptr : &*found;
}

void PendingRows::NoteForRollback(const StoreDatabase& database)
{
    if (database.InTransaction() && !m_before)
        m_before = m_pages;
}

QSet<qlonglong> PendingRows::HiddenKeys(const QString& table) const
{
    QSet<qlonglong> keys;
    for (const Page& page : m_pages) {
        if (page.Select.Table.compare(table, Qt::CaseInsensitive) != 0)
            continue;
        for (const auto& [key, values] : page.Hidden)
            keys.insert(key);
    }
    return keys;
}

qlonglong PendingRows::HighestSeenKey(const QString& table, const Page* without) const
{
    qlonglong highest = 0;
    for (const Page& page : m_pages) {
        if (&page == without || page.Select.Table.compare(table, Qt::CaseInsensitive) != 0)
            continue;
        for (const CursorRow& row : page.Seen)
            highest = std::max(highest, row.Key);
    }
    return highest;
}

void PendingRows::Keep(StoreDatabase& database, const CursorResult& seen, const QString& statement)
{
    const SelectStatement& select = seen.Shape->Select();
    std::map<qlonglong, QVariantList> hidden = StoredRows(database, select);
    Page* page = Find(statement);
    // Another session may by now have given a new row's key to a row of its own, and another page
    // whose save failed may have a new row with the same key.
    const qlonglong behind = std::max(FirstUnstoredKey, HighestSeenKey(select.Table, page));
    QSet<qlonglong> others = HiddenKeys(select.Table);
    if (page == nullptr)
        page = &m_pages.emplace_back(Page{statement, select, false, {}, {}});
    for (const auto& [key, values] : page->Hidden)
        others.remove(key);
    page->Hidden = std::move(hidden);
    page->Seen = *seen.Rows;
    for (CursorRow& row : page->Seen) {
        const bool isStored = page->Hidden.contains(row.Key) || others.contains(row.Key);
        if (!isStored && row.Key < FirstUnstoredKey)
            row.Key += behind;
        if (seen.Shape->KeyColumn() >= 0)
            row.Values[seen.Shape->KeyColumn()] = row.Key;
    }
}

bool PendingRows::BeforeReading(StoreDatabase& database, const SelectStatement& select,
                                const QString& statement)
{
    // Only a query for the whole page or the whole layout loads the page. Other queries must not
    // make the rest of a page visible again while the form shows a part of it.
    if (database.InTransaction() || select.Distinct)
        return false;
    const auto othersHaveWritten = [&](const Page& page) {
        const std::map<qlonglong, QVariantList> stored = StoredRows(database, page.Select);
        return !std::all_of(page.Hidden.begin(), page.Hidden.end(), [&](const auto& row) {
            const auto now = stored.find(row.first);
            return now != stored.end() && SameRow(now->second, row.second);
        });
    };
    bool isOther = false;
    for (std::size_t i = m_pages.size(); i-- > 0;) {
        Page& page = m_pages[i];
        if (!SameTable(page.Select, select) || !page.Statement.startsWith(statement))
            continue;
        if (othersHaveWritten(page)) {
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
        Forget();
        return true;
    }
    NoteForRollback(database);
    Page* page = Find(statement);
    if (page == nullptr)
        return false;
    if (page->IsLeft) {
        // Hidden rows that the form does not hold have no counterpart among those that are seen.
        for (const CursorRow& row : page->Seen)
            page->Hidden.erase(row.Key);
    } else {
        page->Hidden.clear();
    }
    page->Seen.clear();
    return true;
}

CursorRows PendingRows::Read(StoreDatabase& database, const CursorShape& shape) const
{
    const SelectStatement& select = shape.Select();
    const CursorShape whole = WholeRows(database, select);
    const QSet<qlonglong> hidden = HiddenKeys(select.Table);
    TableInMemory table(database, whole);
    database.ReadRows(whole, [&](CursorRow&& row) {
        if (!hidden.contains(row.Key))
            table.Add(whole, row);
    });
    for (const Page& page : m_pages) {
        if (!SameTable(page.Select, select))
            continue;
        const CursorShape ofPage(page.Select, database.ColumnsOf(select.Table));
        for (const CursorRow& row : page.Seen)
            table.Add(ofPage, row);
    }
    return table.Read(shape);
}

void PendingRows::Leave()
{
    for (Page& page : m_pages)
        page.IsLeft = true;
}

void PendingRows::AfterCommit()
{
    m_before.reset();
    std::erase_if(m_pages,
                  [](const Page& page) { return page.Hidden.empty() && page.Seen.empty(); });
}

void PendingRows::AfterRollback()
{
    if (m_before)
        m_pages = std::move(*m_before);
    m_before.reset();
}

void PendingRows::Forget()
{
    m_pages.clear();
    m_before.reset();
}

} // namespace vantrel
