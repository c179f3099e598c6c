#include "desktop/DesktopStation.h"
#include "desktop/menu/DesktopMenuRow.h"
#include "station/layout/FieldApplication.h"
#include "station/layout/LoadLayout.h"
#include "support/Events.h"
#include "support/Layouts.h"
#include <QCoreApplication>
#include <QDialog>
#include <QMenu>
#include <cstring>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

/// A station whose one data field is selected.
class MenuGuard : public ::testing::Test
{
protected:
    MenuGuard()
    {
        Station.WithLayout();
        Station.Load();
        Select();
        EXPECT_TRUE(EventsUntil([&] { return Menu("mnuProperties").menuAction()->isEnabled(); }));
        testing::internal::CaptureStderr();
    }
    /// Whether the station has written why it ends.
    static bool HasEnded()
    {
        return testing::internal::GetCapturedStderr().find("run-time error") != std::string::npos;
    }
    void Select()
    {
        CardDocument& document = Station.Session.Document;
        document.SelectedObject = document.Find(Family::lbl_DATA, 1);
        document.SelectedIndex = 1;
        document.SelectedFamily = QStringLiteral("lbl_DATA");
    }
    QMenu& Menu(const char* name) { return Station.Get<QMenu>(name); }

    DesktopStation Station;
};

/// Names of the menus that contain a row of the tree, the innermost first.
QStringList MenusOf(const MenuRow& row)
{
    QStringList menus;
    for (const char* name = row.Parent; *name != '\0';) {
        menus.append(QLatin1StringView(name));
        for (const MenuRow& other : MenuRows()) {
            if (std::strcmp(other.Name, name) == 0) {
                name = other.Parent;
                break;
            }
        }
    }
    return menus;
}

TEST_F(MenuGuard, ACommandOfAnObjectThatHasGoneIsNotRun)
{
    int commands = 0;
    for (const MenuRow& row : MenuRows()) {
        const QStringList menus = MenusOf(row);
        if (row.Action == nullptr || !(menus.contains(QStringLiteral("mnuProperties")) ||
                                       menus.contains(QStringLiteral("mnuAutoNumber"))))
            continue;
        ++commands;
        for (const bool closes : {false, true}) {
            ASSERT_TRUE(LoadLayout(Station.Session, QStringLiteral("Badge")));
            Select();
            auto& action = Station.Get<QAction>(row.Name);
            action.setVisible(true);
            action.trigger();
            // A record reloads the page, or a macro ends, before the queued command runs.
            if (closes)
                CloseLayout(Station.Session);
            else
                ASSERT_TRUE(LoadLayout(Station.Session, QStringLiteral("Badge")));
            QCoreApplication::processEvents();
            EXPECT_TRUE(Station.Window.findChildren<QDialog*>().isEmpty()) << row.Name;
        }
    }
    EXPECT_EQ(commands, 25);
    EXPECT_EQ(Station.Operator.Questions, QStringList());
    EXPECT_FALSE(Station.Session.Face.IsTicked(Tick::cmdVisibleOnCard));
    EXPECT_FALSE(HasEnded());
}

TEST_F(MenuGuard, ACommandOfALayoutThatHasGoneIsNotRun)
{
    EXPECT_TRUE(EventsUntil([&] { return Station.Get<QAction>("cmdPrnSetup").isEnabled(); }));
    for (const char* name : {"cmdPrnSetup", "cmdMag", "cmdNewPage"}) {
        Station.Get<QAction>(name).trigger();
        CloseLayout(Station.Session);
        QCoreApplication::processEvents();
        EXPECT_TRUE(Station.Window.findChildren<QDialog*>().isEmpty()) << name;
        EXPECT_FALSE(Station.Session.Document.IsLoaded()) << name;
        ASSERT_TRUE(LoadLayout(Station.Session, QStringLiteral("Badge")));
        EXPECT_TRUE(EventsUntil([&] { return Station.Get<QAction>("cmdPrnSetup").isEnabled(); }));
    }
    EXPECT_FALSE(HasEnded());
}

TEST_F(MenuGuard, AnOpenMenuOfAnObjectClosesWhenTheObjectGoes)
{
    for (const auto& [popUp, name] : {std::pair{PopUp::mnuProperties, "mnuProperties"},
                                      std::pair{PopUp::mnuAutoNumber, "mnuAutoNumber"}}) {
        Select();
        EXPECT_TRUE(EventsUntil([&] { return Station.Session.Face.PropertiesEnabled(); }));
        Station.Session.Face.AskPopUp(popUp);
        QMenu& menu = Menu(name);
        EXPECT_TRUE(menu.isVisible()) << name;
        ASSERT_TRUE(LoadLayout(Station.Session, QStringLiteral("Badge")));
        EXPECT_TRUE(EventsUntil([&] { return !menu.isVisible(); })) << name;
    }
    EXPECT_FALSE(HasEnded());
}

TEST_F(MenuGuard, AValueThatHasGoneWithItsRecordIsNotChosen)
{
    SetRecord(Station.Session, {QStringLiteral("Anna"), QStringLiteral("Bo")});
    BuildFieldMenu(Station.Session.Face, Station.Session.FieldValues);
    QMenu& list = Menu("mnuDataFields");
    list.popup({});
    // The next record has begun: it has no values yet, and the menu still shows the earlier ones.
    Station.Session.FieldValues = {};
    Station.Choose("cmdField(2)");
    EXPECT_EQ(Station.Session.Document.SelectedObject->DataField, QStringLiteral("1"));
    EXPECT_FALSE(HasEnded());
    list.close();
}

} // namespace
} // namespace vantrel::test
