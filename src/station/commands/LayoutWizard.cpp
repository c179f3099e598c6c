#include "station/commands/LayoutWizard.h"
#include "base/Convert.h"
#include "base/Skip.h"
#include "station/layout/DesignSteps.h"
#include "station/layout/DocumentForm.h"
#include "station/layout/DrawObjects.h"
#include "station/layout/LayoutParams.h"
#include "station/layout/LoadLayout.h"
#include "station/layout/StoredLayout.h"
#include "station/session/Operator.h"
#include "station/session/Session.h"
#include "store/Recordset.h"

namespace vantrel {

namespace {

constexpr int MostPrinters = 100;
constexpr std::size_t MostKinds = 99;

/// Vertical distance of the fields in twips; field n is n steps from the top.
constexpr std::int32_t FieldStep = 320;
constexpr std::int32_t FieldLeft = 200;
constexpr std::int32_t FieldHeight = 300;
constexpr std::int32_t FieldWidth = 3000;

constexpr QChar Registered(174);

void SetUpPrinter(Printers& printers, const WizardAnswers& answers)
{
    Skip("make printer current", [&] { printers.MakeCurrent(answers.PrinterName); });
    Skip("orientation", [&] { printers.Current().SetOrientation(answers.Orientation); });
}

void DrawFields(Session& session, const WizardAnswers& answers)
{
    TextLooks looks;
    looks.cFont = answers.DefaultFont.value_or(Font());
    for (std::int16_t field = 1; field <= answers.FieldCount; ++field) {
        Skip("draw field", [&] {
            Draw_DataField(OpenForm(session), field,
                           {field * FieldStep, FieldLeft, FieldHeight, FieldWidth}, looks);
        });
    }
}

void TellToSend(Operator& stationOperator)
{
    const QString title = QStringLiteral("Send the data stream to Vantrel%1 6").arg(Registered);
    const QString text =
        QStringLiteral("Now send the data stream to Ostrand Vantrel%1 6, and the data will appear "
                       "on the document!       \r\n"
                       "After you are satisfied with the layout, you MUST save it!")
            .arg(Registered);
    stationOperator.MessageBox(text, title, BoxIcon::Information);
}

void KeepAnswers(Session& session, const WizardAnswers& answers)
{
    LayoutParamsRecord& params = session.CurrentParams;
    Skip("printer", [&] { params.PrinterDevice = session.Printers.Current().DeviceName(); });
    Skip("orientation of the printer",
         [&] { params.PrinterOrientation = session.Printers.Current().Orientation(); });
    params.PrinterType = answers.PrinterKind;
    session.Settings.DynamicFields = answers.DynamicFields;
    params.PageIndex = 1;
    params.PageCount = 1;
    params.PrinterCopies = 1;
    params.AutoSpool = true;
    session.Face.SetTick(Tick::chkAutoSpool, true);
}

QString OrientationName(int orientation)
{
    return orientation == OrientationLandscape ? QStringLiteral("Landscape")
                                               : QStringLiteral("Portrait");
}

QString FontName(const std::optional<Font>& font)
{
    if (!font)
        return {};
    return font->Name + QStringLiteral(" (") + NumberText(font->Size) + QLatin1Char(')');
}

} // namespace

std::optional<bool> IsPageComplete(WizardStep step, const QString& name,
                                   const WizardAnswers& answers)
{
    switch (step) {
    case WizardStep::Name:
        return !name.trimmed().isEmpty();
    case WizardStep::DefaultFont:
        return true;
    case WizardStep::Orientation:
        return answers.Orientation != 0;
    case WizardStep::Printer:
        return !answers.PrinterName.isEmpty();
    default:
        return {};
    }
}

std::vector<SummaryLine> SummaryOf(const WizardAnswers& answers)
{
    return {
        {"Card layout name", answers.LayoutName},
        {"Default font", FontName(answers.DefaultFont)},
        {"Orientation", OrientationName(answers.Orientation)},
        {"Card printer name", answers.PrinterName},
        {"Card printer type", answers.PrinterKindName},
        {"Number of data fields",
         answers.DynamicFields ? QStringLiteral("Auto") : QString::number(answers.FieldCount)},
    };
}

QStringList WizardPrinters(Printers& printers)
{
    return printers.DeviceNames().mid(0, MostPrinters);
}

std::vector<WizardPrinterKind> WizardPrinterKinds(Connection& layoutDb)
{
    std::vector<WizardPrinterKind> kinds;
    Skip("list printer kinds", [&] {
        Recordset rows(layoutDb);
        rows.Open(QStringLiteral("SELECT [DeviceType], [Name] FROM [PrinterTypes]"));
        for (; !rows.IsEof() && kinds.size() < MostKinds; rows.MoveNext()) {
            kinds.push_back({JoinedText(rows.Value(QStringLiteral("Name"))),
                             JoinedText(rows.Value(QStringLiteral("DeviceType")))});
        }
    });
    return kinds;
}

void BuildWizardLayout(Session& session, const WizardAnswers& answers)
{
    if (!MayLeavePage(session) || !MayTakeName(session, answers.LayoutName))
        return;
    session.Operator.ShowBusyPointer(true);
    session.Operator.LetEventsRun();
    session.CurrentLayoutName = answers.LayoutName;
    SetUpPrinter(session.Printers, answers);
    Skip("clear document", [&] { ClearDoc(session); });
    // This still uses the previous parameters; the new ones are set at the end.
    Skip("size", [&] { SetSize(session); });
    if (answers.DefaultFont || session.Options.DesignTools)
        session.Document.DefaultFont = answers.DefaultFont;
    if (!answers.DynamicFields)
        DrawFields(session, answers);
    session.Document.Show();
    TellToSend(session.Operator);
    KeepAnswers(session, answers);
    session.Operator.ShowBusyPointer(false);
    Skip("write parameters", [&] {
        SaveLayoutParams(session.LayoutDb, session.CurrentLayoutName, session.CurrentParams);
        if (session.Options.DesignTools)
            SetAutoSpoolOfAllPages(session.LayoutDb, session.CurrentLayoutName,
                                   session.CurrentParams.AutoSpool);
    });
}

} // namespace vantrel
