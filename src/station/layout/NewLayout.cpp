#include "station/layout/NewLayout.h"
#include "base/Skip.h"
#include "printers/Printer.h"
#include "station/layout/LoadLayout.h"
#include "station/session/MainRuntime.h"
#include "station/session/Session.h"

namespace vantrel {

void ResetLayoutValues(LayoutParamsRecord& params, Printers& printers)
{
    ResetBackImages(params);
    params.Encode = false;
    Skip("printer", [&] { params.PrinterDevice = printers.Current().DeviceName(); });
    params.Filter.clear();
    params.Track1.clear();
    params.Track2.clear();
    params.Track3.clear();
    params.PrinterType = PrinterTypeCode::Fargo;
}

void NewLayout(Session& session, const QString& name)
{
    if (name.isEmpty())
        return;
    session.CurrentLayoutName = name;
    ResetLayoutValues(session.CurrentParams, session.Printers);
    session.Face.SetCaption(StartCaption() + QStringLiteral("   (") + name + QLatin1Char(')'));
    ClearDoc(session);
    if (session.Options.DesignTools)
        session.Document.DefaultFont.reset();
    session.Document.Show();
}

} // namespace vantrel
