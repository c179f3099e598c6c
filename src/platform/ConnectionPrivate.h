#pragma once

#include "platform/Connection.h"
#include "platform/CursorShape.h"
#include "platform/KeptRows.h"
#include "platform/PendingRows.h"
#include "platform/Recordset.h"
#include "platform/StoreDatabase.h"

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
