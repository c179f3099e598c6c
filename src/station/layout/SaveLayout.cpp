#include "station/layout/SaveLayout.h"
#include "base/Skip.h"
#include "station/layout/DocumentForm.h"
#include "station/layout/LayoutParams.h"
#include "station/layout/LoadLayout.h"
#include "station/layout/ObjectToRow.h"
#include "station/layout/PageKey.h"
#include "station/layout/Pages.h"
#include "station/layout/SaveStep.h"
#include "station/layout/StoreStatements.h"
#include "station/session/Operator.h"
#include "station/session/Session.h"
#include "store/Connection.h"
#include "store/Recordset.h"
#include <QScopeGuard>

namespace vantrel {

namespace {

void DeleteRest(Recordset& rows)
{
    for (; !rows.IsEof(); rows.MoveNext())
        SaveStep("delete row", [&] { rows.Delete(); });
}

/// Puts the objects of the form in place of the page's rows. A row is not deleted and added again
/// but begun anew in its place, so that what is as it was costs nothing: mostly a number has risen
/// and all else stands.
/// @return how many objects are card content
int ReplaceRows(Session& session)
{
    const PageKey key = PageOnForm(session);
    Recordset rows(session.LayoutDb);
    SaveStep("open page",
             [&] { rows.Open(ObjectsOfPage(key.LayoutName, key.Page), CursorLock::Optimistic); });
    // What was written before a failure stands, and none of the rows that were there before. But
    // where the store has taken the transaction back, each deletion would be lasting at once.
    auto deleteRest = qScopeGuard([&] {
        if (session.LayoutDb.InTransaction())
            Skip("delete old rows", [&] { DeleteRest(rows); });
    });
    int counter = 0;
    for (const auto& object : session.Document.Objects()) {
        if (!object->IsContent())
            continue;
        ++counter;
        ObjectToRow(*object, key, rows);
    }
    deleteRest.dismiss();
    DeleteRest(rows);
    return counter;
}

/// @return how many objects are card content
int StorePage(Session& session)
{
    EnsureDocument(session);
    SaveStep("save parameters", [&] {
        SaveLayoutParams(session.LayoutDb, session.CurrentLayoutName, session.CurrentParams);
    });
    SaveStep("begin transaction", [&] { session.LayoutDb.BeginTrans(); });
    const int counter = ReplaceRows(session);
    SaveStep("commit", [&] { session.LayoutDb.CommitTrans(); });
    LoadLayoutParams(session);
    return counter;
}

/// For this session the transaction stays open, and the next save begins inside it. For the others
/// the page is as it was, and they wait for nothing, however long the box stands open.
void SetAside(Session& session)
{
    const PageKey key = PageOnForm(session);
    Skip("set aside", [&] { session.LayoutDb.SetAside(ObjectsOfPage(key.LayoutName, key.Page)); });
}

/// A page saved empty is gone: the one before it is shown.
void LeaveEmptyPage(Session& session)
{
    LayoutParamsRecord& params = session.CurrentParams;
    params.PageIndex = static_cast<std::int16_t>(params.PageIndex - 1);
    LoadLayout(session, session.CurrentLayoutName);
    RefreshData(session.Face, session.CurrentLayoutName, session.CurrentParams);
    session.Operator.ShowAppMessage(QStringLiteral("You must have at least one object on a page!"),
                                    QStringLiteral("No objects found"), AppMessageButtons::OkOnly);
}

void TellSaved(Session& session)
{
    session.Operator.ShowAppMessage(QStringLiteral("Document ( ") + session.CurrentLayoutName +
                                        QStringLiteral(" ) Sucessfully Saved."),
                                    QStringLiteral("Document Saved."), AppMessageButtons::OkOnly);
}

} // namespace

bool SaveLayout(Session& session, SaveMessages messages)
{
    if (session.CurrentLayoutName.isEmpty())
        return false;
    int counter = 0;
    try {
        counter = StorePage(session);
    } catch (const Failure& failure) {
        SetAside(session);
        session.Operator.MessageBox(failure.Text(), QString::number(failure.Number()),
                                    BoxIcon::Critical);
        return false;
    }
    if (counter < 1) {
        LeaveEmptyPage(session);
        return false;
    }
    if (messages == SaveMessages::Shown)
        TellSaved(session);
    return true;
}

} // namespace vantrel
