#include "store/Connection.h"
#include "base/Failure.h"
#include "base/Skip.h"
#include "store/ConnectionPrivate.h"

namespace vantrel {

namespace {
QString SavepointName(int depth)
{
    return QStringLiteral("Level") + QString::number(depth);
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
    const std::vector<StoreColumn> columns = database.ColumnsOf(select.Table);
    if (columns.empty())
        throw Failure(FailureNumber::StatementInvalid,
                      QStringLiteral("The layout database: no such table: ") + select.Table);
    auto shape = std::make_shared<CursorShape>(std::move(select), columns);
    Shapes.insert(statement, new std::shared_ptr<CursorShape>(shape));
    return shape;
}

CursorResult Connection::Private::ResultOf(const QString& statement)
{
    StoreDatabase& database = Opened();
    const bool mayAsk = database.MayKeepRows();
    const bool isInLook = !mayAsk && AheadDepth > 0 && !database.InTransaction();
    if (mayAsk || (isInLook && Looked.contains(statement))) {
        const StoreDatabase::State now = mayAsk ? database.Now() : StoreDatabase::State();
        if (const auto kept = Kept.Find(statement, now))
            return *kept;
    }
    const std::shared_ptr<CursorShape> shape = ShapeOf(statement);
    const bool isPending = Pending.Concerns(shape->Select());
    auto rows = std::make_shared<CursorRows>();
    // A failure while reading fails the whole query. If a partly read page were loaded, the next
    // save would delete its other rows for good.
    if (isPending)
        *rows = Pending.Read(database, *shape);
    else
        database.ReadRows(*shape, [&](CursorRow&& row) { rows->push_back(std::move(row)); });
    CursorResult result{shape, rows};
    if (mayAsk || (isInLook && !isPending))
        Kept.Keep(statement, result);
    if (isInLook && !isPending)
        Looked.insert(statement);
    return result;
}

void Connection::Private::BeforeCursor(const QString& statement, CursorLock lock)
{
    if (Pending.IsEmpty())
        return;
    const SelectStatement& select = ShapeOf(statement)->Select();
    const bool othersAreSeen = lock == CursorLock::ReadOnly
                                   ? Pending.BeforeReading(Opened(), select, statement)
                                   : Pending.BeforeChanging(Opened(), select, statement);
    if (othersAreSeen)
        Kept.ForgetAll();
}

Connection::Connection() : m_d(std::make_unique<Private>()) {}

Connection::~Connection() = default;

void Connection::Open(const QString& location)
{
    Close();
    auto database = OpenStoreDatabase(location);
    database->RequireTables();
    m_d->Database = std::move(database);
}

void Connection::Close()
{
    m_d->Shapes.clear();
    m_d->Kept.ForgetAll();
    m_d->Pending.Forget();
    m_d->Tables.clear();
    m_d->Depth = 0;
    m_d->DepthAside = 0;
    m_d->Database.reset();
}

bool Connection::IsOpen() const
{
    return m_d->Database != nullptr;
}

StoreDatabase& Connection::Database()
{
    return m_d->Opened();
}

bool Connection::HasTable(const QString& table)
{
    StoreDatabase& database = m_d->Opened();
    if (!database.MayKeepRows())
        return !database.ColumnsOf(table).empty();
    const StoreDatabase::State now = database.Now();
    if (m_d->TablesState != now) {
        m_d->Tables.clear();
        m_d->TablesState = now;
    }
    const auto known = m_d->Tables.constFind(table);
    if (known != m_d->Tables.cend())
        return *known;
    const bool isThere = !database.ColumnsOf(table).empty();
    m_d->Tables.insert(table, isThere);
    return isThere;
}

void Connection::MakeTable(const StoreTable& table)
{
    m_d->Opened().MakeTables({&table, 1});
    m_d->Tables.clear();
}

void Connection::BeginTrans(const StoreLock& lock)
{
    CountTrans(m_d->Opened().Begin(lock));
}

void Connection::BeginTransWithNext(const StoreLock& lock)
{
    CountTrans(m_d->Opened().BeginWithNext(lock));
}

void Connection::CountTrans(bool isOutermost)
{
    // The database is asked instead of the depth because it may have rolled back by itself.
    if (isOutermost) {
        m_d->Pending.AfterRollback();
        m_d->Depth = m_d->DepthAside + 1;
        return;
    }
    m_d->Opened().Change(QStringLiteral("SAVEPOINT ") + SavepointName(m_d->Depth));
    ++m_d->Depth;
}

void Connection::CommitTrans()
{
    StoreDatabase& database = m_d->Opened();
    if (m_d->Depth == 0)
        throw Failure(FailureNumber::InvalidCall, QStringLiteral("No transaction is open."));
    const int depth = m_d->Depth - 1;
    if (depth < m_d->DepthAside) {
        m_d->Depth = m_d->DepthAside = depth;
        return;
    }
    const bool isOutermost = depth == m_d->DepthAside;
    if (isOutermost)
        database.Commit();
    else
        database.Change(QStringLiteral("RELEASE ") + SavepointName(depth));
    m_d->Depth = depth;
    if (isOutermost)
        m_d->Pending.AfterCommit();
}

void Connection::RollbackTrans()
{
    if (!InTransaction()) {
        m_d->Pending.AfterRollback();
        m_d->Depth = m_d->DepthAside;
        m_d->Kept.ForgetAll();
        return;
    }
    Skip("roll back", [&] { m_d->Opened().Rollback(); });
    m_d->Pending.AfterRollback();
    m_d->Depth = m_d->DepthAside;
    m_d->Kept.ForgetAll();
    m_d->Tables.clear();
}

void Connection::SetAside(const QStringList& statements)
{
    StoreDatabase& database = m_d->Opened();
    if (!database.InTransaction()) {
        m_d->Pending.AfterRollback();
        m_d->Depth = m_d->DepthAside;
        return;
    }
    struct Written
    {
        QString Statement;
        CursorResult Rows;
    };
    std::vector<Written> seen;
    for (const QString& statement : statements)
        Skip("read what was written", [&] {
            seen.push_back({statement, m_d->ResultOf(statement)});
        });
    database.Rollback();
    m_d->Pending.AfterRollback();
    m_d->DepthAside = m_d->Depth;
    for (const Written& written : seen)
        Skip("keep what was written",
             [&] { m_d->Pending.Keep(database, written.Rows, written.Statement); });
    m_d->Kept.ForgetAll();
    m_d->Tables.clear();
}

void Connection::LeaveSetAside()
{
    m_d->Pending.Leave();
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
