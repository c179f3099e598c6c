#pragma once

#include "store/Connection.h"
#include "store/CursorShape.h"
#include "store/KeptRows.h"
#include "store/PendingRows.h"
#include "store/Recordset.h"
#include "store/StoreDatabase.h"

namespace vantrel {

struct Connection::Private
{
    std::unique_ptr<StoreDatabase> Database;
    QCache<QString, std::shared_ptr<CursorShape>> Shapes;
    KeptRows Kept;
    /// Seen by this session alone, where one of its transactions was set aside.
    PendingRows Pending;
    int Depth = 0;
    /// How many of the transactions begun were set aside: the file knows nothing of these.
    int DepthAside = 0;

    /// Fails with `ObjectClosed` on a closed connection.
    StoreDatabase& Opened();
    /// Fails with `StatementInvalid` for a statement that no cursor takes.
    std::shared_ptr<CursorShape> ShapeOf(const QString& statement);
    /// What the statement gives now: read, or as it was read last where nobody has changed it.
    CursorResult ResultOf(const QString& statement);
    /// Lets what is pending know that a cursor is about to be opened.
    void BeforeCursor(const QString& statement, CursorLock lock);
};

} // namespace vantrel
