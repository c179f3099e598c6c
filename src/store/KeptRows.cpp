#include "store/KeptRows.h"
#include <algorithm>

namespace vantrel {

namespace {

/// Rows of all cached results together; a longer single result is not cached. A long text counts as
/// several rows: another program may have stored one of megabytes.
constexpr int MostRowsKept = 4000;
constexpr qsizetype CharactersOfARow = 1024;

qsizetype LengthOf(const QVariant& value)
{
    if (value.typeId() == QMetaType::QString)
        return static_cast<const QString*>(value.constData())->size();
    return value.typeId() == QMetaType::QByteArray ? value.toByteArray().size() : 0;
}

qsizetype WeightOf(const CursorRows& rows)
{
    qsizetype characters = 0;
    for (const CursorRow& row : rows) {
        for (const QVariant& value : row.Values)
            characters += LengthOf(value);
    }
    return 1 + std::ssize(rows) + characters / CharactersOfARow;
}

bool IsOfTable(const CursorShape& shape, const QString& table)
{
    return shape.Select().Table.compare(table, Qt::CaseInsensitive) == 0;
}

/// @return a copy of the rows with the changed row, or the same rows if none has that key
std::shared_ptr<const CursorRows> WithChange(const CursorShape& shape,
                                             const std::shared_ptr<const CursorRows>& rows,
                                             const CursorShape& changed, const CursorRow& stored,
                                             const RowChanges& changes)
{
    const auto isChanged = [&](const CursorRow& row) { return row.Key == stored.Key; };
    const auto place = std::find_if(rows->begin(), rows->end(), isChanged) - rows->begin();
    if (place == std::ssize(*rows))
        return rows;
    auto renewed = std::make_shared<CursorRows>(*rows);
    CursorRow& row = (*renewed)[static_cast<std::size_t>(place)];
    row.Version = stored.Version;
    for (qsizetype i = 0; i < row.Values.size(); ++i) {
        const int column = changed.PlaceOf(shape.Columns()[static_cast<std::size_t>(i)].Name);
        if (column >= 0 && !stored.Values.isEmpty())
            row.Values[i] = stored.Values[column];
        else if (column >= 0 && changes[static_cast<std::size_t>(column)])
            row.Values[i] = *changes[static_cast<std::size_t>(column)];
        else if (column < 0)
            row.Version.clear(); // Nothing is known of this column.
    }
    return renewed;
}

} // namespace

KeptRows::KeptRows() : m_results(MostRowsKept) {}

std::optional<CursorResult> KeptRows::Find(const QString& statement, StoreDatabase::State now)
{
    if (m_state != now) {
        m_results.clear();
        m_state = now;
    }
    const CursorResult* kept = m_results.object(statement);
    return kept == nullptr ? std::nullopt : std::optional(*kept);
}

void KeptRows::Keep(const QString& statement, const CursorResult& result)
{
    m_results.insert(statement, new CursorResult(result), WeightOf(*result.Rows));
}

void KeptRows::TakeChange(const CursorShape& changed, const CursorRow& stored,
                          const RowChanges& changes)
{
    const auto mustBeAskedAnew = [&](const CursorShape& shape) {
        for (std::size_t i = 0; i < changes.size(); ++i) {
            const CursorShape::Column& column = changed.Columns()[i];
            // A long text weighs anew.
            if (changes[i] && (!column.GivesBack(*changes[i]) || shape.DependsOn(column.Name) ||
                               LengthOf(*changes[i]) > CharactersOfARow))
                return true;
        }
        return false;
    };
    const QStringList statements = m_results.keys();
    for (const QString& statement : statements) {
        CursorResult& kept = *m_results.object(statement);
        if (!IsOfTable(*kept.Shape, changed.Select().Table))
            continue;
        if (mustBeAskedAnew(*kept.Shape))
            m_results.remove(statement);
        else
            kept.Rows = WithChange(*kept.Shape, kept.Rows, changed, stored, changes);
    }
}

void KeptRows::ForgetAll()
{
    m_results.clear();
}

void KeptRows::ForgetTable(const QString& table)
{
    const QStringList statements = m_results.keys();
    for (const QString& statement : statements) {
        if (IsOfTable(*m_results.object(statement)->Shape, table))
            m_results.remove(statement);
    }
}

} // namespace vantrel
