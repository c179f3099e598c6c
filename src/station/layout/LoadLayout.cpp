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
#include "station/layout/StoredNumbers.h"
#include "station/session/MainRuntime.h"
#include "station/session/Session.h"
#include "store/Connection.h"
#include "store/ReadAhead.h"
#include "store/Recordset.h"
#include <optional>

namespace vantrel {

namespace {

/// Creates the objects; the order of the rows becomes the stacking order.
void LoadObjects(Session& session, LayoutPage& page)
{
    Recordset rows(session.LayoutDb);
    const bool opened = Skip(
        "open objects", [&] { rows.Open(ObjectsOfPage(page.LayoutName, page.Params.PageIndex)); });
    if (!opened)
        return;
    // A page without objects does not show a hidden form.
    if (!rows.IsEof())
        page.Document.Show();
    std::optional<OwnFonts> ownFonts;
    if (session.Options.DesignTools)
        ownFonts.emplace(page.Document);
    // A row that cannot be loaded does not affect the other rows.
    for (; !rows.IsEof(); rows.MoveNext())
        Skip("object", [&] { RowToObject(page.Document, ReaderOf(rows)); });
    if (session.Options.DesignTools)
        KeepCameraProportions(page.Document);
    Skip("extras", [&] {
        LoadExtras(session.LayoutDb, {page.LayoutName, page.Params.PageIndex}, page.Document);
    });
}

bool IsStored(Connection& layoutDb, LayoutPage& page, const QString& layoutName)
{
    bool exists = false;
    Skip("look for layout", [&] {
        Recordset rows(layoutDb);
        rows.Open(ObjectsOfLayout(layoutName));
        exists = !rows.IsEof() && !rows.IsBof();
        if (!exists)
            page.LayoutName.clear();
    });
    return exists;
}

void TellLoaded(Session& session)
{
    session.History.PageWasLoaded();
    BuildFieldMenu(session.Face, session.FieldValues);
    session.Face.SetCaption(
        CaptionWithLayout(session.CurrentLayoutName, session.CurrentParams, PlainCaption()));
}

} // namespace

QStringList StatementsOfPage(Session& session, const QString& layoutName, std::int16_t page)
{
    QStringList statements{ObjectsOfLayout(layoutName), ParamsOfPage(layoutName, page),
                           PagesOfLayout(layoutName), ObjectsOfPage(layoutName, page)};
    Skip("look for extras", [&] {
        if (HasExtras(session.LayoutDb))
            statements.append(ExtrasOfPage(layoutName, page));
    });
    // The first page has the automatic printing of all.
    if (page != 1)
        statements.append(ParamsOfPage(layoutName, 1));
    // The ledger describes the page that is printed.
    if (session.Options.Ledger)
        statements.append(StreamOfLayout(layoutName));
    return statements;
}

bool DoesLayoutExist(Session& session, const QString& layoutName)
{
    return IsStored(session.LayoutDb, session.Surface, layoutName);
}

bool LoadLayout(Session& session, LayoutPage& page, const QString& layoutName)
{
    const bool isSame = layoutName == page.LayoutName;
    std::optional<ReadAhead> ahead(std::in_place, session.LayoutDb,
                                   StatementsOfPage(session, layoutName, page.Params.PageIndex));
    if (!IsStored(session.LayoutDb, page, layoutName))
        return false;
    // The font that the wizard was given belongs to the layout that it has made.
    if (session.Options.DesignTools && !isSame)
        page.Document.DefaultFont.reset();
    if (session.Shows(page))
        session.LayoutDb.LeaveSetAside();
    ClearDoc_Ex(session, page);
    page.LayoutName = layoutName;
    LoadLayoutParams(session, page);
    LayoutParamsRecord& params = page.Params;
    Skip("size", [&] { SetSize(session, page); });
    if (session.Shows(page))
        session.Face.SetTick(Tick::chkAutoSpool, params.AutoSpool);
    // Printing takes the back image from the form's tag.
    if (!params.BackImg1Path.isEmpty())
        page.Document.Tag = params.BackImg1Path;
    LoadObjects(session, page);
    ahead.reset();
    KeepNumbers(page.Document, session.UnstoredNumbers);
    page.Document.Refresh();
    params.LayoutOpen = true;
    page.Document.LayoutUnchanged = true;
    if (session.Shows(page))
        TellLoaded(session);
    return true;
}

bool LoadLayout(Session& session, const QString& layoutName)
{
    return LoadLayout(session, session.Surface, layoutName);
}

bool LoadFirstPage(Session& session, const QString& layoutName)
{
    session.CurrentParams.PageIndex = 1;
    return LoadLayout(session, layoutName);
}

} // namespace vantrel
