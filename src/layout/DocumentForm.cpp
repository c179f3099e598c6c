#include "layout/DocumentForm.h"
#include "app/Session.h"
#include "capture/FieldApplication.h"
#include "platform/Convert.h"
#include "platform/Printer.h"
#include "platform/Skip.h"
#include <algorithm>
#include <array>

namespace vantrel {

namespace {

constexpr float FormLeft = 600;
constexpr float FormTop = 600;
constexpr float SmallestForm = 2000;
constexpr double GripPixels = 5;

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

/// The eight grips, clockwise from the upper left: which column and which row of the box.
enum class Edge { Near, Middle, Far };

struct GripPlace
{
    Edge Column;
    Edge Row;
};

constexpr std::array<GripPlace, 8> GripPlaces = {{
    {Edge::Near, Edge::Near},
    {Edge::Middle, Edge::Near},
    {Edge::Far, Edge::Near},
    {Edge::Far, Edge::Middle},
    {Edge::Far, Edge::Far},
    {Edge::Middle, Edge::Far},
    {Edge::Near, Edge::Far},
    {Edge::Near, Edge::Middle},
}};

/// Half a screen pixel in twips, and the side of a grip.
const std::int32_t HalfPixel = RoundToLong(FormOnScreen().TwipsPerPixelX / 2);
const std::int32_t GripSide = RoundToLong(FormOnScreen().TwipsPerPixelX * GripPixels);

std::int32_t GripAt(Edge edge, std::int32_t side, std::int32_t length)
{
    constexpr std::int32_t two = 2;
    const std::int32_t half = GripSide / two;
    switch (edge) {
    case Edge::Near:
        return side - half + HalfPixel;
    case Edge::Middle:
        return side + length / two - half;
    case Edge::Far:
        break;
    }
    return side + length - half - HalfPixel;
}

/// Puts the grips around the drag's rectangle.
void PlaceGrips(const CardDocument& document)
{
    const CRect& box = document.Drag.m_DragRect;
    for (std::size_t grip = 0; grip < GripPlaces.size(); ++grip) {
        CardObject* handle = document.Find(Family::picHandle, static_cast<int>(grip));
        if (handle == nullptr)
            continue;
        handle->Left = static_cast<float>(GripAt(GripPlaces[grip].Column, box.Left, box.Width()));
        handle->Top = static_cast<float>(GripAt(GripPlaces[grip].Row, box.Top, box.Height()));
    }
}

/// Sizes the grips and begins with nothing selected.
void DragInit(CardDocument& document)
{
    for (std::size_t grip = 0; grip < GripPlaces.size(); ++grip) {
        CardObject& handle = *document.Find(Family::picHandle, static_cast<int>(grip));
        handle.Width = handle.Height = static_cast<float>(GripSide);
    }
    document.SelectedObject = nullptr;
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
    DragInit(document);
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
    if (show && document.SelectedObject != nullptr)
        PlaceGrips(document);
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
