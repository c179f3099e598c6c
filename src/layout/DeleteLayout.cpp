#include "layout/DeleteLayout.h"
#include "app/MainRuntime.h"
#include "app/Session.h"
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
    LayoutParamsRecord& params = session.CurrentParams;
    session.Face.SetCaption(PlainCaption());
    params.Encode = false;
    params.Track1.clear();
    params.Track2.clear();
    params.Track3.clear();
    ResetBackImages(params);
    Skip("delete objects", [&] { DeleteRows(session, ObjectsOfLayout(layoutName)); });
    Skip("delete parameters", [&] { DeleteRows(session, ParamsOfLayout(layoutName)); });
    session.CurrentLayoutName.clear();
    session.Document.Unload();
}

} // namespace vantrel
