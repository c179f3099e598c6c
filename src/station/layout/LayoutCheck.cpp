#include "station/layout/LayoutCheck.h"
#include "base/Convert.h"
#include "base/NumberFormat.h"
#include "base/Skip.h"
#include "card/AutoNumber.h"
#include "card/CardDocument.h"
#include "card/LayoutParamsRecord.h"
#include "card/PageCheck.h"
#include "card/PourValues.h"
#include "printers/Printer.h"
#include "station/layout/DrawObjects.h"
#include "station/layout/LayoutParams.h"
#include "station/layout/ObjectExtraRows.h"
#include "station/layout/PageKey.h"
#include "station/layout/RowToObject.h"
#include "station/layout/StoreStatements.h"
#include "station/layout/StoredNumbers.h"
#include "store/Connection.h"
#include <algorithm>
#include <iterator>
#include <memory>
#include <set>

namespace vantrel {

namespace {

/// A plastic card, in twips.
constexpr double CardShort = 3060;
constexpr double CardLong = 4860;

/// What a page without parameters of its own takes from the one before.
LayoutParamsRecord Inherited(const LayoutParamsRecord& before)
{
    LayoutParamsRecord params;
    params.PrinterDevice = before.PrinterDevice;
    params.PrinterType = before.PrinterType;
    params.PrinterOrientation = before.PrinterOrientation;
    return params;
}

void LoadPage(Connection& store, const PageKey& page, CardDocument& document,
              LayoutParamsRecord& params)
{
    Recordset row(store);
    row.Open(ParamsOfPage(page.LayoutName, page.Page));
    if (!row.IsEof())
        ReadParams(params, ReaderOf(row));
    Recordset rows(store);
    for (rows.Open(ObjectsOfPage(page.LayoutName, page.Page)); !rows.IsEof(); rows.MoveNext())
        Skip("object", [&] { RowToObject(document, ReaderOf(rows)); });
    Skip("extras", [&] { LoadExtras(store, page, document); });
}

void CopyPage(const PageInMemory& page, CardDocument& document)
{
    document.Width = page.Document.Width;
    document.Height = page.Document.Height;
    std::vector<std::unique_ptr<CardObject>> copies;
    for (const auto& object : page.Document.Objects()) {
        if (object->IsContent())
            copies.push_back(std::make_unique<CardObject>(*object));
    }
    document.PutContent(std::move(copies));
}

/// Reads the pictures of files again: what was there when the page was loaded may have gone.
void ReadPictures(CardDocument& document, const PictureSource& pictures)
{
    for (const auto& object : document.Objects()) {
        if (!object->IsContent() || !object->IsImage() || object->Tag == Marker::Camera)
            continue;
        object->Picture = {};
        object->PictureProblem.clear();
        object->IsRecordPicture = pictures.IsNamedByRecord(object->Tag);
        if (!object->IsRecordPicture)
            Skip("load image", [&] { object->Picture = LoadPicture(object->Tag); });
    }
}

/// Gives the objects what a card of the record would show.
void FillPage(CardDocument& document, const CheckedLayout& layout)
{
    if (layout.Values.Count() > 0)
        FillDataFields(document, layout.Values, MachineDecimalSeparator());
    for (CardObject* number : NumbersOn(document))
        Skip("number", [&] { Increment_If_AutoNumber(*number); });
    ReadPictures(document, layout.Pictures);
    FillRecordPictures(document, layout.Values, layout.Pictures);
}

class LayoutCheck
{
public:
    explicit LayoutCheck(const CheckedLayout& layout) : m_layout(layout) {}

    Findings Run()
    {
        for (const std::int16_t page : Pages()) {
            if (m_layout.InMemory != nullptr && page == m_layout.InMemory->Params.PageIndex)
                CheckInMemory();
            else
                Skip("check page", [&] { CheckStored(page); });
        }
        return std::move(m_findings);
    }

private:
    std::set<std::int16_t> Pages() const
    {
        std::set<std::int16_t> pages;
        Recordset rows(m_layout.LayoutDb);
        for (rows.Open(PagesOfLayout(m_layout.Name)); !rows.IsEof(); rows.MoveNext())
            Skip("page", [&] { pages.insert(ToInteger(rows.Value(QStringLiteral("Page")))); });
        if (m_layout.InMemory != nullptr)
            pages.insert(m_layout.InMemory->Params.PageIndex);
        return pages;
    }

    void CheckInMemory()
    {
        CardDocument document;
        document.Load();
        CopyPage(*m_layout.InMemory, document);
        CheckFilled(document, m_layout.InMemory->Params);
    }

    void CheckStored(std::int16_t page)
    {
        CardDocument document;
        document.Load();
        LayoutParamsRecord params = Inherited(m_before);
        LoadPage(m_layout.LayoutDb, {m_layout.Name, page}, document, params);
        params.PageIndex = page;
        const QSizeF size = m_layout.CardSize ? m_layout.CardSize(params) : UsualCardSize(params);
        document.Width = static_cast<float>(size.width());
        document.Height = static_cast<float>(size.height());
        CheckFilled(document, params);
    }

    void CheckFilled(CardDocument& document, LayoutParamsRecord params)
    {
        m_before = params;
        params.BackImg1Picture = {};
        Skip("back image", [&] { params.BackImg1Picture = LoadPicture(params.BackImg1Path); });
        FillPage(document, m_layout);
        Findings found =
            CheckPage({.Document = document,
                       .Params = params,
                       .Values = m_layout.Values,
                       .DotsPerInch = m_layout.DotsPerInch ? m_layout.DotsPerInch(params) : 0,
                       .CameraPlaceholder = CameraPlaceholder()});
        std::move(found.begin(), found.end(), std::back_inserter(m_findings));
    }

    const CheckedLayout& m_layout;
    LayoutParamsRecord m_before;
    Findings m_findings;
};

} // namespace

QSizeF UsualCardSize(const LayoutParamsRecord& params)
{
    const PrinterTypeRow& type = PrinterTypeOf(params.PrinterType);
    if (type.Size == SizeSource::Fixed)
        return {static_cast<double>(type.FixedWidth), static_cast<double>(type.FixedHeight)};
    const QSizeF upright(CardShort, CardLong);
    return params.PrinterOrientation == OrientationLandscape ? upright.transposed() : upright;
}

Findings CheckLayout(const CheckedLayout& layout)
{
    return LayoutCheck(layout).Run();
}

} // namespace vantrel
