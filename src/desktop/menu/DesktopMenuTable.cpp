#include "desktop/camera/frmAquireImage2.h"
#include "desktop/camera/frmTakePhoto.h"
#include "desktop/composers/frmEncoding.h"
#include "desktop/composers/frmPad.h"
#include "desktop/controls/DesktopControls.h"
#include "desktop/designer/frmDocument.h"
#include "desktop/designer/frmObjects.h"
#include "desktop/designer/frmPlace.h"
#include "desktop/designer/frmSize.h"
#include "desktop/dialogs/frmAbout.h"
#include "desktop/dialogs/frmCheck.h"
#include "desktop/dialogs/frmCode.h"
#include "desktop/dialogs/frmCommSettings.h"
#include "desktop/dialogs/frmFilters.h"
#include "desktop/dialogs/frmForms.h"
#include "desktop/dialogs/frmGetLayout.h"
#include "desktop/dialogs/frmMacro.h"
#include "desktop/dialogs/frmOptions.h"
#include "desktop/dialogs/frmPreSuffix.h"
#include "desktop/dialogs/frmPrinters2.h"
#include "desktop/dialogs/frmRawData.h"
#include "desktop/dialogs/frmSendData.h"
#include "desktop/dialogs/frmShrink.h"
#include "desktop/dialogs/frmToolbar.h"
#include "desktop/dialogs/frmWizard.h"
#include "desktop/history/frmHistory.h"
#include "desktop/menu/DesktopClipboard.h"
#include "desktop/menu/DesktopFileCommands.h"
#include "desktop/menu/DesktopMenuRow.h"
#include "station/commands/ArrangeCommands.h"
#include "station/commands/ClipCommands.h"
#include "station/commands/Commands.h"
#include "station/commands/InsertCommands.h"
#include "station/commands/NumberCommands.h"
#include "station/commands/ObjectCommands.h"
#include "station/commands/PictureCommands.h"
#include "station/imaging/BackImage.h"
#include "station/imaging/Workspace.h"
#include "station/layout/DesignSteps.h"
#include "station/session/StationOptions.h"
#include <QMainWindow>

namespace vantrel {

namespace {

constexpr MenuRow Menu(const char* parent, const char* name, const char* caption)
{
    return {RowKind::Menu, parent, name, caption};
}

constexpr MenuRow Dash(const char* parent, const char* name = "")
{
    return {RowKind::Dash, parent, name};
}

constexpr MenuRow Command(const char* parent, const char* name, const char* caption,
                          const char* shortcut = "", MenuAction action = nullptr)
{
    return {RowKind::Command, parent, name, caption, shortcut, action};
}

/// The action that shows a dialog over the main window.
template <typename Dialog>
void Opens(Session& session, QMainWindow& window)
{
    OpenDialog<Dialog>(session, &window);
}

void OpensPrinterSelection(Session& session, QMainWindow& window)
{
    OpenPrinterSelection(session, &window);
}

/// The action that is a routine on the station's data.
template <auto Routine>
void Runs(Session& session, QMainWindow& /*window*/)
{
    Routine(session);
}

/// The action that goes through the designer's steps. The size dialog would show what the object
/// was.
template <auto Routine>
void StepsThrough(Session& session, QMainWindow& window)
{
    if (auto* dialog = window.findChild<frmSize*>())
        dialog->close();
    Routine(session);
}

template <PictureFit Fit>
void Fits(Session& session, QMainWindow& /*window*/)
{
    FitSelectedPictures(session, Fit);
}

template <StackMove Move>
void Stacks(Session& session, QMainWindow& /*window*/)
{
    StackSelected(session, Move);
}

template <AlignLine Line>
void Aligns(Session& session, QMainWindow& /*window*/)
{
    AlignSelected(session, Line);
}

template <SpreadAxis Axis>
void Spreads(Session& session, QMainWindow& /*window*/)
{
    SpreadSelected(session, Axis);
}

/// The action that only changes how the card is shown.
template <auto Routine, auto... Arguments>
void OnCard(Session& /*session*/, QMainWindow& window)
{
    if (auto* form = window.findChild<frmDocument*>())
        (form->*Routine)(Arguments...);
}

bool HasDesignTools(const StationOptions& options)
{
    return options.DesignTools;
}

/// Whether the station has the menu of what goes beyond the other ones.
bool HasStationMenu(const StationOptions& options)
{
    return options.Ledger || options.DesignTools;
}

constexpr auto Always = Enabled::Always;
constexpr auto WhileVisible = Enabled::WhileVisible;
constexpr auto WithLayout = Enabled::WithLayout;
constexpr auto WhileVisibleWithLayout = Enabled::WhileVisibleWithLayout;
constexpr auto WithSelection = Enabled::WithSelection;
constexpr auto WithStepBack = Enabled::WithStepBack;
constexpr auto WithStepForward = Enabled::WithStepForward;
constexpr auto WithObject = Enabled::WithObject;
constexpr auto WithImage = Enabled::WithImage;

// clang-format off
constexpr MenuRow Rows[] = {
    Menu("", "mnuFile", "&File"),
    Menu("mnuFile", "mnuNew", "New ..."),
    Command("mnuNew", "cmdNew", "Layout ...", "", Runs<NewCommand>).Hidden().On(WhileVisible),
    Command("mnuNew", "cmdWizard", "Layout Wizard ...", "", Opens<frmWizard>).On(WhileVisible),
    Command("mnuNew", "cmdNewPage", "Page ...", "", Runs<NewPageCommand>).On(WhileVisibleWithLayout),
    Menu("mnuFile", "mnuOpen", "&Open ..."),
    Command("mnuOpen", "cmdOpen", "&Open Layout", "", Opens<frmGetLayout>).On(WhileVisible),
    Command("mnuOpen", "cmdImportSession", "Vantrel 4 Session.ini", "",
            ImportVersion4Command).On(WhileVisibleWithLayout),
    Command("mnuFile", "cmdSave", "&Save", "Ctrl+S", Runs<SaveCommand>).On(WhileVisibleWithLayout),
    Command("mnuFile", "cmdSaveAs", "Save &As", "Ctrl+A").Disabled(),
    Command("mnuFile", "cmdClose", "&Close Layout", "Ctrl+L", Runs<CloseCommand>).On(WithLayout),
    Menu("mnuFile", "mnuDelete", "&Delete ..."),
    Command("mnuDelete", "cmdDeleteLayout", "&Delete Layout", "Ctrl+D",
            Runs<DeleteLayoutCommand>).On(WithLayout),
    Command("mnuDelete", "cmdDeletePage", "Delete Page", "", Runs<DeletePageCommand>),
    Dash("mnuFile"),
    Command("mnuFile", "cmdPrint", "Print ...", "Ctrl+P", Runs<PrintCommand>).On(WithLayout),
    Command("mnuFile", "cmdPrnSetup", "Printer Setup ...", "", OpensPrinterSelection)
        .On(WhileVisibleWithLayout),
    Dash("mnuFile"),
    Command("mnuFile", "cmdTakePicture", "Take Picture ...", "", Opens<frmAquireImage2>)
        .WithTools(Opens<frmTakePhoto>, Always),
    Dash("mnuFile"),
    Command("mnuFile", "cmdGenSerial", "Generate Card Sequence", "", Opens<frmSendData>),
    Dash("mnuFile"),
    Command("mnuFile", "cmdHide", "Hide Vantrel...", "Ctrl+H", Runs<ToggleVisible>),
    Command("mnuFile", "cmdExit", "&Disable Vantrel", "Shift+Del", Runs<ExitCommand>),

    Menu("", "mnuEdit", "&Edit"),
    Command("mnuEdit", "cmdCut", "&Cut", "Ctrl+Y").Disabled()
        .WithTools(CutCommand, WithObject, "Ctrl+X"),
    Command("mnuEdit", "cmdCopy", "C&opy", "Ctrl+C").Disabled().WithTools(CopyCommand, WithObject),
    Command("mnuEdit", "cmdPaste", "&Paste", "Ctrl+V").Disabled().WithTools(PasteCommand, WithLayout),
    Dash("mnuEdit"),
    Command("mnuEdit", "cmdDelete", "&Delete", "", Runs<DeleteSelectedObject>),

    Menu("", "mnuData", "&Document").On(WithLayout),
    Command("mnuData", "cmdInsertData", "Insert New Data Field", "F1", Runs<InsertDataField>),
    Command("mnuData", "cmdNewText", "Insert New Static Text", "F2", Runs<InsertText>),
    Command("mnuData", "cmdInsertImage", "Insert New Image Object", "F3", Runs<InsertImage>),
    Command("mnuData", "cmdInsertCamImage", "Insert New Camera Image", "F4",
            Runs<InsertCameraImage>),
    Command("mnuData", "cmdAutoNumber", "Insert New AutoNumber Object", "",
            Runs<InsertAutoNumber>).Hidden(),
    Dash("mnuData"),
    Command("mnuData", "cmdDeleteAll", "Delete all data fields", "", Runs<DeleteAllFields>),
    Dash("mnuData"),
    Command("mnuData", "cmdMag", "Magnetic Encoding ...", "F5", Opens<frmEncoding>),
    Dash("mnuData"),
    Menu("mnuData", "mnuBack2", "Background"),
    Command("mnuBack2", "cmdBackImg", "Import Image File ...", "", BackImageCommand),
    Command("mnuBack2", "cmdBaclPDF", "Import PDF File ...", "", AcrobatBackImageCommand),
    Command("mnuBack2", "cmdClearBackground", "Clear Background ...", "",
            Runs<ClearBackImages>),
    Dash("mnuData"),
    Command("mnuData", "chkAutoSpool", "Automatically Print Document", "", Runs<ToggleAutoSpool>)
        .With(Tick::chkAutoSpool),

    Menu("", "mnuView", "&View"),
    Command("mnuView", "cmdRawData", "Raw Input Data ...", "", Opens<frmRawData>),
    Dash("mnuView"),
    Command("mnuView", "cmdFieldData", "Decoded Field Data ...", "", Runs<ShowFieldData>),
    Dash("mnuView"),
    Command("mnuView", "cmdViewBuffer", "Buffered Input Data ...", "", Opens<frmForms>),

    Menu("", "mnuSettings", "&Settings"),
    Command("mnuSettings", "cmdDelimiters", "Data Settings ...", "", Opens<frmToolbar>),
    Command("mnuSettings", "cmdCommSettings", "&Communication Settings ...", "",
            Opens<frmCommSettings>),
    Dash("mnuSettings"),
    Menu("mnuSettings", "mnuOptions", "Options ..."),
    Command("mnuOptions", "cmdDynamicLayout", "Dynamically Load Layouts", "",
            Runs<ToggleDynamicLayouts>).With(Tick::cmdDynamicLayout),
    Command("mnuOptions", "chkAutoAdd", "Dynamically Load Fields", "",
            Runs<ToggleDynamicFields>).With(Tick::chkAutoAdd),
    Dash("mnuSettings"),
    Command("mnuSettings", "cmdDirectSpool", "Spool Directly To Printer").Hidden(),
    Dash("mnuSettings"),
    Command("mnuSettings", "cmdCapEnable", "Enable Data Capture", "", Runs<ToggleCapture>)
        .With(Tick::cmdCapEnable),
    Dash("mnuSettings"),
    Command("mnuSettings", "cmdMacro", "Define Macros ...", "", Opens<frmMacro>),

    Menu("", "mnuProperties", "&Properties").On(WithSelection),
    Command("mnuProperties", "cmdSetFont", "Adjust Font ...", "",
            Runs<AdjustFont>).With(ObjectEntry::cmdSetFont),
    Command("mnuProperties", "cmdAdjustText", "Adjust Text...", "",
            Runs<AdjustText>).With(ObjectEntry::cmdAdjustText),
    Command("mnuProperties", "cmdFilters", "Adjust Filters...", "", Opens<frmFilters>)
        .With(ObjectEntry::cmdFilters),
    Command("mnuProperties", "cmdDataPadding", "Adjust Data Padding", "", Opens<frmPad>).Hidden(),
    Command("mnuProperties", "cmdPreSuffix", "Adjust Prefix / Suffix...", "", Opens<frmPreSuffix>)
        .With(ObjectEntry::cmdPreSuffix),
    Command("mnuProperties", "cmdAdjustTextColor", "Adjust Text Color...", "",
            Runs<AdjustTextColor>)
        .With(ObjectEntry::cmdAdjustTextColor),
    Dash("mnuProperties", "fe4fy").With(ObjectEntry::fe4fy),
    Menu("mnuProperties", "mnuCheckDigits", "Apply Check Digit...")
        .With(ObjectEntry::mnuCheckDigits),
    Command("mnuCheckDigits", "cmdMod10", "Apply Mod-10 Check Digit", "",
            Runs<ToggleMod10>).With(Tick::cmdMod10),
    Command("mnuCheckDigits", "cmdCodaBar", "Apply CodaBar Check Digit", "",
            Runs<ToggleCodabar>).With(Tick::cmdCodaBar),
    Command("mnuCheckDigits", "cmdEBTCheckDigit", "Apply EBT Check Digit", "",
            Runs<ToggleEbt>).Hidden()
        .With(Tick::cmdEBTCheckDigit),
    Dash("mnuProperties", "ggd56456").With(ObjectEntry::ggd56456),
    Menu("mnuProperties", "mnuDataFields", "Adjust Data Field ...")
        .With(ObjectEntry::mnuDataFields),
    Command("mnuDataFields", "cmdField(0)", "Field 0").Hidden(),
    Command("mnuDataFields", "sData", "Send a data stream..."),
    Menu("mnuProperties", "mnuImage", "Adjust Image...").With(ObjectEntry::mnuImage),
    Command("mnuImage", "cmdChooseImage", "Choose Image...", "", ChooseImageCommand).With(ObjectEntry::cmdChooseImage),
    Command("mnuImage", "cmdTakePicture2", "Take Picture ...", "", Opens<frmAquireImage2>)
        .WithTools(Opens<frmTakePhoto>, Always),
    Dash("mnuProperties").Hidden(),
    Command("mnuProperties", "cmdIncrease", "Increase Size 10%", "Ctrl+F2", Runs<IncreaseSize>),
    Command("mnuProperties", "cmdDecrease", "Decrease Size 10%", "Ctrl+F1", Runs<DecreaseSize>),
    Dash("mnuProperties", "s250").With(ObjectEntry::s250),
    Menu("mnuProperties", "mnuAlighment", "Alignment ...").With(ObjectEntry::mnuAlighment),
    Command("mnuAlighment", "cmdALeft", "Left", "", Runs<AlignLeft>).With(Tick::cmdALeft),
    Command("mnuAlighment", "cmdACenter", "Center", "", Runs<AlignCenter>).With(Tick::cmdACenter),
    Command("mnuAlighment", "cmdARight", "Right", "", Runs<AlignRight>).With(Tick::cmdARight),
    Menu("mnuProperties", "mnuColors", "Colors...").With(ObjectEntry::mnuColors),
    Command("mnuColors", "cmdForeColor", "&ForeColor", "", Runs<AdjustTextColor>),
    Command("mnuColors", "cmdBackColor", "&BackColor").Disabled(),
    Dash("mnuProperties"),
    Command("mnuProperties", "cmdSize", "Adjust Size...", "Ctrl+Z", Opens<frmSize>)
        .WithTools(Opens<frmPlace>, Enabled::Always),
    Command("mnuProperties", "cmdVisibleOnCard", "Visible On Card", "",
            Runs<ToggleVisibleOnCard>).With(Tick::cmdVisibleOnCard),
    Dash("mnuProperties"),
    Command("mnuProperties", "cmdContextDelete", "&Delete Selected...", "",
            Runs<DeleteSelectedObject>),

    Menu("", "mnuStation", "S&tation").Where(HasStationMenu),
    Command("mnuStation", "cmdHistory", "History ...", "F9", Opens<frmHistory>),
    Menu("mnuStation", "mnuDesignTools", "&Design Tools").Where(HasDesignTools).On(WithLayout),
    Command("mnuDesignTools", "cmdUndo", "&Undo", "Alt+Backspace", StepsThrough<UndoDesign>)
        .On(WithStepBack),
    Command("mnuDesignTools", "cmdRedo", "&Redo", "Alt+Shift+Backspace", StepsThrough<RedoDesign>)
        .On(WithStepForward),
    Dash("mnuDesignTools"),
    Command("mnuDesignTools", "cmdDuplicate", "Dup&licate", "Ctrl+J", Runs<DuplicateSelected>)
        .On(WithObject),
    Menu("mnuDesignTools", "mnuStack", "&Order").On(WithObject),
    Command("mnuStack", "cmdToFront", "To &Front", "Ctrl+Shift+Up", Stacks<StackMove::ToFront>),
    Command("mnuStack", "cmdOneUp", "One &Up", "Ctrl+Up", Stacks<StackMove::Up>),
    Command("mnuStack", "cmdOneDown", "One &Down", "Ctrl+Down", Stacks<StackMove::Down>),
    Command("mnuStack", "cmdToBack", "To &Back", "Ctrl+Shift+Down", Stacks<StackMove::ToBack>),
    Menu("mnuDesignTools", "mnuLineUp", "&Align").On(WithObject),
    Command("mnuLineUp", "cmdLineLeft", "&Left Sides", "", Aligns<AlignLine::Left>),
    Command("mnuLineUp", "cmdLineMiddle", "&Middles Across", "", Aligns<AlignLine::Middle>),
    Command("mnuLineUp", "cmdLineRight", "&Right Sides", "", Aligns<AlignLine::Right>),
    Dash("mnuLineUp"),
    Command("mnuLineUp", "cmdLineTop", "&Tops", "", Aligns<AlignLine::Top>),
    Command("mnuLineUp", "cmdLineCentre", "Middles &Down", "", Aligns<AlignLine::Centre>),
    Command("mnuLineUp", "cmdLineBottom", "&Bottoms", "", Aligns<AlignLine::Bottom>),
    Menu("mnuDesignTools", "mnuSpread", "Di&stribute").On(WithObject),
    Command("mnuSpread", "cmdSpreadAcross", "&Across", "", Spreads<SpreadAxis::Across>),
    Command("mnuSpread", "cmdSpreadDown", "&Down", "", Spreads<SpreadAxis::Down>),
    Command("mnuDesignTools", "cmdShrink", "Shrink to &Fit ...", "", Opens<frmShrink>)
        .On(WithObject),
    Dash("mnuDesignTools"),
    Command("mnuDesignTools", "cmdObjects", "Ob&jects ...", "F6", Opens<frmObjects>),
    Command("mnuDesignTools", "cmdShowValues", "Show Last &Values", "F7", Runs<ToggleShowValues>)
        .With(Tick::cmdShowValues),
    Dash("mnuDesignTools"),
    Command("mnuDesignTools", "cmdTextInPlace", "Edit &Text", "", OnCard<&frmDocument::EditText>)
        .On(WithObject),
    Menu("mnuDesignTools", "mnuZoom", "&Zoom"),
    Command("mnuZoom", "cmdZoomIn", "Zoom &In", "Ctrl++", OnCard<&frmDocument::ZoomStep, 1>)
        .WithTools(OnCard<&frmDocument::ZoomStep, 1>, WithLayout, "Ctrl+="),
    Command("mnuZoom", "cmdZoomOut", "Zoom &Out", "Ctrl+-", OnCard<&frmDocument::ZoomStep, -1>),
    Command("mnuZoom", "cmdZoomActual", "&Actual Size", "Ctrl+0",
            OnCard<&frmDocument::ZoomToActual>),
    Command("mnuZoom", "cmdZoomFit", "&Fit in Window", "", OnCard<&frmDocument::ZoomToFit>),
    Command("mnuStation", "cmdInsertNumber", "Insert Automatic &Number", "",
            Runs<InsertAutoNumber>).On(WithLayout).Where(HasDesignTools),
    Command("mnuStation", "cmdSetNumber", "Set N&umber ...", "", Runs<SetNumberCommand>)
        .On(WithLayout).Where(HasDesignTools),
    Command("mnuStation", "cmdInsertCode", "Insert &Bar Code", "", Runs<InsertCode>)
        .On(WithLayout).Where(HasDesignTools),
    Command("mnuStation", "cmdInsertShape", "Insert &Shape", "", Runs<InsertShape>)
        .On(WithLayout).Where(HasDesignTools),
    Command("mnuStation", "cmdBarCode", "Bar Code ...", "", Opens<frmCode>)
        .On(WithObject).Where(HasDesignTools),
    Menu("mnuStation", "mnuPictureFit", "&Picture in Its Box").On(WithImage).Where(HasDesignTools),
    Command("mnuPictureFit", "cmdFitWhole", "&Whole Picture", "", Fits<PictureFit::Whole>)
        .With(Tick::cmdFitWhole),
    Command("mnuPictureFit", "cmdFitFilled", "&Fill the Box", "", Fits<PictureFit::Filled>)
        .With(Tick::cmdFitFilled),
    Command("mnuPictureFit", "cmdFitStretched", "&Stretched to the Box", "",
            Fits<PictureFit::Stretched>)
        .With(Tick::cmdFitStretched),
    Command("mnuStation", "cmdCheckLayout", "Check Layout ...", "", Opens<frmCheck>)
        .On(WithLayout).Where(HasDesignTools),
    Command("mnuStation", "cmdStationOptions", "Options ...", "", Opens<frmOptions>),

    Menu("", "mnuHelp", "&Help"),
    Command("mnuHelp", "cmdAbout", "About Vantrel v5.xx", "", Opens<frmAbout>),

    Menu("", "mnuBack", "").Hidden(),
    Menu("mnuBack", "mnuBackground", "Set Background..."),
    Command("mnuBackground", "cmdColor", "To a Color...", "", WorkspaceColorCommand),
    Command("mnuBackground", "cmdPicture", "To a Picture...", "", WorkspacePictureCommand),
    Command("mnuBackground", "cmdBackDefault", "To the &Default...", "", Runs<ResetWorkspace>),

    Menu("", "mnuAutoNumber", "AutoFieldMenu").Hidden().On(WithSelection),
    Command("mnuAutoNumber", "cmdAutoFont", "Adjust Font..."),
    Command("mnuAutoNumber", "cmdAutoPreSuff", "Adjust Prefix / Suffix..."),
    Command("mnuAutoNumber", "cmdAutoFilters", "Adjust Filters...", "", Opens<frmFilters>),
    Dash("mnuAutoNumber"),
    Menu("mnuAutoNumber", "mnuAutoCheckDigit", "Apply Check Digit"),
    Command("mnuAutoCheckDigit", "cmdAutoMod10", "Apply Mod-10 Check Digit", "", Runs<ToggleMod10>)
        .With(Tick::cmdAutoMod10),
    Command("mnuAutoCheckDigit", "cmdAutoCodaBar", "Apply CodaBar Check Digit", "",
            Runs<ToggleCodabar>)
        .With(Tick::cmdAutoCodaBar),
    Command("mnuAutoCheckDigit", "cmdAutoEBT", "Apply EBT Check Digit", "",
            Runs<ToggleEbt>).With(Tick::cmdAutoEBT),
    Command("mnuAutoNumber", "cmdAutoNumberDelete", "&Delete Selected", "",
            Runs<DeleteSelectedObject>),
};
// clang-format on

} // namespace

std::span<const MenuRow> MenuRows()
{
    return Rows;
}

} // namespace vantrel
