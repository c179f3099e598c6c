#include "station/print/PrintCard.h"
#include "base/Skip.h"
#include "card/PrinterType.h"
#include "printers/Printer.h"
#include "station/layout/FieldApplication.h"
#include "station/layout/LayoutParams.h"
#include "station/layout/LoadLayout.h"
#include "station/ledger/CardRecord.h"
#include "station/ledger/RecordRoad.h"
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

struct Pages
{
    std::int16_t First = 1;
    std::int16_t Last = 0;
};

void PrintPages(Session& session, const Pages& pages)
{
    for (std::int16_t page = pages.First; page <= pages.Last; ++page) {
        OpenPage(session, page);
        PrintCard_Ex(session);
    }
}

void PrintSerialized(Session& session)
{
    CardRecord record(session);
    if (!record.Begin([&] { OpenPage(session, session.CurrentParams.PageIndex); }))
        return;
    const QString text = BuildSerializerPattern(session);
    Skip("open output", [&] { session.Printers.Current().Print(QStringLiteral(" ")); });
    Skip("print output", [&] { session.Printers.Current().Print(text); });
    record.End();
}

void PrintCopy(Session& session, const Pages& pages)
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

/// Why printing the layout may give no card.
QString WhyNoCard(const LayoutParamsRecord& params, std::int16_t copies)
{
    if (PrinterTypeOf(params.PrinterType).Copy == CopyKind::Nothing)
        return QStringLiteral("The layout's printer type prints nothing.");
    if (copies < 1)
        return QStringLiteral("The layout prints no copy.");
    return QStringLiteral("The layout has no page in the database.");
}

} // namespace

void PrintCard(Session& session)
{
    session.Operator.ShowBusyPointer(true);
    ChoosePrinter(session.Printers, session.CurrentParams);
    const std::int16_t openPage = session.CurrentParams.PageIndex;
    const std::int16_t copies = session.CurrentParams.PrinterCopies;
    std::int16_t pages = 0;
    NoteWhyNoCard(session, WhyNoCard(session.CurrentParams, copies));
    for (int copy = 1; copy <= copies; ++copy) {
        if (session.Run)
            session.Run->Copy = copy;
        Skip("count pages",
             [&] { pages = CountLayoutPages(session.LayoutDb, session.CurrentLayoutName); });
        PrintCopy(session, {1, pages});
    }
    // Nobody looks at the page while rows of a file print, and the next row loads it again.
    if (session.Keeper == nullptr || session.CurrentParams.PageIndex != openPage)
        OpenPage(session, openPage);
    session.Operator.ShowBusyPointer(false);
}

void PrintFurther(Session& session, int copy, std::int16_t page)
{
    const std::int16_t openPage = session.CurrentParams.PageIndex;
    const std::int16_t copies = session.CurrentParams.PrinterCopies;
    std::int16_t pages = 0;
    Skip("count pages",
         [&] { pages = CountLayoutPages(session.LayoutDb, session.CurrentLayoutName); });
    ChoosePrinter(session.Printers, session.CurrentParams);
    // A copy of serialized output is one card whatever its pages.
    if (PrinterTypeOf(session.CurrentParams.PrinterType).Copy == CopyKind::SerializedPass)
        page = pages;
    for (; copy <= copies; ++copy, page = 0) {
        session.Run->Copy = copy;
        if (page < pages)
            PrintCopy(session, {static_cast<std::int16_t>(page + 1), pages});
    }
    OpenPage(session, openPage);
}

void PrintOnePage(Session& session, std::int16_t page)
{
    const std::int16_t openPage = session.CurrentParams.PageIndex;
    OpenPage(session, page);
    ChoosePrinter(session.Printers, session.CurrentParams);
    PrintCopy(session, {page, page});
    OpenPage(session, openPage);
}

} // namespace vantrel
