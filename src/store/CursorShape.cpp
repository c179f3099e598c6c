#include "store/CursorShape.h"
#include "base/Failure.h"
#include "store/StoreStatement.h"
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

CursorShape::CursorShape(SelectStatement select, QString keyColumn)
    : m_select(std::move(select)), m_sql(m_select.Sql()), m_keyName(std::move(keyColumn))
{}

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

void CursorShape::TakeColumns(const StoreStatement& rows)
{
    for (int place = HasKey() ? 1 : 0; place < rows.ColumnCount(); ++place) {
        const QString name = rows.ColumnName(place);
        if (SameName(name, HiddenKey) || SameName(name, StoresKey))
            continue;
        const int column = static_cast<int>(m_columns.size());
        if (HasKey() && SameName(name, m_keyName))
            m_keyColumn = column;
        m_columnOfName.insert(name, column);
        m_columns.push_back({name, place, rows.DeclaredType(place)});
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
