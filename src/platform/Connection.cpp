#include "platform/Connection.h"
#include "platform/ConnectionPrivate.h"
#include "platform/Failure.h"
#include "platform/Schema.h"
#include <QFileInfo>

namespace vantrel {

namespace {
QString SavepointName(int depth)
{
    return QStringLiteral("Level") + QString::number(depth);
}

void RequireTables(StoreDatabase& database)
{
    for (const QString& table : LayoutTableNames())
        database.Execute(QStringLiteral("SELECT 1 FROM [") + table + QStringLiteral("] LIMIT 1"));
}
} // namespace

StoreDatabase& Connection::Private::Opened()
{
    if (!Database)
        throw Failure(FailureNumber::ObjectClosed,
                      QStringLiteral("The layout database is not open."));
    return *Database;
}

std::shared_ptr<CursorShape> Connection::Private::ShapeOf(const QString& statement)
{
    StoreDatabase& database = Opened();
    if (const auto* known = Shapes.object(statement))
        return *known;
    SelectStatement select = ParseSelect(statement);
    QString key = database.KeyColumn(select.Table);
    auto shape = std::make_shared<CursorShape>(std::move(select), std::move(key));
    Shapes.insert(statement, new std::shared_ptr<CursorShape>(shape));
    return shape;
}

Connection::Connection() : m_d(std::make_unique<Private>()) {}

Connection::~Connection() = default;

void Connection::Open(const QString& path)
{
    Close();
    if (!QFileInfo(path).isFile())
        throw Failure(FailureNumber::FileNotFound,
                      QStringLiteral("There is no layout database ") + path + QLatin1Char('.'));
    auto database = std::make_unique<StoreDatabase>(path, StoreDatabase::OpenMode::Existing);
    RequireTables(*database);
    m_d->Database = std::move(database);
}

void Connection::Close()
{
    m_d->Shapes.clear();
    m_d->Kept.ForgetAll();
    m_d->Depth = 0;
    m_d->Database.reset();
}

bool Connection::IsOpen() const
{
    return m_d->Database != nullptr;
}

void Connection::BeginTrans()
{
    StoreDatabase& database = m_d->Opened();
    // Asked of the store, not of the depth: it rolls back by itself where a disk is full or fails.
    // The lock is taken at once, for a transaction that reads first and asks for it later would
    // fail without waiting where another session has written in between.
    if (database.Begin()) {
        m_d->Depth = 1;
        return;
    }
    database.Change(QStringLiteral("SAVEPOINT ") + SavepointName(m_d->Depth));
    ++m_d->Depth;
}

void Connection::CommitTrans()
{
    StoreDatabase& database = m_d->Opened();
    if (m_d->Depth == 0)
        throw Failure(FailureNumber::InvalidCall, QStringLiteral("No transaction is open."));
    const int depth = m_d->Depth - 1;
    database.Change(depth == 0 ? QStringLiteral("COMMIT")
                               : QStringLiteral("RELEASE ") + SavepointName(depth));
    m_d->Depth = depth;
}

int Connection::TransactionDepth() const
{
    return m_d->Depth;
}

bool Connection::InTransaction() const
{
    return IsOpen() && m_d->Database->InTransaction();
}

} // namespace vantrel
