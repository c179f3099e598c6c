#include "station/layout/LoadLayout.h"
#include "base/Skip.h"
#include "station/layout/DocumentForm.h"
#include "station/layout/DrawObjects.h"
#include "station/layout/FieldApplication.h"
#include "station/layout/LayoutParams.h"
#include "station/layout/ObjectExtraRows.h"
#include "station/layout/PageKey.h"
#include "station/layout/RowToObject.h"
#include "station/layout/StoreStatements.h"
#include "station/session/MainRuntime.h"
#include "station/session/Session.h"
#include "store/Connection.h"
#include "store/Recordset.h"

namespace vantrel {

namespace {

/// Creates the objects; the order of the rows becomes the stacking order.
void LoadObjects(Session& session)
{
    Recordset rows(session.LayoutDb);
    const bool opened = Skip("open objects", [&] {
        rows.Open(ObjectsOfPage(session.CurrentLayoutName, session.CurrentParams.PageIndex));
    });
    if (!opened)
        return;
    // A page without objects does not show a hidden form.
    if (!rows.IsEof())
        session.Document.Show();
    std::optional<OwnFonts> ownFonts;
    if (session.Options.DesignTools)
        ownFonts.emplace(session.Document);
    // A row that cannot be loaded does not affect the other rows.
    for (; !rows.IsEof(); rows.MoveNext())
        Skip("object", [&] { RowToObject(OpenForm(session), ReaderOf(rows)); });
    if (session.Options.DesignTools)
        KeepCameraProportions(session.Document);
    Skip("extras", [&] { LoadExtras(session.LayoutDb, PageOnForm(session), session.Document); });
}

} // namespace

bool DoesLayoutExist(Session& session, const QString& layoutName)
{
    bool exists = false;
    Skip("look for layout", [&] {
        Recordset rows(session.LayoutDb);
        rows.Open(ObjectsOfLayout(layoutName));
        exists = !rows.IsEof() && !rows.IsBof();
        if (!exists)
            session.CurrentLayoutName.clear();
    });
    return exists;
}

bool LoadLayout(Session& session, const QString& layoutName)
{
    const bool isSame = layoutName == session.CurrentLayoutName;
    if (!DoesLayoutExist(session, layoutName))
        return false;
    // The font that the wizard was given belongs to the layout that it has made.
    if (session.Options.DesignTools && !isSame)
        session.Document.DefaultFont.reset();
    session.LayoutDb.LeaveSetAside();
    ClearDoc_Ex(session);
    session.CurrentLayoutName = layoutName;
    LoadLayoutParams(session);
    LayoutParamsRecord& params = session.CurrentParams;
    Skip("size", [&] { SetSize(session); });
    session.Face.SetTick(Tick::chkAutoSpool, params.AutoSpool);
    // Printing takes the back image from the form's tag.
    if (!params.BackImg1Path.isEmpty())
        session.Document.Tag = params.BackImg1Path;
    LoadObjects(session);
    session.Document.Refresh();
    params.LayoutOpen = true;
    session.Document.LayoutUnchanged = true;
    session.History.PageWasLoaded();
    BuildFieldMenu(session.Face, session.FieldValues);
    session.Face.SetCaption(
        CaptionWithLayout(session.CurrentLayoutName, session.CurrentParams, PlainCaption()));
    return true;
}

bool LoadFirstPage(Session& session, const QString& layoutName)
{
    session.CurrentParams.PageIndex = 1;
    return LoadLayout(session, layoutName);
}

} // namespace vantrel
