#include "station/layout/Navigation.h"
#include "base/Convert.h"
#include "station/layout/DesignSteps.h"
#include "station/layout/DocumentForm.h"
#include "station/layout/FieldApplication.h"
#include "station/layout/LoadLayout.h"
#include "station/layout/Pages.h"
#include "station/session/MainRuntime.h"
#include "station/session/Operator.h"
#include "station/session/Session.h"
#include "store/Recordset.h"

namespace vantrel {

namespace {

/// Shows the busy pointer for the duration of a scope.
class BusyPointer
{
public:
    explicit BusyPointer(Operator& stationOperator) : m_operator(stationOperator)
    {
        m_operator.ShowBusyPointer(true);
    }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;
    ~BusyPointer() { m_operator.ShowBusyPointer(false); }

private:
    Operator& m_operator;
};

void StepPage(Session& session, int step)
{
    LayoutParamsRecord& params = session.CurrentParams;
    params.PageIndex = static_cast<std::int16_t>(params.PageIndex + step);
    // A copy, because the load clears the session's name if the layout no longer exists.
    const QString layoutName = session.CurrentLayoutName;
    LoadLayout(session, layoutName);
    RefreshData(session.Face, session.CurrentLayoutName, session.CurrentParams);
    FillSurface(session);
}

} // namespace

void NextPage(Session& session)
{
    const BusyPointer busy(session.Operator);
    if (session.CurrentParams.PageIndex < session.CurrentParams.PageCount && MayLeavePage(session))
        StepPage(session, 1);
}

void PreviousPage(Session& session)
{
    const BusyPointer busy(session.Operator);
    if (session.CurrentParams.PageIndex > 1 && MayLeavePage(session))
        StepPage(session, -1);
}

bool GoToPage(Session& session, std::int16_t page)
{
    const BusyPointer busy(session.Operator);
    if (page == session.CurrentParams.PageIndex)
        return true;
    if (page < 1 || page > session.CurrentParams.PageCount || !MayLeavePage(session))
        return false;
    // The operator was asked, so another page may be open now.
    StepPage(session, page - session.CurrentParams.PageIndex);
    return session.CurrentParams.PageIndex == page;
}

QStringList LayoutNames(Connection& layoutDb)
{
    QStringList names;
    Recordset rows(layoutDb);
    rows.Open(QStringLiteral("SELECT Distinct [LayoutName] FROM [Controls]"));
    for (; !rows.IsEof(); rows.MoveNext())
        names.append(JoinedText(rows.Value(QStringLiteral("LayoutName"))));
    return names;
}

void OpenLayout(Session& session, const QString& layoutName)
{
    if (!MayLeavePage(session))
        return;
    const BusyPointer busy(session.Operator);
    LoadFirstPage(session, layoutName);
    EnsureDocument(session);
    session.Document.Show();
    session.Face.SetCaption(
        CaptionWithLayout(session.CurrentLayoutName, session.CurrentParams, PlainCaption()));
}

} // namespace vantrel
