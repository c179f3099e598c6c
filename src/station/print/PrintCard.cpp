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
#include "store/ReadAhead.h"
#include <optional>

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

bool OpenPage(Session& session, LayoutPage& on, std::int16_t page)
{
    on.Params.PageIndex = page;
    const bool isThere = LoadLayout(session, on, on.LayoutName);
    ReapplyFieldValues(session, on);
    return isThere;
}

/// Reads a page and what pages the layout has, for both in one round trip to a server.
std::optional<ReadAhead> LookAt(Session& session, const LayoutPage& on, std::int16_t page)
{
    return std::optional<ReadAhead>(std::in_place, session.LayoutDb,
                                    StatementsOfPage(session, on.LayoutName, page));
}

/// Opens the page of before again on the surface. A page behind it is used for one record only.
void OpenAgain(Session& session, LayoutPage& on, std::int16_t page)
{
    if (session.Shows(on))
        OpenPage(session, on, page);
}

/// Accounts for a page that the operator has deleted since the printing began.
void RefuseDeleted(Session& session, LayoutPage& on, const QString& layoutName, std::int16_t page)
{
    LedgerCard card;
    card.Layout = layoutName;
    card.Page = page;
    card.Copy = session.Run ? session.Run->Copy : 1;
    CardRecord(session, on)
        .Refuse(std::move(card), QStringLiteral("Page %1 of the layout ").arg(page) + layoutName +
                                     QStringLiteral(" was deleted before it was printed."));
}

struct Pages
{
    std::int16_t First = 1;
    std::int16_t Last = 0;
};

/// The ledger describes each page as it was loaded.
/// @param look  what was read for the first of the pages; used up by that one
void PrintPages(Session& session, LayoutPage& on, const Pages& pages,
                std::optional<ReadAhead>& look)
{
    const QString layoutName = on.LayoutName;
    for (std::int16_t page = pages.First; page <= pages.Last; ++page) {
        if (!look)
            look.emplace(session.LayoutDb, QStringList());
        const bool isThere =
            OpenPage(session, on, page) && on.Params.PageIndex <= on.Params.PageCount;
        if (isThere || session.Shows(on))
            PrintCard_Ex(session, on, look);
        else
            RefuseDeleted(session, on, layoutName, page);
        look.reset();
    }
}

void PrintSerialized(Session& session, LayoutPage& on)
{
    CardRecord record(session, on);
    if (!record.Begin([&] { OpenPage(session, on, on.Params.PageIndex); }))
        return;
    const QString text = BuildSerializerPattern(session, on);
    Skip("open output", [&] { session.Printers.Current().Print(QStringLiteral(" ")); });
    Skip("print output", [&] { session.Printers.Current().Print(text); });
    record.End();
    if (!session.Shows(on) && session.Options.UniqueNumbers)
        ShowNumbersOnSurface(session, on);
}

void PrintCopy(Session& session, LayoutPage& on, const Pages& pages, std::optional<ReadAhead>& look)
{
    switch (PrinterTypeOf(on.Params.PrinterType).Copy) {
    case CopyKind::OrientedPagePass:
        Skip("orientation",
             [&] { session.Printers.Current().SetOrientation(on.Params.PrinterOrientation); });
        PrintPages(session, on, pages, look);
        break;
    case CopyKind::PagePass:
        PrintPages(session, on, pages, look);
        break;
    case CopyKind::SerializedPass:
        look.reset();
        PrintSerialized(session, on);
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

void PrintCard(Session& session, LayoutPage& on)
{
    session.Operator.ShowBusyPointer(true);
    ChoosePrinter(session.Printers, on.Params);
    const std::int16_t openPage = on.Params.PageIndex;
    const std::int16_t copies = on.Params.PrinterCopies;
    std::int16_t pages = 0;
    NoteWhyNoCard(session, WhyNoCard(on.Params, copies));
    for (int copy = 1; copy <= copies; ++copy) {
        if (session.Run)
            session.Run->Copy = copy;
        std::optional<ReadAhead> look = LookAt(session, on, 1);
        Skip("count pages", [&] { pages = CountLayoutPages(session.LayoutDb, on.LayoutName); });
        PrintCopy(session, on, {1, pages}, look);
    }
    // Nobody looks at the page while rows of a file print, and the next row loads it again.
    if (session.Keeper == nullptr || on.Params.PageIndex != openPage)
        OpenAgain(session, on, openPage);
    session.Operator.ShowBusyPointer(false);
}

void PrintCard(Session& session)
{
    PrintCard(session, session.Surface);
}

void PrintFurther(Session& session, LayoutPage& on, int copy, std::int16_t page)
{
    const std::int16_t openPage = on.Params.PageIndex;
    const std::int16_t copies = on.Params.PrinterCopies;
    std::int16_t pages = 0;
    const auto next = static_cast<std::int16_t>(page + 1);
    std::optional<ReadAhead> look = LookAt(session, on, next);
    Skip("count pages", [&] { pages = CountLayoutPages(session.LayoutDb, on.LayoutName); });
    ChoosePrinter(session.Printers, on.Params);
    // A copy of serialized output is one card whatever its pages.
    if (PrinterTypeOf(on.Params.PrinterType).Copy == CopyKind::SerializedPass)
        page = pages;
    for (; copy <= copies; ++copy, page = 0) {
        session.Run->Copy = copy;
        if (page < pages)
            PrintCopy(session, on, {static_cast<std::int16_t>(page + 1), pages}, look);
    }
    look.reset();
    OpenAgain(session, on, openPage);
}

void PrintOnePage(Session& session, LayoutPage& on, std::int16_t page)
{
    const std::int16_t openPage = on.Params.PageIndex;
    OpenPage(session, on, page);
    ChoosePrinter(session.Printers, on.Params);
    std::optional<ReadAhead> look;
    PrintCopy(session, on, {page, page}, look);
    OpenAgain(session, on, openPage);
}

} // namespace vantrel
