#include "base/Failure.h"
#include "base/StoredForm.h"
#include "store/RecordsetPrivate.h"

// Changing rows through a cursor; Recordset.cpp reads them.

namespace vantrel {

bool Recordset::Private::Insert(const SelectStatement* unlessFound)
{
    QStringList columns;
    QVariantList values;
    for (std::size_t i = 0; i < Changes.size(); ++i) {
        if (!Changes[i])
            continue;
        columns.append(Shape->Columns()[i].Name);
        values.append(*Changes[i]);
    }
    const auto key = Store.Opened().InsertRow(Table(), columns, values, unlessFound);
    if (!key)
        return false;
    Store.Kept.ForgetTable(Table());

    CursorRow row;
    row.Key = *key;
    row.Values.resize(std::ssize(Shape->Columns()));
    TakeChanges(row);
    if (Shape->KeyColumn() >= 0)
        row.Values[Shape->KeyColumn()] = row.Key;
    OwnRows().push_back(std::move(row));
    At = Rows->size() - 1;
    ++Count;
    CurrentDeleted = false;
    return true;
}

void Recordset::Private::TakeChanges(CursorRow& row) const
{
    for (std::size_t i = 0; i < Changes.size(); ++i) {
        if (Changes[i])
            row.Values[static_cast<qsizetype>(i)] = *Changes[i];
    }
}

void Recordset::Private::Write()
{
    const CursorRow& row = Current();
    QStringList columns;
    QVariantList values;
    for (std::size_t i = 0; i < Changes.size(); ++i) {
        if (!Changes[i])
            continue;
        // A value that is already stored needs no commit.
        if (SameStored(row.Values[static_cast<qsizetype>(i)], *Changes[i])) {
            Changes[i].reset();
            continue;
        }
        columns.append(Shape->Columns()[i].Name);
        values.append(*Changes[i]);
    }
    if (columns.isEmpty())
        return;
    const auto stored = Store.Opened().UpdateRow(*Shape, row.Key, columns, values);
    Require(stored.has_value());
    TakeChanges(OwnRows()[At]);
    Store.Kept.TakeChange(*Shape, *stored, Changes);
}

void Recordset::Private::Require(bool found)
{
    if (!found)
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
    const std::vector<CursorShape::Column>& columns = shape.Columns();
    const auto at = static_cast<std::size_t>(place);
    m_d->Changes.resize(columns.size());
    m_d->Changes[at] = StoredForm(value, columns[at].IsText());
}

void Recordset::AddNew()
{
    m_d->Changeable();
    m_d->DropChanges();
    m_d->Adding = true;
}

void Recordset::ClearRow()
{
    const CursorShape& shape = m_d->Changeable();
    m_d->Current();
    m_d->DropChanges();
    m_d->Changes.assign(shape.Columns().size(), QVariant());
    if (shape.KeyColumn() >= 0)
        m_d->Changes[static_cast<std::size_t>(shape.KeyColumn())].reset();
}

void Recordset::Update()
{
    m_d->Changeable();
    if (m_d->Adding)
        m_d->Insert(nullptr);
    else
        m_d->Write();
    m_d->DropChanges();
}

bool Recordset::UpdateUnlessFound()
{
    const SelectStatement& found = m_d->Changeable().Select();
    if (!m_d->Adding || m_d->Changes.empty())
        throw Failure(FailureNumber::NoCurrentRecord, QStringLiteral("There is no row to add."));
    const bool added = m_d->Insert(&found);
    m_d->DropChanges();
    return added;
}

void Recordset::Delete()
{
    m_d->Changeable();
    const qlonglong key = m_d->Current().Key;
    m_d->DropChanges();
    Private::Require(m_d->Store.Opened().DeleteRow(m_d->Table(), key));
    m_d->Store.Kept.ForgetTable(m_d->Table());
    m_d->CurrentDeleted = true;
    --m_d->Count;
}

} // namespace vantrel
