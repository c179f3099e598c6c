#pragma once

#include "platform/Connection.h"
#include "platform/CursorShape.h"
#include "platform/KeptRows.h"
#include "platform/StoreDatabase.h"

namespace vantrel {

struct Connection::Private
{
    std::unique_ptr<StoreDatabase> Database;
    QCache<QString, std::shared_ptr<CursorShape>> Shapes;
    KeptRows Kept;
    int Depth = 0;

    /// Fails with `ObjectClosed` on a closed connection.
    StoreDatabase& Opened();
    /// Fails with `StatementInvalid` for a statement that no cursor takes.
    std::shared_ptr<CursorShape> ShapeOf(const QString& statement);
};

} // namespace vantrel
