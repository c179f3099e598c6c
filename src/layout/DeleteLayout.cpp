#include "layout/DeleteLayout.h"
#include "app/Session.h"
#include "layout/LoadLayout.h"
#include "layout/StoreStatements.h"
#include "platform/Recordset.h"
#include "platform/Skip.h"

namespace vantrel {

namespace {

void DeleteRows(Session& session, const QString& statement)
{
    Recordset rows(session.LayoutDb);
    rows.Open(statement, CursorLock::Optimistic);
    for (; !rows.IsEof(); rows.MoveNext())
        Skip("delete row", [&] { rows.Delete(); });
}

} // namespace

void DeleteLayoutRows(Session& session, const QString& layoutName)
{
    // A copy: the close empties the open layout's name.
    const QString name = layoutName;
    CloseLayout(session);
    Skip("delete objects", [&] { DeleteRows(session, ObjectsOfLayout(name)); });
    Skip("delete parameters", [&] { DeleteRows(session, ParamsOfLayout(name)); });
}

} // namespace vantrel
