#include "layout/NewLayout.h"
#include "app/MainRuntime.h"
#include "app/Session.h"
#include "layout/LoadLayout.h"
#include "platform/Printer.h"
#include "platform/Skip.h"

namespace vantrel {

void ResetLayoutValues(Session& session)
{
    LayoutParamsRecord& params = session.CurrentParams;
    ResetBackImages(params);
    params.Encode = false;
    Skip("printer", [&] { params.PrinterDevice = session.Printers.Current().DeviceName(); });
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
    ResetLayoutValues(session);
    session.Face.SetCaption(StartCaption() + QStringLiteral("   (") + name + QLatin1Char(')'));
    ClearDoc(session);
    session.Document.Show();
}

} // namespace vantrel
