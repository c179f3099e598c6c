#include "layout/DocumentForm.h"
#include "app/Session.h"
#include "capture/FieldApplication.h"
#include "platform/Printer.h"
#include "platform/Skip.h"
#include <algorithm>
#include <array>

namespace vantrel {

namespace {

constexpr float FormLeft = 600;
constexpr float FormTop = 600;
constexpr float SmallestForm = 2000;

/// Where the form takes its size from.
enum class SizeSource { OrientedPage, Page, Fixed, Unchanged };

struct SizeRow
{
    std::int32_t PrinterType;
    SizeSource Source;
    /// Of a fixed size, in twips.
    float Width = 0;
    float Height = 0;
};

constexpr std::array<SizeRow, 11> SizeTable = {{
    {1, SizeSource::OrientedPage},
    {2, SizeSource::OrientedPage},
    {3, SizeSource::Page},
    {4, SizeSource::OrientedPage},
    {5, SizeSource::OrientedPage},
    {6, SizeSource::Unchanged},
    {7, SizeSource::Unchanged},
    {8, SizeSource::Unchanged},
    {9, SizeSource::OrientedPage},
    {10, SizeSource::Fixed, 8000, 2000},
    {11, SizeSource::OrientedPage},
}};

constexpr SizeRow SizeOf(std::int32_t printerType)
{
    for (const SizeRow& row : SizeTable) {
        if (row.PrinterType == printerType)
            return row;
    }
    return {printerType, SizeSource::Unchanged};
}

void TakePageSize(Session& session)
{
    const Printer& printer = session.Printers.Current();
    session.Document.Width = static_cast<float>(printer.Width());
    session.Document.Height = static_cast<float>(printer.Height());
}

} // namespace

void EnsureDocument(Session& session)
{
    CardDocument& document = session.Document;
    if (document.IsLoaded())
        return;
    document.Load();
    document.Left = FormLeft;
    document.Top = FormTop;
    Skip("page size", [&] { TakePageSize(session); });
    BuildFieldMenu(session);
}

void SetSize(Session& session)
{
    EnsureDocument(session);
    CardDocument& document = session.Document;
    const SizeRow row = SizeOf(session.CurrentParams.PrinterType);
    switch (row.Source) {
    case SizeSource::OrientedPage:
        session.Printers.Current().SetOrientation(session.CurrentParams.PrinterOrientation);
        TakePageSize(session);
        break;
    case SizeSource::Page:
        TakePageSize(session);
        break;
    case SizeSource::Fixed:
        document.Width = row.Width;
        document.Height = row.Height;
        break;
    case SizeSource::Unchanged:
        break;
    }
    document.Width = std::max(document.Width, SmallestForm);
    document.Height = std::max(document.Height, SmallestForm);
    document.Refresh();
}

void ShowHandles(Session& session, bool show)
{
    CardDocument& document = session.Document;
    for (int grip = 0; grip <= document.HighestIndex(Family::picHandle); ++grip) {
        if (CardObject* handle = document.Find(Family::picHandle, grip))
            handle->Visible = show;
    }
    document.HandlesShown = show;
    document.Refresh();
}

void RePaint(Session& session)
{
    session.Document.Refresh();
}

} // namespace vantrel
