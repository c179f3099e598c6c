#include "print/PrintCard.h"
#include "app/Operator.h"
#include "app/Session.h"
#include "capture/FieldApplication.h"
#include "layout/LoadLayout.h"
#include "platform/Printer.h"
#include "platform/Skip.h"
#include "print/PrintPage.h"
#include "shaping/Serializer.h"

namespace vantrel {

namespace {

/// What a copy does, by the kind of printer.
enum class CopyKind { Nothing, PagePass, OrientedPagePass, SerializedPass };

struct CopyRow
{
    std::int32_t PrinterType;
    CopyKind Kind;
};

constexpr CopyRow CopyTable[] = {
    {1, CopyKind::OrientedPagePass}, {2, CopyKind::PagePass}, {3, CopyKind::SerializedPass},
    {4, CopyKind::PagePass},         {5, CopyKind::PagePass}, {6, CopyKind::Nothing},
    {7, CopyKind::Nothing},          {8, CopyKind::Nothing},  {9, CopyKind::PagePass},
    {10, CopyKind::PagePass},        {11, CopyKind::PagePass}};

CopyKind KindOfCopy(std::int32_t printerType)
{
    for (const CopyRow& row : CopyTable) {
        if (row.PrinterType == printerType)
            return row.Kind;
    }
    return CopyKind::Nothing;
}

/// Where no printer has the wanted name, the current one stays and gets the job.
void ChoosePrinter(Session& session)
{
    const QString& wanted = session.CurrentParams.PrinterDevice;
    if (session.Printers.DeviceNames().contains(wanted))
        Skip("choose printer", [&] { session.Printers.MakeCurrent(wanted); });
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
    switch (KindOfCopy(session.CurrentParams.PrinterType)) {
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
    ChoosePrinter(session);
    const std::int16_t openPage = session.CurrentParams.PageIndex;
    const std::int16_t copies = session.CurrentParams.PrinterCopies;
    std::int16_t pages = 0;
    for (int copy = 1; copy <= copies; ++copy) {
        Skip("count pages", [&] { pages = CountLayoutPages(session); });
        PrintCopy(session, pages);
    }
    OpenPage(session, openPage);
    session.Operator.ShowBusyPointer(false);
}

} // namespace vantrel
