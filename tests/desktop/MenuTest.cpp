#include "base/Profile.h"
#include "desktop/DesktopStation.h"
#include "desktop/designer/frmDocument.h"
#include "desktop/dialogs/frmGetLayout.h"
#include "station/session/Settings.h"
#include "support/Events.h"
#include "support/Layouts.h"
#include <QApplication>
#include <QListWidget>
#include <QMenu>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

TEST(Menu, EntriesThatNeedALayoutAreOffWithoutOne)
{
    DesktopStation station;
    station.Load();
    for (const char* name : {"cmdSave", "cmdClose", "cmdPrint"})
        EXPECT_FALSE(station.Get<QAction>(name).isEnabled()) << name;
    EXPECT_FALSE(station.Get<QMenu>("mnuData").menuAction()->isEnabled());
    EXPECT_TRUE(station.Get<QAction>("cmdOpen").isEnabled());
    EXPECT_FALSE(station.Get<QAbstractButton>("cmdNext").isEnabled());
    station.WithLayout();
    EXPECT_TRUE(EventsUntil([&] { return station.Get<QAction>("cmdPrint").isEnabled(); }));
    for (const char* name : {"cmdSave", "cmdClose"})
        EXPECT_TRUE(station.Get<QAction>(name).isEnabled()) << name;
    EXPECT_TRUE(station.Get<QMenu>("mnuData").menuAction()->isEnabled());
    EXPECT_TRUE(station.Get<QAbstractButton>("cmdNext").isEnabled());
}

TEST(Menu, PrintPrintsTheCard)
{
    DesktopStation station;
    station.WithLayout();
    station.Load();
    SetRecord(station.Session, {QStringLiteral("Anna")});
    station.Choose("cmdPrint");
    EXPECT_TRUE(station.Printers.Operations.contains(QStringLiteral("Print(\"Anna\")")));
    EXPECT_TRUE(station.Printers.Operations.contains(QStringLiteral("EndDoc")));
    EXPECT_EQ(station.Session.Document.Find(Family::lbl_DATA, 1)->Caption(),
              QStringLiteral("Anna"));
}

TEST(Menu, SaveReportsThatItIsDone)
{
    DesktopStation station;
    station.WithLayout();
    station.Load();
    station.Choose("cmdSave");
    EXPECT_EQ(station.Operator.AppMessages,
              QStringList{QStringLiteral("Document Saved.|Document ( Badge ) Sucessfully Saved.")});
}

TEST(Menu, CloseTakesTheCardAway)
{
    DesktopStation station;
    station.WithLayout();
    station.Load();
    auto& document = station.Get<frmDocument>("frmDocument");
    EXPECT_TRUE(EventsUntil([&] { return document.isVisible(); }));
    station.Choose("cmdClose");
    EXPECT_TRUE(EventsUntil([&] { return !document.isVisible(); }));
    EXPECT_EQ(station.Session.CurrentLayoutName, QString());
    EXPECT_EQ(station.Window.windowTitle(), QStringLiteral(" Vantrel v6.0"));
}

TEST(Menu, OpenShowsThePickerAndLoadsTheChosenLayout)
{
    DesktopStation station;
    station.WithLayout(QStringLiteral("Zebra"));
    station.WithLayout(QStringLiteral("Apple"));
    station.Load();
    station.Choose("cmdOpen");
    station.Choose("cmdOpen");
    ASSERT_EQ(station.Window.findChildren<frmGetLayout*>().size(), 1);
    auto& picker = station.Get<frmGetLayout>("frmGetLayout");
    EXPECT_EQ(picker.windowTitle(), QStringLiteral(" Select a layout"));
    auto& list = station.Get<QListWidget>("lstLayouts");
    ASSERT_EQ(list.count(), 2);
    EXPECT_EQ(list.item(0)->text(), QStringLiteral("Apple"));
    auto& load = station.Named<QAbstractButton>(picker, "cmdLoad");
    EXPECT_EQ(load.text(), QStringLiteral("Load"));
    EXPECT_FALSE(load.isEnabled());
    list.setCurrentRow(1);
    EXPECT_TRUE(load.isEnabled());
    load.click();
    EXPECT_EQ(station.Session.CurrentLayoutName, QStringLiteral("Zebra"));
    EXPECT_EQ(station.Window.windowTitle(),
              QStringLiteral(" Vantrel v6.0   (Zebra) printing to (Card Printer)"));
    EXPECT_FALSE(picker.isVisible());
}

TEST(Menu, TheCancelledPickerChangesNothing)
{
    DesktopStation station;
    station.WithLayout();
    station.Load();
    station.Choose("cmdOpen");
    auto& picker = station.Get<frmGetLayout>("frmGetLayout");
    auto& cancel = station.Named<QAbstractButton>(picker, "cmdCancel");
    EXPECT_EQ(cancel.text(), QStringLiteral("Cancel"));
    cancel.click();
    EXPECT_FALSE(picker.isVisible());
    EXPECT_EQ(station.Session.CurrentLayoutName, QStringLiteral("Badge"));
}

TEST(Menu, TicksFollowTheStation)
{
    DesktopStation station;
    station.WithLayout();
    station.Load();
    for (const char* name : {"chkAutoSpool", "cmdDynamicLayout", "chkAutoAdd", "cmdCapEnable"}) {
        const auto& action = station.Get<QAction>(name);
        ASSERT_TRUE(action.isCheckable()) << name;
        const bool before = action.isChecked();
        station.Choose(name);
        EXPECT_EQ(action.isChecked(), !before) << name;
        station.Choose(name);
        EXPECT_EQ(action.isChecked(), before) << name;
    }
    station.Session.Face.SetTick(Tick::chkAutoAdd, true);
    EXPECT_TRUE(station.Get<QAction>("chkAutoAdd").isChecked());
}

TEST(Menu, HideHidesTheWindowAndChangesItsCaptionToShow)
{
    DesktopStation station;
    station.Load();
    station.Choose("cmdHide");
    EXPECT_FALSE(station.Window.isVisible());
    EXPECT_EQ(station.Get<QAction>("cmdHide").text(), QStringLiteral("Show Vantrel..."));
    station.Choose("cmdHide");
    EXPECT_TRUE(station.Window.isVisible());
    EXPECT_EQ(station.Get<QAction>("cmdHide").text(), QStringLiteral("Hide Vantrel..."));
}

TEST(Menu, ExitAnsweredNoChangesNothing)
{
    DesktopStation station;
    station.Load();
    station.Operator.Answers = {false};
    station.Choose("cmdExit");
    QCoreApplication::processEvents();
    EXPECT_EQ(station.Operator.AppMessages.size(), 1);
    EXPECT_TRUE(station.Window.isVisible());
}

TEST(Menu, ExitAnsweredYesUnloadsTheStation)
{
    DesktopStation station;
    station.Load();
    station.Operator.Answers = {true};
    station.Get<QAction>("cmdExit").trigger();
    EXPECT_EQ(DesktopStation::RunToEnd(), 0);
    EXPECT_FALSE(station.Window.isVisible());
    EXPECT_EQ(ReadProfileValue(SettingsPath(station.Session.ProgramFolder),
                               SessionSection(station.Session), QStringLiteral("MWidth"),
                               QString()),
              QStringLiteral("10425"));
}

} // namespace
} // namespace vantrel::test
