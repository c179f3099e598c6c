#include "platform/Recordset.h"
#include "platform/ConnectionPrivate.h"
#include "platform/Failure.h"
#include "platform/StoredForm.h"
#include <QSqlError>
#include <QSqlRecord>
#include <map>
#include <vector>

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

struct Recordset::Private
{
    struct Row
    {
        qlonglong Key = 0;
        std::vector<QVariant> Values;
    };

    explicit Private(Connection& connection) : Store(*connection.m_d) {}

    Connection::Private& Store;
    /// None on a cursor that is not open.
    std::shared_ptr<const CursorShape> Shape;
    CursorLock Lock = CursorLock::ReadOnly;
    std::vector<Row> Rows;
    std::size_t At = 0;
    int Count = 0;
    bool CurrentDeleted = false;
    bool Adding = false;
    /// Values set and not yet written, by column.
    std::map<int, QVariant> Changes;

    const CursorShape& Opened() const;
    bool IsEof() const { return At >= Rows.size(); }
    Row& Current();
    const CursorShape& Changeable() const;
    void DropChanges();
    void ReadRows(QSqlQuery& query);
    QString TableSql() const { return QLatin1Char('[') + Shape->Select().Table + QLatin1Char(']'); }
    QString ColumnSql(int column) const;
    /// @param source  what gives the values, with a placeholder for each
    /// @return whether a row was added
    bool Insert(const QString& source);
    void Write();
    /// Runs a statement that must hit exactly the row with its key.
    void RunOnRow(const QString& sql, const QVariantList& values);
};

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
