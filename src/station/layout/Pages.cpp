#include "station/layout/Pages.h"
#include "base/Convert.h"
#include "station/layout/LayoutParams.h"
#include "station/layout/LoadLayout.h"
#include "station/layout/ObjectExtraRows.h"
#include "station/layout/PageKey.h"
#include "station/layout/StoredLayout.h"
#include "station/session/Operator.h"
#include "station/session/Session.h"
#include "store/Connection.h"
#include "store/LayoutTables.h"
#include "store/Recordset.h"

namespace vantrel {

namespace {

constexpr int PagePanel = 3;
constexpr std::int16_t FirstPage = 1;

void DeleteObjectsOf(Connection& store, const QString& table, std::int16_t page)
{
    Recordset rows(store);
    rows.Open(QStringLiteral("SELECT * FROM [%1] WHERE [Page] = %2").arg(table).arg(page),
              CursorLock::Optimistic);
    for (; !rows.IsEof(); rows.MoveNext())
        rows.Delete();
}

void MoveDownObjectsAbove(Connection& store, const QString& table, std::int16_t page)
{
    const QString pageColumn = QStringLiteral("Page");
    Recordset rows(store);
    rows.Open(QStringLiteral("SELECT * FROM [%1] WHERE [Page] > %2").arg(table).arg(page),
              CursorLock::Optimistic);
    for (; !rows.IsEof(); rows.MoveNext()) {
        rows.SetValue(pageColumn, ToInteger(rows.Value(pageColumn)) - 1);
        rows.Update();
    }
}

/// Asks for confirmation. A record may change the open page while the question is shown; the answer
/// then does not apply.
bool IsAgreedTo(Session& session, const QString& question, const QString& title)
{
    const PageKey asked = PageOnForm(session);
    const AppMessageButtons buttons =
        session.Options.DesignTools ? AppMessageButtons::NoYes : AppMessageButtons::YesNo;
    return session.Operator.ShowAppMessage(question, title, buttons) &&
           PageOnForm(session) == asked;
}

QString ClearQuestion(const Session& session)
{
    if (!session.Options.DesignTools)
        return QStringLiteral("A layout must contain at least one page.\r\n"
                              "Do you want to clear the page instead?");
    return QStringLiteral("The layout (") + session.CurrentLayoutName +
           QStringLiteral(") has no other page.\r\nTake everything off this one instead?");
}

QString DeleteQuestion(const Session& session)
{
    if (!session.Options.DesignTools)
        return QStringLiteral("Delete this page permanently?");
    return QStringLiteral("Delete page %1 of %2 of the layout (")
               .arg(session.CurrentParams.PageIndex)
               .arg(session.CurrentParams.PageCount) +
           session.CurrentLayoutName + QStringLiteral(") permanently?");
}

bool OfferToClear(Session& session)
{
    if (IsAgreedTo(session, ClearQuestion(session), QStringLiteral("Clear Page?")))
        ClearDoc_Ex(session);
    return true;
}

} // namespace

PageKey PageOnForm(const Session& session)
{
    return {session.CurrentLayoutName, session.CurrentParams.PageIndex};
}

bool NewPage(Session& session)
{
    LayoutParamsRecord& params = session.CurrentParams;
    ++params.PageCount;
    params.PageIndex = params.PageCount;
    session.LayoutDb.LeaveSetAside();
    ClearDoc_Ex(session);
    RefreshData(session.Face, session.CurrentLayoutName, session.CurrentParams);
    return false;
}

bool DeletePage(Session& session)
{
    LayoutParamsRecord& params = session.CurrentParams;
    if (params.PageCount == FirstPage)
        return OfferToClear(session);
    if (!IsAgreedTo(session, DeleteQuestion(session), QStringLiteral("Delete Page?")))
        return false;
    if (session.Options.DesignTools) {
        RemoveStoredPage(session.LayoutDb, session.CurrentLayoutName, params.PageIndex);
    } else {
        // The page number is deleted from all layouts.
        QStringList tables{QStringLiteral("Controls")};
        if (HasExtras(session.LayoutDb))
            tables.append(QString(QLatin1StringView(ExtrasTable().Name)));
        for (const QString& table : tables) {
            DeleteObjectsOf(session.LayoutDb, table, params.PageIndex);
            MoveDownObjectsAbove(session.LayoutDb, table, params.PageIndex);
        }
    }
    // Steps name their pages by numbers, which are other pages now.
    session.History.Clear();
    --params.PageCount;
    params.PageIndex =
        params.PageIndex > 2 ? static_cast<std::int16_t>(params.PageIndex - 1) : FirstPage;
    // Without the design tools the page that is now open takes over the parameters of the deleted
    // one.
    if (!session.Options.DesignTools)
        SaveLayoutParams(session.LayoutDb, session.CurrentLayoutName, session.CurrentParams);
    // A copy, because the load clears the session's name if the layout no longer exists.
    const QString layoutName = session.CurrentLayoutName;
    LoadLayout(session, layoutName);
    RefreshData(session.Face, session.CurrentLayoutName, session.CurrentParams);
    return true;
}

void RefreshData(StationFace& face, const QString& layoutName, const LayoutParamsRecord& params)
{
    const QString layout = QStringLiteral("Layout (") + layoutName + QStringLiteral(") ");
    face.SetPanelText(
        PagePanel,
        params.PageIndex <= params.PageCount
            ? layout + QStringLiteral("Page %1 of %2").arg(params.PageIndex).arg(params.PageCount)
            : layout + QStringLiteral("New Page* "));
}

} // namespace vantrel
