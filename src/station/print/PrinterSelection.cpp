#include "station/print/PrinterSelection.h"
#include "base/Convert.h"
#include "base/Skip.h"
#include "printers/Printer.h"
#include "station/layout/DocumentForm.h"
#include "station/layout/LayoutParams.h"
#include "station/session/Session.h"
#include "store/Recordset.h"
#include "store/StoredValue.h"

namespace vantrel {

namespace {

QString FlagText(const QVariant& flag)
{
    bool isSet = false;
    Skip("flag of a kind", [&] { isSet = StoredBoolean(flag); });
    return isSet ? QStringLiteral("Driver Support") : QStringLiteral("No");
}

void SaveOrientation(Session& session, std::int32_t orientation)
{
    Skip("orientation", [&] { session.Printers.Current().SetOrientation(orientation); });
    session.CurrentParams.PrinterOrientation = orientation;
}

/// Converts a count; fails if it does not fit 16 bits.
std::int16_t CopiesOf(int count)
{
    return ToInteger(QVariant(count));
}

} // namespace

PrinterListRow LookAtPrinter(Printers& printers, const QString& deviceName)
{
    const SpoolState spool = printers.SpoolStateOf(deviceName);
    PrinterListRow row;
    row.Key = BooleanText(!spool.Paused) + deviceName;
    row.DeviceName = deviceName;
    row.AcceptsJobs = spool.Accepting;
    row.Status = spool.Paused ? QStringLiteral("Paused") : QStringLiteral("Active");
    row.Jobs = QString::number(spool.Jobs);
    return row;
}

std::vector<PrinterKindRow> ReadPrinterKinds(Connection& layoutDb)
{
    std::vector<PrinterKindRow> kinds;
    Skip("printer kinds", [&] {
        Recordset row(layoutDb);
        row.Open(QStringLiteral("SELECT * FROM [PrinterTypes] ORDER BY [VisOrder] ASC"),
                 CursorLock::Optimistic);
        for (; !row.IsEof(); row.MoveNext()) {
            kinds.push_back({JoinedText(row.Value(QStringLiteral("Name"))),
                             JoinedText(row.Value(QStringLiteral("DeviceType"))),
                             FlagText(row.Value(QStringLiteral("ColorCapable"))),
                             FlagText(row.Value(QStringLiteral("DualSided")))});
        }
    });
    return kinds;
}

bool IsConfigurable(const QString& kindTag)
{
    return kindTag == QString::number(PrinterTypeCode::Serialized);
}

OrientationOption OptionOf(std::int32_t orientation)
{
    switch (orientation) {
    case OrientationPortrait:
        return OrientationOption::Portrait;
    case OrientationLandscape:
        return OrientationOption::Landscape;
    default:
        return OrientationOption::Default;
    }
}

void SavePrinterChoice(Session& session, const PrinterChoice& choice)
{
    LayoutParamsRecord& params = session.CurrentParams;
    // 1. The printer, if it still exists.
    if (session.Printers.DeviceNames().contains(choice.DeviceName))
        Skip("choose printer", [&] { session.Printers.MakeCurrent(choice.DeviceName); });

    // 2. The orientation of the printer and of the layout.
    if (choice.Orientation == OrientationOption::Portrait)
        SaveOrientation(session, OrientationPortrait);
    else if (choice.Orientation == OrientationOption::Landscape)
        SaveOrientation(session, OrientationLandscape);

    // 3. The document's size, still by the layout's old printer type.
    if (choice.ForceResize)
        Skip("force resize", [&] { SetSize(session); });

    // 4. The layout's parameters.
    params.PrinterDevice = choice.DeviceName;
    Skip("printer kind", [&] { params.PrinterType = ToLong(choice.KindTag); });
    Skip("copies", [&] { params.PrinterCopies = CopiesOf(choice.Copies); });
    Skip("save parameters", [&] {
        SaveLayoutParams(session.LayoutDb, session.CurrentLayoutName, session.CurrentParams);
    });
}

} // namespace vantrel
