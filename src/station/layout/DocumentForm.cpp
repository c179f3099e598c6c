#include "station/layout/DocumentForm.h"
#include "base/Skip.h"
#include "card/Grips.h"
#include "card/PrinterType.h"
#include "printers/Printer.h"
#include "station/layout/FieldApplication.h"
#include "station/session/Session.h"
#include <algorithm>
#include <array>

namespace vantrel {

namespace {

constexpr float FormLeft = 600;
constexpr float FormTop = 600;
constexpr float SmallestForm = 2000;

void TakePageSize(CardDocument& document, Printers& printers)
{
    const Printer& printer = printers.Current();
    document.Width = static_cast<float>(printer.Width());
    document.Height = static_cast<float>(printer.Height());
}

} // namespace

void EnsureDocument(Session& session, LayoutPage& page)
{
    CardDocument& document = page.Document;
    if (document.IsLoaded())
        return;
    document.Load();
    document.Left = FormLeft;
    document.Top = FormTop;
    Skip("page size", [&] { TakePageSize(document, session.Printers); });
    DragInit(document);
    if (session.Shows(page))
        BuildFieldMenu(session.Face, session.FieldValues);
}

void EnsureDocument(Session& session)
{
    EnsureDocument(session, session.Surface);
}

CardDocument& OpenForm(Session& session)
{
    EnsureDocument(session);
    return session.Document;
}

void SetSize(Session& session, LayoutPage& page)
{
    EnsureDocument(session, page);
    CardDocument& document = page.Document;
    const PrinterTypeRow& type = PrinterTypeOf(page.Params.PrinterType);
    switch (type.Size) {
    case SizeSource::OrientedPage:
        session.Printers.Current().SetOrientation(page.Params.PrinterOrientation);
        TakePageSize(document, session.Printers);
        break;
    case SizeSource::Page:
        TakePageSize(document, session.Printers);
        break;
    case SizeSource::Fixed:
        document.Width = type.FixedWidth;
        document.Height = type.FixedHeight;
        break;
    case SizeSource::Unchanged:
        break;
    }
    document.Width = std::max(document.Width, SmallestForm);
    document.Height = std::max(document.Height, SmallestForm);
    document.Refresh();
}

void SetSize(Session& session)
{
    SetSize(session, session.Surface);
}

void RePaint(CardDocument& document)
{
    document.Refresh();
}

} // namespace vantrel
