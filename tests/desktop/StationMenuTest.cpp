#include "desktop/DesktopStation.h"
#include "desktop/StationOptionsOf.h"
#include "support/Events.h"
#include <QMenu>
#include <QMenuBar>
#include <gtest/gtest.h>
#include <set>

namespace vantrel::test {
namespace {

StationOptions WithDesignTools()
{
    StationOptions options;
    options.DesignTools = true;
    return options;
}

QStringList Bar(const DesktopStation& station)
{
    QStringList names;
    for (const QAction* action : station.Window.menuBar()->actions())
        names.append(action->menu<QMenu*>()->objectName());
    return names;
}

const QStringList OwnMenus{QStringLiteral("mnuFile"),     QStringLiteral("mnuEdit"),
                           QStringLiteral("mnuData"),     QStringLiteral("mnuView"),
                           QStringLiteral("mnuSettings"), QStringLiteral("mnuProperties"),
                           QStringLiteral("mnuHelp")};

TEST(StationMenu, IsNotThereWithoutItsOptions)
{
    StationOptions others;
    others.AnswerHost = others.KeepEveryRecord = others.UniqueNumbers = true;
    const DesktopStation station(true, others);
    EXPECT_EQ(Bar(station), OwnMenus);
    EXPECT_EQ(station.Window.findChild<QMenu*>(QStringLiteral("mnuStation")), nullptr);
    EXPECT_EQ(station.Window.findChild<QAction*>(QStringLiteral("cmdStationOptions")), nullptr);
}

TEST(StationMenu, StandsBetweenPropertiesAndHelp)
{
    QStringList expected = OwnMenus;
    expected.insert(expected.size() - 1, QStringLiteral("mnuStation"));
    for (const StationOptions& options : {WithLedger(), WithDesignTools()})
        EXPECT_EQ(Bar(DesktopStation(true, options)), expected);
}

TEST(StationMenu, HasItsEntriesInTheirOrder)
{
    DesktopStation station(true, WithLedger());
    const auto& menu = station.Get<QMenu>("mnuStation");
    EXPECT_EQ(menu.title(), QStringLiteral("S&tation"));
    QStringList entries;
    for (const QAction* action : menu.actions())
        entries.append(action->objectName() + u'|' + action->text() + u'|' +
                       action->shortcut().toString());
    EXPECT_EQ(entries, QStringList({QStringLiteral("cmdHistory|History ...|F9"),
                                    QStringLiteral("cmdStationOptions|Options ...|")}));
}

QStringList EntriesOf(DesktopStation& station, const char* menu)
{
    QStringList entries;
    for (const QAction* action : station.Get<QMenu>(menu).actions()) {
        if (action->isSeparator())
            entries.append(QStringLiteral("-"));
        else
            entries.append(action->text() + u'|' + action->shortcut().toString());
    }
    return entries;
}

TEST(StationMenu, HasTheDesignToolsWhereTheyAreOn)
{
    DesktopStation station(true, WithDesignTools());
    EXPECT_EQ(station.Get<QMenu>("mnuDesignTools").title(), QStringLiteral("&Design Tools"));
    EXPECT_EQ(EntriesOf(station, "mnuDesignTools"),
              QStringList({QStringLiteral("&Undo|Alt+Backspace"),
                           QStringLiteral("&Redo|Alt+Shift+Backspace"), QStringLiteral("-"),
                           QStringLiteral("Dup&licate|Ctrl+J"), QStringLiteral("&Order|"),
                           QStringLiteral("&Align|"), QStringLiteral("Di&stribute|"),
                           QStringLiteral("Shrink to &Fit ...|"), QStringLiteral("-"),
                           QStringLiteral("Ob&jects ...|F6"),
                           QStringLiteral("Show Last &Values|F7"), QStringLiteral("-"),
                           QStringLiteral("Edit &Text|"), QStringLiteral("&Zoom|")}));
    EXPECT_EQ(
        EntriesOf(station, "mnuZoom"),
        QStringList({QStringLiteral("Zoom &In|Ctrl++"), QStringLiteral("Zoom &Out|Ctrl+-"),
                     QStringLiteral("&Actual Size|Ctrl+0"), QStringLiteral("&Fit in Window|")}));
    EXPECT_EQ(EntriesOf(station, "mnuStack"),
              QStringList({QStringLiteral("To &Front|Ctrl+Shift+Up"),
                           QStringLiteral("One &Up|Ctrl+Up"), QStringLiteral("One &Down|Ctrl+Down"),
                           QStringLiteral("To &Back|Ctrl+Shift+Down")}));
    EXPECT_EQ(
        EntriesOf(station, "mnuLineUp"),
        QStringList({QStringLiteral("&Left Sides|"), QStringLiteral("&Middles Across|"),
                     QStringLiteral("&Right Sides|"), QStringLiteral("-"), QStringLiteral("&Tops|"),
                     QStringLiteral("Middles &Down|"), QStringLiteral("&Bottoms|")}));
    EXPECT_EQ(EntriesOf(station, "mnuSpread"),
              QStringList({QStringLiteral("&Across|"), QStringLiteral("&Down|")}));
    DesktopStation without(true, WithLedger());
    EXPECT_EQ(without.Window.findChild<QMenu*>(QStringLiteral("mnuDesignTools")), nullptr);
    EXPECT_EQ(without.Window.findChild<QAction*>(QStringLiteral("cmdUndo")), nullptr);
}

TEST(StationMenu, OffersBarCodesAndTheCheckWithTheDesignTools)
{
    DesktopStation station(true, WithDesignTools());
    QStringList entries;
    for (const QAction* action : station.Get<QMenu>("mnuStation").actions())
        entries.append(action->text());
    EXPECT_TRUE(entries.contains(QStringLiteral("Bar Code ...")));
    EXPECT_TRUE(entries.contains(QStringLiteral("Check Layout ...")));
    DesktopStation without(true, WithLedger());
    EXPECT_EQ(without.Window.findChild<QAction*>(QStringLiteral("cmdCheckLayout")), nullptr);
    EXPECT_EQ(without.Window.findChild<QAction*>(QStringLiteral("cmdShrink")), nullptr);
}

TEST(StationMenu, OffersWaysToFitAPictureWithTheDesignTools)
{
    DesktopStation station(true, WithDesignTools());
    EXPECT_EQ(station.Get<QMenu>("mnuPictureFit").title(), QStringLiteral("&Picture in Its Box"));
    EXPECT_EQ(EntriesOf(station, "mnuPictureFit"),
              QStringList({QStringLiteral("&Whole Picture|"), QStringLiteral("&Fill the Box|"),
                           QStringLiteral("&Stretched to the Box|")}));
    DesktopStation without(true, WithLedger());
    EXPECT_EQ(without.Window.findChild<QMenu*>(QStringLiteral("mnuPictureFit")), nullptr);
}

TEST(StationMenu, InsertsNumbersCodesAndShapesWithTheDesignTools)
{
    DesktopStation station(true, WithDesignTools());
    station.WithLayout();
    station.Load();
    EXPECT_TRUE(EventsUntil([&] { return station.Get<QAction>("cmdInsertNumber").isEnabled(); }));
    station.Choose("cmdInsertNumber");
    const CardObject* number = station.Session.Document.Find(Family::lbl_AUTO, 1);
    ASSERT_NE(number, nullptr);
    EXPECT_EQ(station.Session.Document.SelectedObject, number);
    station.Choose("cmdInsertCode");
    EXPECT_NE(station.Session.Document.Find(Family::lbl_DATA, 2), nullptr);
    station.Choose("cmdInsertShape");
    EXPECT_NE(station.Session.Document.Find(Family::lbl_TEXT, 2), nullptr);
    station.Operator.Inputs = {QStringLiteral("500")};
    station.Choose("cmdSetNumber");
    EXPECT_EQ(number->DataField, QStringLiteral("499"));
    DesktopStation without(true, WithLedger());
    for (const char* name : {"cmdInsertNumber", "cmdInsertCode", "cmdInsertShape", "cmdSetNumber"})
        EXPECT_EQ(without.Window.findChild<QAction*>(QLatin1StringView(name)), nullptr) << name;
}

TEST(StationMenu, SharesNoShortcutAndNoMnemonicOfTheBar)
{
    const DesktopStation station(true, WithLedger());
    std::multiset<QString> shortcuts;
    for (const QAction* action : station.Window.findChildren<QAction*>()) {
        if (!action->shortcut().isEmpty())
            shortcuts.insert(action->shortcut().toString());
    }
    std::multiset<QString> mnemonics;
    for (const QAction* action : station.Window.menuBar()->actions())
        mnemonics.insert(QKeySequence::mnemonic(action->text()).toString());
    for (const auto& keys : {shortcuts, mnemonics}) {
        for (const QString& key : keys)
            EXPECT_EQ(keys.count(key), 1U) << key.toStdString();
    }
    EXPECT_EQ(mnemonics.size(), 8U);
}

TEST(StationMenu, LeavesTheOtherEntriesWorking)
{
    DesktopStation station(true, WithLedger());
    station.WithLayout();
    station.Load();
    station.Choose("cmdDynamicLayout");
    EXPECT_TRUE(station.Get<QAction>("cmdDynamicLayout").isChecked());
    EXPECT_TRUE(station.Session.Settings.DynamicLayouts);
    EXPECT_EQ(station.Get<QAction>("cmdAbout").text(),
              QStringLiteral("About Ostrand Vantrel v6.0"));
}

} // namespace
} // namespace vantrel::test
