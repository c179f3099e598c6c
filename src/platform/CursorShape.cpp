#include "platform/CursorShape.h"
#include "platform/Failure.h"
#include <QMetaType>
#include <QSqlField>
#include <QSqlRecord>

namespace vantrel {

namespace {
constexpr QStringView HiddenKey = u"RowKey";

bool SameName(QStringView left, QStringView right)
{
    return left.compare(right, Qt::CaseInsensitive) == 0;
}
} // namespace

CursorShape::CursorShape(SelectStatement select, QString keyColumn)
    : m_select(std::move(select)), m_sql(m_select.Sql()), m_keyName(std::move(keyColumn))
{}

void CursorShape::TakeColumns(const QSqlRecord& record)
{
    for (int place = HasKey() ? 1 : 0; place < record.count(); ++place) {
        const QSqlField field = record.field(place);
        if (SameName(field.name(), HiddenKey))
            continue;
        const int column = static_cast<int>(m_columns.size());
        if (HasKey() && SameName(field.name(), m_keyName))
            m_keyColumn = column;
        m_columnOfName.insert(field.name(), column);
        m_columns.push_back({field.name(), place, field.metaType().id() == QMetaType::QString});
    }
}

int CursorShape::Find(const QString& name) const
{
    // Nearly always the name comes just as the table has it.
    if (const auto found = m_columnOfName.constFind(name); found != m_columnOfName.cend())
        return *found;
    QStringView plain = name;
    if (plain.startsWith(u'[') && plain.endsWith(u']'))
        plain = plain.sliced(1, plain.size() - 2);
    for (std::size_t i = 0; i < m_columns.size(); ++i)
        if (SameName(m_columns[i].Name, plain))
            return static_cast<int>(i);
    throw Failure(FailureNumber::ItemNotFound,
                  QStringLiteral("The cursor has no column named ") + name + QLatin1Char('.'));
}

} // namespace vantrel
