#include "app/MainRuntime.h"
#include "app/Session.h"
#include "layout/DocumentForm.h"
#include "layout/LoadLayout.h"
#include "platform/Printer.h"
#include "platform/Skip.h"

namespace vantrel {

namespace {

void ForgetBackImage(Session& session)
{
    ResetBackImages(session.CurrentParams);
    session.Document.Tag.clear();
}

void ClearSurface(Session& session)
{
    ShowHandles(session, false);
    session.Document.Refresh();
}

} // namespace

void ClearDoc(Session& session)
{
    EnsureDocument(session);
    session.Document.RemoveContent();
    ClearSurface(session);
    ForgetBackImage(session);
}

void ClearDoc_Ex(Session& session)
{
    EnsureDocument(session);
    session.Document.RemoveContent();
    ForgetBackImage(session);
    ClearSurface(session);
}

void CloseLayout(Session& session)
{
    LayoutParamsRecord& params = session.CurrentParams;
    session.CurrentLayoutName.clear();
    params.LayoutOpen = false;
    params.AutoSpool = false;
    ResetBackImages(params);
    params.Encode = false;
    params.PageCount = 1;
    params.PageIndex = 1;
    params.PrinterCopies = 1;
    Skip("printer", [&] { params.PrinterDevice = session.Printers.Current().DeviceName(); });
    params.Filter.clear();
    params.PrinterOrientation = OrientationPortrait;
    params.PrinterType = PrinterTypeCode::Plain;
    params.Track1.clear();
    params.Track2.clear();
    params.Track3.clear();
    session.Face.SetCaption(PlainCaption());
    session.Document.Unload();
}

} // namespace vantrel
