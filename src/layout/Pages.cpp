#include "layout/Pages.h"
#include "app/Session.h"

namespace vantrel {

namespace {
constexpr int PagePanel = 3;
}

void RefreshData(Session& session)
{
    const LayoutParamsRecord& params = session.CurrentParams;
    const QString layout =
        QStringLiteral("Layout (") + session.CurrentLayoutName + QStringLiteral(") ");
    session.Face.SetPanelText(
        PagePanel,
        params.PageIndex <= params.PageCount
            ? layout + QStringLiteral("Page %1 of %2").arg(params.PageIndex).arg(params.PageCount)
            : layout + QStringLiteral("New Page* "));
}

} // namespace vantrel
