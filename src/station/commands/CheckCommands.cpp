#include "station/commands/CheckCommands.h"
#include "base/Skip.h"
#include "printers/Printer.h"
#include "station/layout/DesignSelection.h"
#include "station/layout/LayoutCheck.h"
#include "station/layout/Navigation.h"
#include "station/session/Session.h"
#include <algorithm>

namespace vantrel {

namespace {

/// The size of the card of a stored page: that of the open page turned, if both go to the same
/// printer.
QSizeF CardSizeOf(const Session& session, const LayoutParamsRecord& params)
{
    const LayoutParamsRecord& open = session.CurrentParams;
    const auto isOriented = [](const LayoutParamsRecord& page) {
        return PrinterTypeOf(page.PrinterType).Size == SizeSource::OrientedPage;
    };
    if (params.PrinterDevice != open.PrinterDevice || !isOriented(params) || !isOriented(open))
        return UsualCardSize(params);
    const QSizeF size(static_cast<double>(session.Document.Width),
                      static_cast<double>(session.Document.Height));
    return params.PrinterOrientation == open.PrinterOrientation ? size : size.transposed();
}

int DotsPerInchOf(Session& session, const LayoutParamsRecord& params)
{
    int dots = 0;
    if (params.PrinterDevice == session.CurrentParams.PrinterDevice)
        Skip("dots per inch", [&] { dots = session.Printers.Current().DotsPerInch(); });
    return dots;
}

} // namespace

Findings CheckOpenLayout(Session& session)
{
    Findings findings;
    if (session.CurrentLayoutName.isEmpty() || !session.Document.IsLoaded())
        return findings;
    const PageInMemory open{session.Document, session.CurrentParams};
    CheckedLayout layout{.LayoutDb = session.LayoutDb,
                         .Name = session.CurrentLayoutName,
                         .Values = session.FieldValues,
                         .Pictures = session.Pictures,
                         .InMemory = &open};
    layout.CardSize = [&](const LayoutParamsRecord& params) { return CardSizeOf(session, params); };
    layout.DotsPerInch = [&](const LayoutParamsRecord& params) {
        return DotsPerInchOf(session, params);
    };
    Skip("check layout", [&] { findings = CheckLayout(layout); });
    return findings;
}

bool ShowFinding(Session& session, const Finding& finding)
{
    if (session.Road.IsBusy() || !GoToPage(session, finding.Page))
        return false;
    if (!finding.Object)
        return true;
    CardObject* object = session.Document.Find(finding.Object->Family, finding.Object->Index);
    if (object == nullptr || !object->IsContent())
        return false;
    SelectObjects(session.Document, session.Face, {object});
    return true;
}

} // namespace vantrel
