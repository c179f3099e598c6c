#include "store/CursorShape.h"
#include "base/Failure.h"
#include <algorithm>
#include <cmath>

namespace vantrel {

namespace {
constexpr QStringView HiddenKey = u"RowKey";
/// SQLite's name for the row key of any table; a view lists it among its columns.
constexpr QStringView StoresKey = u"rowid";

bool SameName(QStringView left, QStringView right)
{
    return left.compare(right, Qt::CaseInsensitive) == 0;
}
} // namespace

CursorShape::CursorShape(SelectStatement select, const std::vector<StoreColumn>& table)
    : m_select(std::move(select))
{
    int place = HasKey() ? 1 : 0;
    if (m_select.Columns.isEmpty()) {
        for (const StoreColumn& column : table)
            Add(column, place++);
        return;
    }
    for (const QString& name : std::as_const(m_select.Columns)) {
        const auto found = std::find_if(table.begin(), table.end(), [&](const StoreColumn& column) {
            return SameName(column.Name, name);
        });
        if (found != table.end())
            Add(*found, place++);
        else if (SameName(name, StoresKey))
            ++place;
        else
            throw Failure(FailureNumber::StatementInvalid,
                          QStringLiteral("The layout database: no such column: ") + name);
    }
}

void CursorShape::Add(const StoreColumn& column, int place)
{
    if (SameName(column.Name, HiddenKey) || SameName(column.Name, StoresKey))
        return;
    const int index = static_cast<int>(m_columns.size());
    if (HasKey() && column.IsKey)
        m_keyColumn = index;
    m_columnOfName.insert(column.Name, index);
    m_columns.push_back({column.Name, place, column.Type});
}

bool CursorShape::Column::GivesBack(const QVariant& value) const
{
    switch (value.typeId()) {
    case QMetaType::UnknownType:
        return true;
    case QMetaType::QString:
        return IsText();
    case QMetaType::LongLong:
        return Type == "INTEGER";
    case QMetaType::Double:
        return Type == "REAL" && !std::isnan(value.toDouble());
    default:
        return false;
    }
}

bool CursorShape::DependsOn(const QString& column) const
{
    // A match inside another name or a text also counts; it only costs an unnecessary query.
    const auto names = [&](const QString& text) {
        return text.contains(column, Qt::CaseInsensitive);
    };
    const QStringList& columns = m_select.Columns;
    return names(m_select.Where) ||
           std::any_of(m_select.OrderBy.cbegin(), m_select.OrderBy.cend(), names) ||
           (m_select.Distinct &&
            (columns.isEmpty() || columns.contains(column, Qt::CaseInsensitive)));
}

int CursorShape::Find(const QString& name) const
{
    const bool bracketed = name.startsWith(u'[') && name.endsWith(u']');
    const int place = PlaceOf(bracketed ? name.sliced(1, name.size() - 2) : name);
    if (place >= 0)
        return place;
    throw Failure(FailureNumber::ItemNotFound,
                  QStringLiteral("The cursor has no column named ") + name + QLatin1Char('.'));
}

int CursorShape::PlaceOf(const QString& name) const
{
    // Nearly always the name is spelled exactly as in the table.
    if (const auto found = m_columnOfName.constFind(name); found != m_columnOfName.cend())
        return *found;
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
        if (SameName(m_columns[i].Name, name))
            return static_cast<int>(i);
    }
    return -1;
}

} // namespace vantrel
