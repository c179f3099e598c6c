#include "platform/Recordset.h"
#include "platform/Failure.h"
#include "platform/RecordsetPrivate.h"
#include <QSqlError>
#include <QSqlRecord>

namespace vantrel {

const CursorShape& Recordset::Private::Opened() const
{
    if (!Shape)
        throw Failure(FailureNumber::ObjectClosed, QStringLiteral("The cursor is not open."));
    return *Shape;
}

Recordset::Private::Row& Recordset::Private::Current()
{
    Opened();
    if (IsEof() || CurrentDeleted)
        throw Failure(FailureNumber::NoCurrentRecord,
                      QStringLiteral("The cursor stands on no row."));
    return Rows[At];
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

void Recordset::Private::ReadRows(QSqlQuery& query)
{
    while (query.next()) {
        Row row;
        if (Shape->HasKey())
            row.Key = query.value(0).toLongLong();
        row.Values.reserve(Shape->Columns().size());
        for (const CursorShape::Column& column : Shape->Columns()) {
            const QVariant value = query.value(column.Place);
            row.Values.push_back(value.isNull() ? QVariant() : value);
        }
        Rows.push_back(std::move(row));
    }
    const QSqlError error = query.lastError();
    query.finish();
    // A page read in part is no page: the next save would make the loss of its other rows lasting.
    if (error.isValid())
        StoreDatabase::FailWith(error);
    Count = static_cast<int>(Rows.size());
}

Recordset::Recordset(Connection& connection) : m_d(std::make_unique<Private>(connection)) {}

Recordset::~Recordset() = default;

void Recordset::Open(const QString& statement, CursorLock lock)
{
    if (IsOpen())
        Close();
    StoreDatabase& database = m_d->Store.Opened();
    const std::shared_ptr<CursorShape> shape = m_d->Store.ShapeOf(statement);
    QSqlQuery& query = database.Run(shape->Sql());
    if (!shape->HasColumns())
        shape->TakeColumns(query.record());
    m_d->Shape = shape;
    m_d->Lock = lock;
    try {
        m_d->ReadRows(query);
    } catch (const Failure&) {
        Close();
        throw;
    }
}

void Recordset::Close()
{
    m_d->Opened();
    m_d->DropChanges();
    m_d->Rows.clear();
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
                      QStringLiteral("The cursor is behind its last row."));
    ++m_d->At;
    m_d->CurrentDeleted = false;
}

QVariant Recordset::Value(const QString& column) const
{
    const int place = m_d->Opened().Find(column);
    if (const auto change = m_d->Changes.find(place); change != m_d->Changes.end())
        return change->second;
    if (m_d->Adding)
        return {};
    return m_d->Current().Values[static_cast<std::size_t>(place)];
}

} // namespace vantrel
