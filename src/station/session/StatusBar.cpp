#include "station/session/MainRuntime.h"
#include "station/session/Operator.h"
#include "station/session/Session.h"

namespace vantrel {

namespace {

QString LayoutPanelText(const QString& layoutName, const LayoutParamsRecord& params)
{
    if (layoutName.isEmpty())
        return QStringLiteral("Layout (None)");
    const QString name = QStringLiteral("Layout (") + layoutName;
    if (params.PageIndex > params.PageCount)
        return name + QStringLiteral(") New Page*");
    return name + QStringLiteral(") Page %1 of %2").arg(params.PageIndex).arg(params.PageCount);
}

} // namespace

void TickStatusBar(Session& session)
{
    const StationSettings& settings = session.Settings;
    // If only the serial port is in use, panel 1 keeps its text.
    if (settings.UseIP) {
        session.Face.SetPanelText(1, QStringLiteral("TCP/IP Active (") + session.Sock.LocalIP() +
                                         QLatin1Char(')'));
    }
    if (!settings.UseSerial && !settings.UseParallel && !settings.UseIP)
        session.Face.SetPanelText(1, QStringLiteral("Vantrel Disabled"));
    session.Face.SetPanelText(2, LayoutPanelText(session.CurrentLayoutName, session.CurrentParams));
    session.Operator.LetEventsRun();
}

} // namespace vantrel
