#include "desktop/DesktopStation.h"
#include "station/layout/DocumentForm.h"
#include "support/Events.h"
#include "support/Layouts.h"
#include <QDialog>
#include <QMenu>
#include <QMenuBar>
#include <algorithm>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

/// What a row of the tree is: an entry, a menu or a separator, and whether it is hidden or disabled
/// at the start.
enum Kind { Entry, HiddenEntry, DisabledEntry, Submenu, Dash, HiddenDash };

struct Row
{
    Kind What;
    const char* Name;
    const char* Caption;
    const char* Shortcut = "";
};

/// A menu and what it holds from top to bottom.
struct MenuOfRows
{
    const char* Name;
    const char* Caption;
    bool OnBar;
    std::vector<Row> Rows;
};

// clang-format off
const MenuOfRows Tree[] = {
    {"mnuFile", "&File", true, {
        {Submenu, "mnuNew", "New ..."},
        {Submenu, "mnuOpen", "&Open ..."},
        {Entry, "cmdSave", "&Save", "Ctrl+S"},
        {DisabledEntry, "cmdSaveAs", "Save &As", "Ctrl+A"},
        {Entry, "cmdClose", "&Close Layout", "Ctrl+L"},
        {Submenu, "mnuDelete", "&Delete ..."},
        {Dash, "", ""},
        {Entry, "cmdPrint", "Print ...", "Ctrl+P"},
        {Entry, "cmdPrnSetup", "Printer Setup ..."},
        {Dash, "", ""},
        {Entry, "cmdTakePicture", "Take Picture ..."},
        {Dash, "", ""},
        {Entry, "cmdGenSerial", "Generate Card Sequence"},
        {Dash, "", ""},
        {Entry, "cmdHide", "Hide Vantrel...", "Ctrl+H"},
        {Entry, "cmdExit", "&Disable Vantrel", "Shift+Del"}}},
    {"mnuNew", "New ...", false, {
        {HiddenEntry, "cmdNew", "Layout ..."},
        {Entry, "cmdWizard", "Layout Wizard ..."},
        {Entry, "cmdNewPage", "Page ..."}}},
    {"mnuOpen", "&Open ...", false, {
        {Entry, "cmdOpen", "&Open Layout"},
        {Entry, "cmdImportSession", "Vantrel 4 Session.ini"}}},
    {"mnuDelete", "&Delete ...", false, {
        {Entry, "cmdDeleteLayout", "&Delete Layout", "Ctrl+D"},
        {Entry, "cmdDeletePage", "Delete Page"}}},
    {"mnuEdit", "&Edit", true, {
        {DisabledEntry, "cmdCut", "&Cut", "Ctrl+Y"},
        {DisabledEntry, "cmdCopy", "C&opy", "Ctrl+C"},
        {DisabledEntry, "cmdPaste", "&Paste", "Ctrl+V"},
        {Dash, "", ""},
        {Entry, "cmdDelete", "&Delete"}}},
    {"mnuData", "&Document", true, {
        {Entry, "cmdInsertData", "Insert New Data Field", "F1"},
        {Entry, "cmdNewText", "Insert New Static Text", "F2"},
        {Entry, "cmdInsertImage", "Insert New Image Object", "F3"},
        {Entry, "cmdInsertCamImage", "Insert New Camera Image", "F4"},
        {HiddenEntry, "cmdAutoNumber", "Insert New AutoNumber Object"},
        {Dash, "", ""},
        {Entry, "cmdDeleteAll", "Delete all data fields"},
        {Dash, "", ""},
        {Entry, "cmdMag", "Magnetic Encoding ...", "F5"},
        {Dash, "", ""},
        {Submenu, "mnuBack2", "Background"},
        {Dash, "", ""},
        {Entry, "chkAutoSpool", "Automatically Print Document"}}},
    {"mnuBack2", "Background", false, {
        {Entry, "cmdBackImg", "Import Image File ..."},
        {Entry, "cmdBaclPDF", "Import PDF File ..."},
        {Entry, "cmdClearBackground", "Clear Background ..."}}},
    {"mnuView", "&View", true, {
        {Entry, "cmdRawData", "Raw Input Data ..."},
        {Dash, "", ""},
        {Entry, "cmdFieldData", "Decoded Field Data ..."},
        {Dash, "", ""},
        {Entry, "cmdViewBuffer", "Buffered Input Data ..."}}},
    {"mnuSettings", "&Settings", true, {
        {Entry, "cmdDelimiters", "Data Settings ..."},
        {Entry, "cmdCommSettings", "&Communication Settings ..."},
        {Dash, "", ""},
        {Submenu, "mnuOptions", "Options ..."},
        {Dash, "", ""},
        {HiddenEntry, "cmdDirectSpool", "Spool Directly To Printer"},
        {Dash, "", ""},
        {Entry, "cmdCapEnable", "Enable Data Capture"},
        {Dash, "", ""},
        {Entry, "cmdMacro", "Define Macros ..."}}},
    {"mnuOptions", "Options ...", false, {
        {Entry, "cmdDynamicLayout", "Dynamically Load Layouts"},
        {Entry, "chkAutoAdd", "Dynamically Load Fields"}}},
    {"mnuProperties", "&Properties", true, {
        {Entry, "cmdSetFont", "Adjust Font ..."},
        {Entry, "cmdAdjustText", "Adjust Text..."},
        {Entry, "cmdFilters", "Adjust Filters..."},
        {HiddenEntry, "cmdDataPadding", "Adjust Data Padding"},
        {Entry, "cmdPreSuffix", "Adjust Prefix / Suffix..."},
        {Entry, "cmdAdjustTextColor", "Adjust Text Color..."},
        {Dash, "fe4fy", ""},
        {Submenu, "mnuCheckDigits", "Apply Check Digit..."},
        {Dash, "ggd56456", ""},
        {Submenu, "mnuDataFields", "Adjust Data Field ..."},
        {Submenu, "mnuImage", "Adjust Image..."},
        {HiddenDash, "", ""},
        {Entry, "cmdIncrease", "Increase Size 10%", "Ctrl+F2"},
        {Entry, "cmdDecrease", "Decrease Size 10%", "Ctrl+F1"},
        {Dash, "s250", ""},
        {Submenu, "mnuAlighment", "Alignment ..."},
        {Submenu, "mnuColors", "Colors..."},
        {Dash, "", ""},
        {Entry, "cmdSize", "Adjust Size...", "Ctrl+Z"},
        {Entry, "cmdVisibleOnCard", "Visible On Card"},
        {Dash, "", ""},
        {Entry, "cmdContextDelete", "&Delete Selected..."}}},
    {"mnuCheckDigits", "Apply Check Digit...", false, {
        {Entry, "cmdMod10", "Apply Mod-10 Check Digit"},
        {Entry, "cmdCodaBar", "Apply CodaBar Check Digit"},
        {HiddenEntry, "cmdEBTCheckDigit", "Apply EBT Check Digit"}}},
    {"mnuDataFields", "Adjust Data Field ...", false, {
        {HiddenEntry, "cmdField(0)", "Field 0"},
        {Entry, "sData", "Send a data stream..."}}},
    {"mnuImage", "Adjust Image...", false, {
        {Entry, "cmdChooseImage", "Choose Image..."},
        {Entry, "cmdTakePicture2", "Take Picture ..."}}},
    {"mnuAlighment", "Alignment ...", false, {
        {Entry, "cmdALeft", "Left"},
        {Entry, "cmdACenter", "Center"},
        {Entry, "cmdARight", "Right"}}},
    {"mnuColors", "Colors...", false, {
        {Entry, "cmdForeColor", "&ForeColor"},
        {DisabledEntry, "cmdBackColor", "&BackColor"}}},
    {"mnuHelp", "&Help", true, {
        {Entry, "cmdAbout", "About Vantrel v5.xx"}}},
    {"mnuBack", "", false, {
        {Submenu, "mnuBackground", "Set Background..."}}},
    {"mnuBackground", "Set Background...", false, {
        {Entry, "cmdColor", "To a Color..."},
        {Entry, "cmdPicture", "To a Picture..."},
        {Entry, "cmdBackDefault", "To the &Default..."}}},
    {"mnuAutoNumber", "AutoFieldMenu", false, {
        {Entry, "cmdAutoFont", "Adjust Font..."},
        {Entry, "cmdAutoPreSuff", "Adjust Prefix / Suffix..."},
        {Entry, "cmdAutoFilters", "Adjust Filters..."},
        {Dash, "", ""},
        {Submenu, "mnuAutoCheckDigit", "Apply Check Digit"},
        {Entry, "cmdAutoNumberDelete", "&Delete Selected"}}},
    {"mnuAutoCheckDigit", "Apply Check Digit", false, {
        {Entry, "cmdAutoMod10", "Apply Mod-10 Check Digit"},
        {Entry, "cmdAutoCodaBar", "Apply CodaBar Check Digit"},
        {Entry, "cmdAutoEBT", "Apply EBT Check Digit"}}},
};
// clang-format on

/// Entries that the main window's timers switch; the others stay as they start.
constexpr const char* SwitchedByState[] = {
    "cmdNew",     "cmdOpen",     "cmdWizard", "cmdImportSession", "cmdSave",
    "cmdNewPage", "cmdPrnSetup", "cmdPrint",  "cmdClose",         "cmdDeleteLayout"};

bool IsSwitched(const char* name)
{
    return std::ranges::any_of(SwitchedByState,
                               [name](const char* other) { return qstrcmp(name, other) == 0; });
}

void ExpectRow(const QAction& action, const Row& row)
{
    SCOPED_TRACE(row.Name);
    const bool dash = row.What == Dash || row.What == HiddenDash;
    const QString name =
        row.What == Submenu ? action.menu<QMenu*>()->objectName() : action.objectName();
    EXPECT_EQ(name, QLatin1StringView(row.Name));
    EXPECT_EQ(action.isSeparator(), dash);
    EXPECT_EQ(action.text(), QLatin1StringView(row.Caption));
    EXPECT_EQ(action.shortcut().toString(), QLatin1StringView(row.Shortcut));
    EXPECT_EQ(action.isVisible(), row.What != HiddenEntry && row.What != HiddenDash);
    // What is hidden cannot be chosen either.
    if (action.isVisible() && !IsSwitched(row.Name)) {
        EXPECT_EQ(action.isEnabled(), row.What != DisabledEntry);
    }
}

TEST(MenuTable, ContainsEveryMenuAndEntryInItsOrder)
{
    DesktopStation station;
    std::size_t rows = 0;
    std::size_t entries = 0;
    for (const MenuOfRows& menu : Tree) {
        SCOPED_TRACE(menu.Name);
        const auto& built = station.Get<QMenu>(menu.Name);
        EXPECT_EQ(built.title(), QLatin1StringView(menu.Caption));
        const QList<QAction*> actions = built.actions();
        ASSERT_EQ(static_cast<std::size_t>(actions.size()), menu.Rows.size());
        for (std::size_t index = 0; index < menu.Rows.size(); ++index) {
            ExpectRow(*actions.at(static_cast<qsizetype>(index)), menu.Rows[index]);
            const Kind what = menu.Rows[index].What;
            entries += what == Entry || what == HiddenEntry || what == DisabledEntry ? 1 : 0;
            ++rows;
        }
    }
    EXPECT_EQ(std::size(Tree), 21U);
    EXPECT_EQ(rows, 109U);
    EXPECT_EQ(entries, 75U);
}

TEST(MenuTable, TheBarShowsTheMenusInTheirOrder)
{
    DesktopStation station;
    QStringList bar;
    for (const QAction* action : station.Window.menuBar()->actions())
        bar.append(action->menu<QMenu*>()->objectName());
    QStringList expected;
    for (const MenuOfRows& menu : Tree) {
        if (menu.OnBar)
            expected.append(QLatin1StringView(menu.Name));
    }
    EXPECT_EQ(bar, expected);
    EXPECT_EQ(bar.size(), 7);
}

TEST(MenuTable, TheLoadOfTheWindowSetsThreeCaptions)
{
    DesktopStation station(false);
    station.Load();
    EXPECT_EQ(station.Get<QAction>("cmdAbout").text(),
              QStringLiteral("About Ostrand Vantrel v6.0"));
    EXPECT_EQ(station.Get<QAction>("cmdImportSession").text(),
              QStringLiteral("Vantrel 4 \u00a9 Session.ini"));
    EXPECT_EQ(station.Get<QAction>("cmdHide").text(), QStringLiteral("Show Vantrel..."));
}

TEST(MenuTable, EntriesWithoutAnActionCanBeChosenAndDoNothing)
{
    DesktopStation station;
    station.WithLayout();
    station.Load();
    const qsizetype objects = std::ssize(station.Session.Document.Objects());
    for (const char* name : {"sData", "cmdAutoFont", "cmdAutoPreSuff"}) {
        EXPECT_TRUE(station.Get<QAction>(name).isVisible()) << name;
        station.Choose(name);
    }
    EXPECT_EQ(std::ssize(station.Session.Document.Objects()), objects);
    EXPECT_EQ(station.Operator.AppMessages, QStringList());
    EXPECT_TRUE(station.Window.findChildren<QDialog*>().isEmpty());
}

struct SwitchRow
{
    const char* Name;
    /// Enabled with the windows hidden and no layout; shown and none; hidden with one; shown with.
    bool HiddenNone, ShownNone, HiddenOpen, ShownOpen;
};

constexpr SwitchRow SwitchRows[] = {
    {"cmdNew", false, true, false, true},          {"cmdOpen", false, true, false, true},
    {"cmdWizard", false, true, false, true},       {"mnuData", false, false, true, true},
    {"cmdPrint", false, false, true, true},        {"cmdClose", false, false, true, true},
    {"cmdDeleteLayout", false, false, true, true}, {"cmdImportSession", false, false, false, true},
    {"cmdSave", false, false, false, true},        {"cmdNewPage", false, false, false, true},
    {"cmdPrnSetup", false, false, false, true},
};

bool IsEnabled(DesktopStation& station, const char* name)
{
    if (const auto* menu = station.Window.findChild<QMenu*>(QLatin1StringView(name)))
        return menu->menuAction()->isEnabled();
    return station.Get<QAction>(name).isEnabled();
}

/// The enabled states of all rows, in one text.
std::string States(DesktopStation& station)
{
    std::string states;
    for (const SwitchRow& row : SwitchRows)
        states += IsEnabled(station, row.Name) ? '1' : '0';
    return states;
}

std::string Expected(bool SwitchRow::*state)
{
    std::string states;
    for (const SwitchRow& row : SwitchRows)
        states += row.*state ? '1' : '0';
    return states;
}

TEST(MenuTable, TheTimerSwitchesWhatCanBeChosen)
{
    EXPECT_EQ(std::size(SwitchRows), 11U);
    DesktopStation station;
    station.Load();
    // What is hidden counts as disabled, and this entry stays hidden for good.
    station.Get<QAction>("cmdNew").setVisible(true);
    const auto becomes = [&](bool SwitchRow::*state) {
        return EventsUntil([&] { return States(station) == Expected(state); });
    };
    EXPECT_TRUE(becomes(&SwitchRow::ShownNone)) << States(station);
    station.WithLayout();
    EXPECT_TRUE(becomes(&SwitchRow::ShownOpen)) << States(station);
    station.Choose("cmdHide");
    EXPECT_TRUE(becomes(&SwitchRow::HiddenOpen)) << States(station);
    station.Choose("cmdClose");
    EXPECT_TRUE(becomes(&SwitchRow::HiddenNone)) << States(station);
}

} // namespace
} // namespace vantrel::test
