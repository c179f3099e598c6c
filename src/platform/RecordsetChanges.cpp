#include "platform/Failure.h"
#include "platform/RecordsetPrivate.h"
#include "platform/StoredForm.h"

// How a cursor changes rows; how it reads them stands beside.

namespace vantrel {

namespace {
QString Placeholders(std::size_t count)
{
    QString marks = QStringLiteral("?");
    for (std::size_t i = 1; i < count; ++i)
        marks += QStringLiteral(", ?");
    return marks;
}
} // namespace

QString Recordset::Private::ColumnSql(int column) const
{
    return QLatin1Char('[') + Shape->Columns()[static_cast<std::size_t>(column)].Name +
           QLatin1Char(']');
}

bool Recordset::Private::Insert(const QString& source)
{
    QStringList columns;
    QVariantList values;
    for (const auto& [column, value] : Changes) {
        columns.append(ColumnSql(column));
        values.append(value);
    }
    const QString names =
        columns.isEmpty()
            ? QString()
            : QStringLiteral(" (") + columns.join(QStringLiteral(", ")) + QLatin1Char(')');
    QSqlQuery& query =
        Store.Opened().Run(QStringLiteral("INSERT INTO ") + TableSql() + names + source, values);
    if (query.numRowsAffected() == 0)
        return false;

    Row row;
    row.Key = query.lastInsertId().toLongLong();
    row.Values.resize(Shape->Columns().size());
    for (const auto& [column, value] : Changes)
        row.Values[static_cast<std::size_t>(column)] = value;
    if (Shape->KeyColumn() >= 0)
        row.Values[static_cast<std::size_t>(Shape->KeyColumn())] = row.Key;
    Rows.push_back(std::move(row));
    At = Rows.size() - 1;
    ++Count;
    CurrentDeleted = false;
    return true;
}

void Recordset::Private::Write()
{
    Row& row = Current();
    QStringList columns;
    QVariantList values;
    for (const auto& [column, value] : Changes) {
        // What the store holds already costs no commit.
        if (SameStored(row.Values[static_cast<std::size_t>(column)], value))
            continue;
        columns.append(ColumnSql(column) + QStringLiteral(" = ?"));
        values.append(value);
    }
    if (columns.isEmpty())
        return;
    values.append(row.Key);
    RunOnRow(QStringLiteral("UPDATE ") + TableSql() + QStringLiteral(" SET ") +
                 columns.join(QStringLiteral(", ")) + QStringLiteral(" WHERE rowid = ?"),
             values);
    for (const auto& [column, value] : Changes)
        row.Values[static_cast<std::size_t>(column)] = value;
}

void Recordset::Private::RunOnRow(const QString& sql, const QVariantList& values)
{
    if (Store.Opened().Run(sql, values).numRowsAffected() == 0)
        throw Failure(FailureNumber::NoCurrentRecord,
                      QStringLiteral("Another session has deleted the row."));
}

void Recordset::SetValue(const QString& column, const QVariant& value)
{
    const CursorShape& shape = m_d->Changeable();
    const int place = shape.Find(column);
    if (place == shape.KeyColumn())
        throw Failure(FailureNumber::InvalidCall,
                      QStringLiteral("The row's counter cannot be set."));
    if (!m_d->Adding)
        m_d->Current();
    const bool isText = shape.Columns()[static_cast<std::size_t>(place)].IsText;
    m_d->Changes.insert_or_assign(place, StoredForm(value, isText));
}

void Recordset::AddNew()
{
    m_d->Changeable();
    m_d->DropChanges();
    m_d->Adding = true;
}

void Recordset::Update()
{
    m_d->Changeable();
    if (!m_d->Adding)
        m_d->Write();
    else if (m_d->Changes.empty())
        m_d->Insert(QStringLiteral(" DEFAULT VALUES"));
    else
        m_d->Insert(QStringLiteral(" VALUES (") + Placeholders(m_d->Changes.size()) +
                    QLatin1Char(')'));
    m_d->DropChanges();
}

bool Recordset::UpdateUnlessFound()
{
    const QString found = m_d->Changeable().Select().Where;
    if (!m_d->Adding || m_d->Changes.empty())
        throw Failure(FailureNumber::NoCurrentRecord, QStringLiteral("There is no row to add."));
    const bool added = m_d->Insert(
        QStringLiteral(" SELECT ") + Placeholders(m_d->Changes.size()) +
        QStringLiteral(" WHERE NOT EXISTS (SELECT 1 FROM ") + m_d->TableSql() +
        (found.isEmpty() ? QString() : QStringLiteral(" WHERE ") + found) + QLatin1Char(')'));
    m_d->DropChanges();
    return added;
}

void Recordset::Delete()
{
    m_d->Changeable();
    const qlonglong key = m_d->Current().Key;
    m_d->DropChanges();
    m_d->RunOnRow(QStringLiteral("DELETE FROM ") + m_d->TableSql() +
                      QStringLiteral(" WHERE rowid = ?"),
                  {key});
    m_d->CurrentDeleted = true;
    --m_d->Count;
}

} // namespace vantrel
