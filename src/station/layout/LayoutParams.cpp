#include "station/layout/LayoutParams.h"
#include "base/Convert.h"
#include "base/Skip.h"
#include "card/PrinterType.h"
#include "printers/Printer.h"
#include "station/layout/DocumentForm.h"
#include "station/layout/StoreStatements.h"
#include "station/layout/StoredLayout.h"
#include "station/session/Session.h"
#include "store/Recordset.h"
#include "store/StoredValue.h"

namespace vantrel {

namespace {

/// Resets what a page without a row does not inherit from the previous page.
void ResetPageOwn(LayoutParamsRecord& params)
{
    params.Encode = false;
    params.Track1.clear();
    params.Track2.clear();
    params.Track3.clear();
    ResetBackImages(params);
}

/// The path of an unreadable picture is kept, so that the next save does not lose it.
void ReadBackImage(LayoutParamsRecord& params, const ColumnReader& row)
{
    const QVariant path = row(QStringLiteral("BackImg1"));
    if (path.isNull())
        return;
    Skip("back image", [&] { params.BackImg1Picture = LoadPicture(ToText(path)); });
    Skip("back image path", [&] { params.BackImg1Path = ToText(path); });
}

void FillRow(const QString& layoutName, const LayoutParamsRecord& params, Recordset& row)
{
    row.SetValue(QStringLiteral("LayoutName"), layoutName);
    row.SetValue(QStringLiteral("Encode"), params.Encode);
    row.SetValue(QStringLiteral("PrinterDevice"), params.PrinterDevice);
    row.SetValue(QStringLiteral("PrinterOrientation"), params.PrinterOrientation);
    row.SetValue(QStringLiteral("PrinterType"), params.PrinterType);
    row.SetValue(QStringLiteral("Track1"), params.Track1);
    row.SetValue(QStringLiteral("Track2"), params.Track2);
    row.SetValue(QStringLiteral("Track3"), params.Track3);
    row.SetValue(QStringLiteral("BackImg1"), params.BackImg1Path);
    row.SetValue(QStringLiteral("BackImg2"), params.BackImg2Path);
    row.SetValue(QStringLiteral("PrinterCopies"), static_cast<int>(params.PrinterCopies));
    row.SetValue(QStringLiteral("PageIndex"), static_cast<int>(params.PageIndex));
    row.SetValue(QStringLiteral("AutoSpool"), params.AutoSpool);
}

} // namespace

void SelectPagePrinter(Session& session, LayoutPage& page)
{
    const LayoutParamsRecord& params = page.Params;
    const QStringList names = session.Printers.DeviceNames();
    for (const QString& name : names) {
        if (name != params.PrinterDevice)
            continue;
        Skip("make printer current", [&] { session.Printers.MakeCurrent(name); });
        const SetUp setUp = PrinterTypeOf(params.PrinterType).OnLoad;
        if (setUp == SetUp::NotHere)
            continue;
        if (setUp == SetUp::OrientationAndSize) {
            Skip("orientation",
                 [&] { session.Printers.Current().SetOrientation(params.PrinterOrientation); });
        }
        Skip("size", [&] { SetSize(session, page); });
        return;
    }
}

void ReadParams(LayoutParamsRecord& params, const ColumnReader& value)
{
    Skip("encode", [&] { params.Encode = StoredBoolean(value(QStringLiteral("Encode"))); });
    Skip("printer device",
         [&] { params.PrinterDevice = ToText(value(QStringLiteral("PrinterDevice"))); });
    Skip("printer orientation",
         [&] { params.PrinterOrientation = ToLong(value(QStringLiteral("PrinterOrientation"))); });
    Skip("printer type",
         [&] { params.PrinterType = ToLong(value(QStringLiteral("PrinterType"))); });
    Skip("track 1", [&] { params.Track1 = ToText(value(QStringLiteral("Track1"))); });
    Skip("track 2", [&] { params.Track2 = ToText(value(QStringLiteral("Track2"))); });
    Skip("track 3", [&] { params.Track3 = ToText(value(QStringLiteral("Track3"))); });
    Skip("filter", [&] { params.Filter = JoinedText(value(QStringLiteral("Filter"))); });
    // The leading zero turns a null into a valid number.
    Skip("copies", [&] {
        params.PrinterCopies =
            ToInteger(QLatin1Char('0') + JoinedText(value(QStringLiteral("PrinterCopies"))));
    });
    Skip("back image column", [&] { ReadBackImage(params, value); });
}

void LoadLayoutParams(Session& session, LayoutPage& page)
{
    LayoutParamsRecord& params = page.Params;
    ResetPageOwn(params);
    Recordset row(session.LayoutDb);
    bool found = false;
    Skip("open parameters", [&] {
        row.Open(ParamsOfPage(page.LayoutName, params.PageIndex), CursorLock::Optimistic);
        found = !row.IsEof();
    });
    // A page without a row inherits the parameters in memory.
    if (found)
        ReadParams(params, ReaderOf(row));
    Skip("count pages",
         [&] { params.PageCount = CountLayoutPages(session.LayoutDb, page.LayoutName); });
    if (found) {
        Skip("auto spool",
             [&] { params.AutoSpool = StoredBoolean(row.Value(QStringLiteral("AutoSpool"))); });
    }
    Skip("close parameters", [&] { row.Close(); });
    if (session.Options.DesignTools && params.PageIndex != 1) {
        Skip("auto spool of the layout", [&] {
            if (const auto first = AutoSpoolOfLayout(session.LayoutDb, page.LayoutName))
                params.AutoSpool = *first;
        });
    }
    SelectPagePrinter(session, page);
}

void LoadLayoutParams(Session& session)
{
    LoadLayoutParams(session, session.Surface);
}

void SaveLayoutParams(Connection& layoutDb, const QString& layoutName,
                      const LayoutParamsRecord& params)
{
    // A macro may have closed the layout while a dialog was open.
    if (layoutName.isEmpty())
        return;
    const QString statement = ParamsOfPage(layoutName, params.PageIndex);
    Recordset row(layoutDb);
    row.Open(statement, CursorLock::Optimistic);
    if (row.IsEof() || row.IsBof()) {
        row.AddNew();
        FillRow(layoutName, params, row);
        if (row.UpdateUnlessFound())
            return;
        // Another session has added the page's row in the meantime, so that row is changed.
        row.Open(statement, CursorLock::Optimistic);
    }
    FillRow(layoutName, params, row);
    row.Update();
    row.Close();
}

std::int16_t CountLayoutPages(Connection& layoutDb, const QString& layoutName)
{
    Recordset pages(layoutDb);
    pages.Open(PagesOfLayout(layoutName));
    return static_cast<std::int16_t>(pages.RecordCount());
}

} // namespace vantrel
