#include "store/Recordset.h"
#include "base/Failure.h"
#include "store/RecordsetPrivate.h"

namespace vantrel {

const CursorShape& Recordset::Private::Opened() const
{
    if (!Shape)
        throw Failure(FailureNumber::ObjectClosed, QStringLiteral("The cursor is not open."));
    return *Shape;
}

const CursorRow& Recordset::Private::Current() const
{
    Opened();
    if (IsEof() || CurrentDeleted)
        throw Failure(FailureNumber::NoCurrentRecord,
                      QStringLiteral("The cursor has no current row."));
    return (*Rows)[At];
}

CursorRows& Recordset::Private::OwnRows()
{
    if (!Own) {
        Own = std::make_shared<CursorRows>(*Rows);
        Rows = Own;
    }
    return *Own;
}

const CursorShape& Recordset::Private::Changeable() const
{
    const CursorShape& shape = Opened();
    if (Lock == CursorLock::ReadOnly || !shape.HasKey())
        throw Failure(FailureNumber::InvalidCall, QStringLiteral("The cursor is read only."));
    return shape;
}

void Recordset::Private::DropChanges()
{
    Adding = false;
    Changes.clear();
}

Recordset::Recordset(Connection& connection) : m_d(std::make_unique<Private>(connection)) {}

Recordset::~Recordset() = default;

void Recordset::Open(const QString& statement, CursorLock lock)
{
    if (IsOpen())
        Close();
    m_d->Store.BeforeCursor(statement, lock);
    const CursorResult result = m_d->Store.ResultOf(statement);
    m_d->Shape = result.Shape;
    m_d->Rows = result.Rows;
    m_d->Count = static_cast<int>(result.Rows->size());
    m_d->Lock = lock;
}

void Recordset::Close()
{
    m_d->Opened();
    m_d->DropChanges();
    m_d->Rows = std::make_shared<CursorRows>();
    m_d->Own.reset();
    m_d->At = 0;
    m_d->Count = 0;
    m_d->CurrentDeleted = false;
    m_d->Shape.reset();
}

bool Recordset::IsOpen() const
{
    return m_d->Shape != nullptr;
}

bool Recordset::IsEof() const
{
    m_d->Opened();
    return m_d->IsEof();
}

bool Recordset::IsBof() const
{
    return IsEof() && m_d->Count == 0;
}

int Recordset::RecordCount() const
{
    m_d->Opened();
    return m_d->Count;
}

void Recordset::MoveNext()
{
    m_d->Opened();
    m_d->DropChanges();
    if (m_d->IsEof())
        throw Failure(FailureNumber::NoCurrentRecord,
                      QStringLiteral("The cursor is past its last row."));
    ++m_d->At;
    m_d->CurrentDeleted = false;
}

QStringList Recordset::Columns() const
{
    QStringList names;
    for (const CursorShape::Column& column : m_d->Opened().Columns())
        names.append(column.Name);
    return names;
}

QVariantList Recordset::Values() const
{
    return m_d->Current().Values;
}

qlonglong Recordset::RowKey() const
{
    return m_d->Current().Key;
}

QVariant Recordset::Value(const QString& column) const
{
    const int place = m_d->Opened().Find(column);
    if (!m_d->Changes.empty()) {
        if (const auto& change = m_d->Changes[static_cast<std::size_t>(place)])
            return *change;
    }
    if (m_d->Adding)
        return {};
    return m_d->Current().Values[place];
}

} // namespace vantrel
