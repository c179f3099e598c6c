#include "base/Skip.h"
#include "card/Grips.h"
#include "printers/Printer.h"
#include "station/layout/DocumentForm.h"
#include "station/layout/LoadLayout.h"
#include "station/session/MainRuntime.h"
#include "station/session/Session.h"
#include "store/Connection.h"

namespace vantrel {

namespace {

void ForgetBackImage(CardDocument& document, LayoutParamsRecord& params)
{
    ResetBackImages(params);
    document.Tag.clear();
}

void ClearSurface(CardDocument& document)
{
    ShowHandles(document, false);
    document.Refresh();
}

} // namespace

void ClearDoc(Session& session)
{
    EnsureDocument(session);
    session.LayoutDb.LeaveSetAside();
    session.Document.RemoveContent();
    ClearSurface(session.Document);
    ForgetBackImage(session.Document, session.CurrentParams);
}

void ClearDoc_Ex(Session& session, LayoutPage& page)
{
    EnsureDocument(session, page);
    page.Document.RemoveContent();
    ForgetBackImage(page.Document, page.Params);
    ClearSurface(page.Document);
}

void ClearDoc_Ex(Session& session)
{
    ClearDoc_Ex(session, session.Surface);
}

void ResetParams(LayoutParamsRecord& params, Printers& printers)
{
    params.LayoutOpen = false;
    params.AutoSpool = false;
    ResetBackImages(params);
    params.Encode = false;
    params.PageCount = 1;
    params.PageIndex = 1;
    params.PrinterCopies = 1;
    Skip("printer", [&] { params.PrinterDevice = printers.Current().DeviceName(); });
    params.Filter.clear();
    params.PrinterOrientation = OrientationPortrait;
    params.PrinterType = PrinterTypeCode::Plain;
    params.Track1.clear();
    params.Track2.clear();
    params.Track3.clear();
}

void CloseLayout(Session& session)
{
    session.CurrentLayoutName.clear();
    ResetParams(session.CurrentParams, session.Printers);
    session.Face.SetCaption(PlainCaption());
    session.Document.Unload();
}

} // namespace vantrel
