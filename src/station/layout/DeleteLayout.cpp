#include "station/layout/DeleteLayout.h"
#include "base/Skip.h"
#include "station/layout/LoadLayout.h"
#include "station/layout/ObjectExtraRows.h"
#include "station/layout/StoreStatements.h"
#include "station/session/Session.h"
#include "store/Recordset.h"

namespace vantrel {

namespace {

void DeleteRows(Connection& layoutDb, const QString& statement)
{
    Recordset rows(layoutDb);
    rows.Open(statement, CursorLock::Optimistic);
    for (; !rows.IsEof(); rows.MoveNext())
        Skip("delete row", [&] { rows.Delete(); });
}

} // namespace

void DeleteLayoutRows(Session& session, const QString& layoutName)
{
    // A copy, because closing the layout clears the name that `layoutName` may refer to.
    const QString name = layoutName;
    CloseLayout(session);
    Skip("delete objects", [&] { DeleteRows(session.LayoutDb, ObjectsOfLayout(name)); });
    Skip("delete extras", [&] {
        if (HasExtras(session.LayoutDb))
            DeleteRows(session.LayoutDb, ExtrasOfLayout(name));
    });
    Skip("delete parameters", [&] { DeleteRows(session.LayoutDb, ParamsOfLayout(name)); });
}

} // namespace vantrel
