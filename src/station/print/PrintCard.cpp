#include "station/print/PrintCard.h"
#include "base/Skip.h"
#include "card/PrinterType.h"
#include "printers/Printer.h"
#include "station/layout/FieldApplication.h"
#include "station/layout/LayoutParams.h"
#include "station/layout/LoadLayout.h"
#include "station/print/PrintPage.h"
#include "station/print/Serializer.h"
#include "station/session/Operator.h"
#include "station/session/Session.h"

namespace vantrel {

namespace {

/// Makes the layout's printer current; if there is none of that name, the job goes to the current
/// one.
void ChoosePrinter(Printers& printers, const LayoutParamsRecord& params)
{
    const QString& wanted = params.PrinterDevice;
    if (printers.DeviceNames().contains(wanted))
        Skip("choose printer", [&] { printers.MakeCurrent(wanted); });
}

void OpenPage(Session& session, std::int16_t page)
{
    session.CurrentParams.PageIndex = page;
    LoadLayout(session, session.CurrentLayoutName);
    ReapplyFieldValues(session);
}

void PrintPages(Session& session, std::int16_t pages)
{
    for (std::int16_t page = 1; page <= pages; ++page) {
        OpenPage(session, page);
        PrintCard_Ex(session);
    }
}

void PrintSerialized(Session& session)
{
    const QString text = BuildSerializerPattern(session);
    Skip("open output", [&] { session.Printers.Current().Print(QStringLiteral(" ")); });
    Skip("print output", [&] { session.Printers.Current().Print(text); });
    Skip("end output", [&] { session.Printers.Current().EndDoc(); });
}

void PrintCopy(Session& session, std::int16_t pages)
{
    switch (PrinterTypeOf(session.CurrentParams.PrinterType).Copy) {
    case CopyKind::OrientedPagePass:
        Skip("orientation", [&] {
            session.Printers.Current().SetOrientation(session.CurrentParams.PrinterOrientation);
        });
        PrintPages(session, pages);
        break;
    case CopyKind::PagePass:
        PrintPages(session, pages);
        break;
    case CopyKind::SerializedPass:
        PrintSerialized(session);
        break;
    case CopyKind::Nothing:
        break;
    }
}

} // namespace

void PrintCard(Session& session)
{
    session.Operator.ShowBusyPointer(true);
    ChoosePrinter(session.Printers, session.CurrentParams);
    const std::int16_t openPage = session.CurrentParams.PageIndex;
    const std::int16_t copies = session.CurrentParams.PrinterCopies;
    std::int16_t pages = 0;
    for (int copy = 1; copy <= copies; ++copy) {
        Skip("count pages",
             [&] { pages = CountLayoutPages(session.LayoutDb, session.CurrentLayoutName); });
        PrintCopy(session, pages);
    }
    OpenPage(session, openPage);
    session.Operator.ShowBusyPointer(false);
}

} // namespace vantrel
