#include "desktop/Designer.h"
#include "desktop/controls/DesktopUpDown.h"
#include "desktop/designer/frmPlace.h"
#include "desktop/designer/frmSize.h"
#include "station/layout/DesignSteps.h"
#include "station/layout/LoadLayout.h"
#include "support/Events.h"
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QTest>
#include <QToolButton>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

StationOptions Tools()
{
    StationOptions options;
    options.DesignTools = true;
    return options;
}

/// The text, at 400, 300, is selected and the window is open.
class PlaceWindow : public ::testing::Test
{
protected:
    PlaceWindow()
    {
        Station.Session.History.Clear();
        Station.Session.History.PageWasLoaded();
        NoteDesign(Station.Session);
        Station.Click(OnText);
        EXPECT_TRUE(EventsUntil(
            [&] { return Station.Get<QAction>("cmdSize").isEnabled() && IsMenuOpen(); }));
        Station.Choose("cmdSize");
        Window = &Station.Get<frmPlace>("frmPlace");
        Window->activateWindow();
        EXPECT_TRUE(EventsUntil([&] { return Window->isActiveWindow(); }));
    }
    bool IsMenuOpen() { return Station.Session.Face.PropertiesEnabled(); }
    QLineEdit& Box(const char* name) { return Station.Get<QLineEdit>(name); }
    /// Types a text in place of what stands in a field.
    void Type(const char* name, const char* text)
    {
        Box(name).setFocus();
        Box(name).selectAll();
        QTest::keyClicks(&Box(name), QString::fromUtf8(text));
    }
    void Key(Qt::Key key)
    {
        QTest::keyClick(Window->windowHandle(), key);
        QCoreApplication::processEvents();
    }
    QString Told() { return Station.Get<QLabel>("lblTold").text(); }
    CardObject& Text() { return Station.Object(Family::lbl_TEXT); }
    CardObject& Field() { return Station.Object(Family::lbl_DATA); }

    Designer Station{Tools()};
    const QPoint OnText = Station.At(600, 375);
    const QPoint OnField = Station.At(600, 975);
    QPointer<frmPlace> Window;
};

TEST_F(PlaceWindow, TakesATypedLengthWithEnter)
{
    EXPECT_EQ(Box("txtLeft").text(), QStringLiteral("7.06"));
    EXPECT_EQ(Station.Get<QLabel>("lblObject").text(), QStringLiteral("Static Text: Visitor"));
    Type("txtLeft", "10");
    EXPECT_EQ(Text().Left, 400) << "nothing is taken before Enter";
    Key(Qt::Key_Return);
    EXPECT_EQ(Text().Left, 567);
    EXPECT_TRUE(Window->isVisible());
    Type("txtTop", "1in");
    Key(Qt::Key_Enter);
    EXPECT_EQ(Text().Top, 1440);
    EXPECT_EQ(Box("txtTop").text(), QStringLiteral("25.4"));
    EXPECT_EQ(Box("txtTop").selectedText(), QStringLiteral("25.4"));
    Station.Choose("cmdUndo");
    EXPECT_EQ(Text().Top, 300);
    EXPECT_EQ(Text().Left, 567);
    EXPECT_TRUE(EventsUntil([&] { return Box("txtTop").text() == QStringLiteral("5.29"); }));
    Station.Choose("cmdUndo");
    EXPECT_EQ(Text().Left, 400);
}

TEST_F(PlaceWindow, TakesATypedLengthWhenItsFieldIsLeft)
{
    Type("txtWidth", "680 twips");
    Key(Qt::Key_Tab);
    EXPECT_EQ(Text().Width, 680);
    EXPECT_EQ(Box("txtWidth").text(), QStringLiteral("11.99"));
}

TEST_F(PlaceWindow, TakesNothingOfAFieldThatGoesWithTheWindow)
{
    Type("txtLeft", "10");
    ASSERT_TRUE(Box("txtLeft").hasFocus());
    delete Window.data();
    EXPECT_EQ(Text().Left, 400);
}

TEST_F(PlaceWindow, TellsAboutBadInputAndKeepsTheOldValue)
{
    Type("txtLeft", "wide");
    Key(Qt::Key_Return);
    EXPECT_EQ(Told(), QStringLiteral("\"wide\" is no length. The old value is kept."));
    EXPECT_EQ(Box("txtLeft").text(), QStringLiteral("7.06"));
    EXPECT_EQ(Text().Left, 400);
    Type("txtWidth", "0");
    Key(Qt::Key_Return);
    EXPECT_TRUE(Told().contains(QStringLiteral("must be from")));
    EXPECT_EQ(Text().Width, 1500);
    Type("txtWidth", "20");
    Key(Qt::Key_Return);
    EXPECT_EQ(Told(), QString());
    EXPECT_EQ(Text().Width, 1134);
}

TEST_F(PlaceWindow, EscapeLeavesItWithoutTakingWhatWasTyped)
{
    Type("txtLeft", "20");
    Key(Qt::Key_Escape);
    EXPECT_TRUE(EventsUntil([&] { return Window.isNull() || !Window->isVisible(); }));
    EXPECT_EQ(Text().Left, 400);
    EXPECT_FALSE(CanUndoDesign(Station.Session));
}

TEST_F(PlaceWindow, StepsWithArrowsAndArrowKeys)
{
    Station.Get<DesktopUpDown>("udLeft").UpButton().click();
    EXPECT_EQ(Box("txtLeft").text(), QStringLiteral("7.16"));
    Box("txtLeft").setFocus();
    Key(Qt::Key_Down);
    Key(Qt::Key_Down);
    EXPECT_EQ(Box("txtLeft").text(), QStringLiteral("6.95"));
    // A typed length counts before it is stepped.
    Type("txtHeight", "10");
    Key(Qt::Key_Up);
    EXPECT_EQ(Box("txtHeight").text(), QStringLiteral("10.11"));
}

TEST_F(PlaceWindow, StaysOpenAndFollowsTheSelection)
{
    Station.Click(OnField);
    EXPECT_TRUE(EventsUntil([&] { return Box("txtTop").text() == QStringLiteral("15.87"); }));
    EXPECT_TRUE(Window->isVisible());
    EXPECT_EQ(Station.Get<QLabel>("lblObject").text(), QStringLiteral("Data Field: Data Field 1"));
    Station.Click(OnText, Qt::ControlModifier);
    EXPECT_TRUE(EventsUntil([&] { return Box("txtTop").text().isEmpty(); }));
    EXPECT_EQ(Station.Get<QLabel>("lblObject").text(), QStringLiteral("2 objects"));
    EXPECT_EQ(Box("txtLeft").text(), QStringLiteral("7.06"));
    Type("txtTop", "30");
    Key(Qt::Key_Return);
    EXPECT_EQ(Text().Top, 1701);
    EXPECT_EQ(Field().Top, 1701);
    Station.Click(Station.At(2500, 4000));
    EXPECT_TRUE(EventsUntil([&] { return !Box("txtTop").isEnabled(); }));
    EXPECT_EQ(Station.Get<QLabel>("lblObject").text(), QStringLiteral("No object is selected."));
}

TEST_F(PlaceWindow, WhatWasTypedForOneObjectDoesNotMoveAnother)
{
    Type("txtLeft", "20");
    Station.Press(OnField);
    Station.Release(OnField);
    Key(Qt::Key_Return);
    EXPECT_EQ(Field().Left, 400);
    EXPECT_EQ(Text().Left, 400);
    EXPECT_TRUE(EventsUntil([&] { return Box("txtTop").text() == QStringLiteral("15.87"); }));
    EXPECT_EQ(Box("txtLeft").text(), QStringLiteral("7.06"));
}

TEST_F(PlaceWindow, KeepsTheUnitThatIsChosen)
{
    auto& units = Station.Get<QComboBox>("cboUnit");
    EXPECT_EQ(units.currentText(), QStringLiteral("Millimetres"));
    units.setFocus();
    Key(Qt::Key_Down);
    EXPECT_EQ(Box("txtLeft").text(), QStringLiteral("0.2778"));
    EXPECT_EQ(Station.Session.Options.Unit, LengthUnit::Inches);
    QStringList mistakes;
    EXPECT_EQ(ReadStationOptions(Station.Session.ProgramFolder, mistakes).Unit, LengthUnit::Inches);
    EXPECT_EQ(Text().Left, 400);
    EXPECT_FALSE(CanUndoDesign(Station.Session));
}

TEST_F(PlaceWindow, ChangesNothingOnceItsObjectHasGone)
{
    Type("txtLeft", "20");
    ASSERT_TRUE(LoadLayout(Station.Session, QStringLiteral("Badge")));
    Key(Qt::Key_Return);
    EXPECT_EQ(Text().Left, 400);
    CloseLayout(Station.Session);
    EXPECT_TRUE(EventsUntil([&] { return !Box("txtLeft").isEnabled(); }));
    Station.Get<DesktopUpDown>("udLeft").UpButton().click();
}

TEST(PlaceWindowOff, TheMenuOpensTheSizeDialogWithoutDesignTools)
{
    Designer station;
    station.Click(station.At(600, 375));
    EXPECT_TRUE(EventsUntil([&] { return station.Session.Face.PropertiesEnabled(); }));
    station.Choose("cmdSize");
    EXPECT_NE(station.Window.findChild<frmSize*>(), nullptr);
    EXPECT_EQ(station.Window.findChild<frmPlace*>(), nullptr);
}

} // namespace
} // namespace vantrel::test
