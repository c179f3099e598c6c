#pragma once

#include "store/Connection.h"
#include "store/CursorShape.h"
#include "store/KeptRows.h"
#include "store/PendingRows.h"
#include "store/Recordset.h"
#include "store/StoreDatabase.h"
#include <QHash>
#include <QSet>

namespace vantrel {

struct Connection::Private
{
    std::unique_ptr<StoreDatabase> Database;
    QCache<QString, std::shared_ptr<CursorShape>> Shapes;
    KeptRows Kept;
    /// Statements whose kept rows are as good as new as long as a `ReadAhead` exists.
    QSet<QString> Looked;
    /// Rows of transactions that were set aside; visible to this session only.
    PendingRows Pending;
    /// Whether the tables that were asked for are there, in the state of the database.
    QHash<QString, bool> Tables;
    StoreDatabase::State TablesState;
    int Depth = 0;
    /// Number of open transactions that were set aside and are not open in the file.
    int DepthAside = 0;
    /// How many `ReadAhead` exist.
    int AheadDepth = 0;

    /// @return the open database. Fails with `ObjectClosed` on a closed connection.
    StoreDatabase& Opened();
    /// @return the parsed statement. Fails with `StatementInvalid` for a statement that cursors do
    /// not support.
    std::shared_ptr<CursorShape> ShapeOf(const QString& statement);
    /// @return the present result of the statement, from the cache if the database has not changed
    /// since.
    CursorResult ResultOf(const QString& statement);
    /// Whether kept rows are as good as new once the database was asked for its state.
    bool MayAskForChanges() const { return Database && Database->MayKeepRows(); }
    /// Reads in one round trip what has changed of the rows of statements and keeps them, unless
    /// the rows that are kept are asked for anyway or a transaction is open. Fails like
    /// `StoreDatabase`.
    void ReadAtOnce(const QStringList& statements);
    /// Must be called before a cursor is opened, so that pending rows are shown or dropped.
    void BeforeCursor(const QString& statement, CursorLock lock);
};

} // namespace vantrel
