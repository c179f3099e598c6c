#include "card/ObjectArrange.h"
#include "desktop/Designer.h"
#include "station/layout/DesignSelection.h"
#include "station/layout/DesignSteps.h"
#include "station/layout/LoadLayout.h"
#include "station/layout/Navigation.h"
#include "support/Events.h"
#include "support/Layouts.h"
#include "support/PageText.h"
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QTest>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

StationOptions Tools()
{
    StationOptions options;
    options.DesignTools = true;
    return options;
}

/// A key that goes to whatever has the keyboard.
void PressKey(Designer& station, Qt::Key key, Qt::KeyboardModifiers keys)
{
    station.Window.activateWindow();
    ASSERT_TRUE(EventsUntil([&] { return station.Window.isActiveWindow(); }));
    QTest::keyClick(station.Window.windowHandle(), key, keys);
    QCoreApplication::processEvents();
}

/// The text is at 400, 300, the field below it at 400, 900 and the number at 400, 1500.
class DesignTools : public ::testing::Test
{
protected:
    DesignTools()
    {
        // The page was designed without a window.
        Station.Session.History.Clear();
        Station.Session.History.PageWasLoaded();
        NoteDesign(Station.Session);
    }
    void Key(Qt::Key key, Qt::KeyboardModifiers keys = Qt::NoModifier)
    {
        PressKey(Station, key, keys);
    }
    void Arrow(Qt::Key key, Qt::KeyboardModifiers keys = Qt::NoModifier)
    {
        QTest::keyClick(Station.Form, key, keys);
        QCoreApplication::processEvents();
    }
    QString Page() const { return PageText(Station.Session); }
    bool IsEnabled(const char* name) { return Station.Get<QAction>(name).isEnabled(); }
    std::size_t Count() const { return SelectedObjects(Station.Session.Document).size(); }
    CardObject& Text() { return Station.Object(Family::lbl_TEXT); }
    CardObject& Field() { return Station.Object(Family::lbl_DATA); }

    Designer Station{Tools()};
    const QPoint OnText = Station.At(600, 375);
    const QPoint OnField = Station.At(600, 975);
    const QPoint OnNumber = Station.At(600, 1600);
    const QPoint OnPage = Station.At(2500, 4000);
};

TEST_F(DesignTools, TheKeysTakeADragBackAndForth)
{
    const QString before = Page();
    EXPECT_FALSE(IsEnabled("cmdUndo"));
    Station.Drag(OnText, Station.At(900, 825));
    ExpectBox(Text(), 705, 750, 1500, 300);
    const QString after = Page();
    EXPECT_TRUE(IsEnabled("cmdUndo"));
    Key(Qt::Key_Backspace, Qt::AltModifier);
    EXPECT_EQ(Page(), before);
    EXPECT_FALSE(IsEnabled("cmdUndo"));
    EXPECT_TRUE(IsEnabled("cmdRedo"));
    Key(Qt::Key_Backspace, Qt::AltModifier | Qt::ShiftModifier);
    EXPECT_EQ(Page(), after);
    EXPECT_FALSE(IsEnabled("cmdRedo"));
}

TEST_F(DesignTools, EveryCommandOfTheMenusCanBeTakenBack)
{
    Station.Click(OnField);
    const QString before = Page();
    for (const char* name : {"cmdInsertData", "cmdNewText", "cmdInsertImage", "cmdInsertCamImage"})
        Station.Choose(name);
    // New objects are selected.
    SelectObjects(Station.Session.Document, Station.Session.Face, {&Field()});
    for (const char* name : {"cmdIncrease", "cmdMod10", "cmdACenter"})
        Station.Choose(name);
    int steps = 0;
    for (; IsEnabled("cmdUndo"); ++steps)
        Station.Choose("cmdUndo");
    EXPECT_EQ(steps, 7);
    EXPECT_EQ(Page(), before);
}

TEST_F(DesignTools, WhatADialogDidIsAStepOfItsOwn)
{
    Station.Session.Options.Unit = LengthUnit::Twips;
    Station.Click(OnText);
    const QString before = Page();
    Station.Choose("cmdSize");
    auto& top = Station.Get<QLineEdit>("txtTop");
    QTest::keyClick(&top, Qt::Key_Up);
    QTest::keyClick(&top, Qt::Key_Up);
    QCoreApplication::processEvents();
    EXPECT_EQ(Text().Top, 302);
    Station.Choose("cmdUndo");
    EXPECT_EQ(Text().Top, 301);
    Station.Choose("cmdUndo");
    EXPECT_EQ(Page(), before);
}

TEST_F(DesignTools, AClickLeavesAnObjectWhereItIs)
{
    Station.Click(OnText);
    ExpectBox(Text(), 400, 300, 1500, 300);
    Station.Click(Station.Grip(4));
    ExpectBox(Text(), 400, 300, 1500, 300);
    EXPECT_FALSE(IsEnabled("cmdUndo"));
    EXPECT_FALSE(IsPageUnsaved(Station.Session));
}

TEST_F(DesignTools, ArrowKeysMoveByAPointAndWithShiftByATwip)
{
    Station.Click(OnText);
    Arrow(Qt::Key_Right);
    Arrow(Qt::Key_Down, Qt::KeypadModifier);
    ExpectBox(Text(), 420, 320, 1500, 300);
    Arrow(Qt::Key_Left, Qt::ShiftModifier);
    Arrow(Qt::Key_Up, Qt::ShiftModifier);
    ExpectBox(Text(), 419, 319, 1500, 300);
    for (int step = 0; step < 4; ++step)
        Station.Choose("cmdUndo");
    ExpectBox(Text(), 400, 300, 1500, 300);
    EXPECT_FALSE(IsEnabled("cmdUndo"));
    // Without a selection they do nothing.
    Station.Click(OnPage);
    Arrow(Qt::Key_Right);
    ExpectBox(Text(), 400, 300, 1500, 300);
}

TEST_F(DesignTools, AHeldArrowKeyIsOneStep)
{
    Station.Click(OnText);
    for (int press = 0; press < 10; ++press) {
        QKeyEvent event(QEvent::KeyPress, Qt::Key_Right, Qt::NoModifier, QString(), press > 0);
        QApplication::sendEvent(Station.Form, &event);
    }
    QKeyEvent release(QEvent::KeyRelease, Qt::Key_Right, Qt::NoModifier);
    QApplication::sendEvent(Station.Form, &release);
    QCoreApplication::processEvents();
    EXPECT_EQ(Text().Left, 600);
    Station.Choose("cmdUndo");
    EXPECT_EQ(Text().Left, 400);
}

TEST_F(DesignTools, AClickOnTheCardGivesItTheKeyboard)
{
    QTest::mouseClick(Station.Window.windowHandle(), Qt::LeftButton, {},
                      Station.Form->mapTo(&Station.Window, OnText));
    ASSERT_TRUE(EventsUntil([&] { return Station.Form->hasFocus(); }));
    QTest::keyClick(Station.Window.windowHandle(), Qt::Key_Right);
    EXPECT_EQ(Text().Left, 420);
}

TEST_F(DesignTools, ControlAddsToTheSelectionAndTakesOut)
{
    Station.Click(OnText);
    Station.Click(OnField, Qt::ControlModifier);
    EXPECT_EQ(Count(), 2U);
    EXPECT_EQ(Station.Session.Document.SelectedObject, &Text());
    Station.Click(OnText, Qt::ControlModifier);
    EXPECT_EQ(Station.Session.Document.SelectedObject, &Field());
    EXPECT_EQ(Count(), 1U);
    Station.Click(OnField, Qt::ControlModifier);
    EXPECT_EQ(Count(), 0U);
    // Shift does nothing, as ever.
    Station.Click(OnText, Qt::ShiftModifier);
    EXPECT_EQ(Count(), 0U);
}

TEST_F(DesignTools, SeveralObjectsAreDraggedTogetherInOneStep)
{
    const QString before = Page();
    Station.Click(OnText);
    Station.Click(OnField, Qt::ControlModifier);
    const QImage marked = Station.Form->grab().toImage();
    Station.Drag(OnField, Station.At(900, 1425));
    EXPECT_NE(Station.Form->grab().toImage(), marked);
    EXPECT_EQ(Field().Left, 705);
    EXPECT_EQ(Text().Left, 705);
    EXPECT_EQ(Text().Top - 300, Field().Top - 900);
    EXPECT_EQ(Count(), 2U);
    Station.Choose("cmdUndo");
    EXPECT_EQ(Page(), before);
    // A press on one that is not selected selects that one alone.
    Station.Click(OnNumber);
    EXPECT_EQ(Count(), 1U);
}

TEST_F(DesignTools, ABandSelectsWhatLiesInsideIt)
{
    Station.Press(Station.At(2900, 200));
    Station.Move(Station.At(1000, 800));
    const QImage band = Station.Form->grab().toImage();
    Station.Move(Station.At(300, 1300));
    EXPECT_NE(Station.Form->grab().toImage(), band);
    Station.Release(Station.At(300, 1300));
    EXPECT_EQ(Count(), 2U);
    EXPECT_FALSE(IsSelected(Station.Session.Document, Station.Object(Family::lbl_AUTO)));
    Station.Click(OnPage);
    EXPECT_EQ(Count(), 0U);
    EXPECT_FALSE(IsEnabled("cmdUndo"));
}

TEST_F(DesignTools, ARecordInTheMiddleOfABandDoesNoHarm)
{
    Station.Press(Station.At(2900, 200));
    Station.Move(Station.At(1000, 800));
    ASSERT_TRUE(LoadLayout(Station.Session, QStringLiteral("Badge")));
    QCoreApplication::processEvents();
    Station.Move(Station.At(300, 1300));
    Station.Release(Station.At(300, 1300));
    EXPECT_EQ(Count(), 2U);
}

TEST_F(DesignTools, CutCopyAndPasteGoThroughTheClipboard)
{
    Station.Click(OnText);
    Station.Choose("cmdCopy");
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    EXPECT_EQ(data->formats(), QStringList{QStringLiteral("application/x-vantrel-objects")});
    Station.Choose("cmdPaste");
    const CardObject& copy = *Station.Session.Document.Find(Family::lbl_TEXT, 2);
    ExpectBox(copy, 600, 500, 1500, 300);
    Key(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(Station.Session.Document.Find(Family::lbl_TEXT, 2), nullptr);
    Station.Click(OnField);
    Key(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(Station.Session.Document.Find(Family::lbl_DATA, 1), nullptr);
    Key(Qt::Key_V, Qt::ControlModifier);
    ExpectBox(Field(), 400, 900, 1500, 300);
    QGuiApplication::clipboard()->setText(QStringLiteral("From elsewhere"));
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Station.Session.Document.Find(Family::lbl_TEXT, 2)->Caption(),
              QStringLiteral("From elsewhere"));
    EXPECT_TRUE(Station.Operator.Questions.isEmpty());
}

TEST_F(DesignTools, EntriesForAnObjectWaitForASelection)
{
    for (const char* name : {"cmdCut", "cmdCopy", "cmdDuplicate"})
        EXPECT_FALSE(IsEnabled(name)) << name;
    EXPECT_TRUE(IsEnabled("cmdPaste") || EventsUntil([&] { return IsEnabled("cmdPaste"); }));
    Station.Click(OnText);
    for (const char* name : {"cmdCut", "cmdCopy", "cmdDuplicate"})
        EXPECT_TRUE(IsEnabled(name)) << name;
    Station.Choose("cmdDuplicate");
    EXPECT_EQ(Station.Session.Document.HighestIndex(Family::lbl_TEXT), 2);
}

TEST_F(DesignTools, ObjectsAreOrderedAlignedAndDistributedFromTheMenu)
{
    Station.Click(OnText);
    Station.Choose("cmdToFront");
    EXPECT_EQ(Station.Session.Document.Objects().back().get(), &Text());
    Station.Choose("cmdOneDown");
    EXPECT_NE(Station.Session.Document.Objects().back().get(), &Text());
    Station.Choose("cmdLineRight");
    EXPECT_EQ(Text().Left + Text().Width, Station.Session.Document.Width);
    Station.Choose("cmdUndo");
    Field().Top = 700;
    Station.Press(Station.At(2900, 200));
    Station.Release(Station.At(2900, 200));
    Station.Drag(Station.At(2900, 200), Station.At(300, 1900));
    ASSERT_EQ(Count(), 3U);
    Station.Choose("cmdSpreadDown");
    EXPECT_EQ(Field().Top, 900);
}

TEST_F(DesignTools, AskBeforeAnotherPageOrLayoutTakesThePlaceOfWhatIsUnsaved)
{
    Station.Click(OnText);
    Arrow(Qt::Key_Right);
    Station.Operator.BoxAnswers = {BoxAnswer::Cancel, BoxAnswer::Yes};
    EXPECT_TRUE(EventsUntil([&] { return IsEnabled("cmdClose"); }));
    Station.Choose("cmdClose");
    EXPECT_EQ(Station.Session.CurrentLayoutName, QStringLiteral("Badge"));
    Station.Choose("cmdClose");
    EXPECT_TRUE(Station.Session.CurrentLayoutName.isEmpty());
    ASSERT_EQ(Station.Operator.Questions.size(), 2);
    EXPECT_TRUE(Station.Operator.Questions.first().contains(QStringLiteral("not saved")));
    OpenLayout(Station.Session, QStringLiteral("Badge"));
    EXPECT_EQ(Text().Left, 420);
    // What is saved is not asked about.
    EXPECT_TRUE(EventsUntil([&] { return IsEnabled("cmdClose"); }));
    Station.Choose("cmdClose");
    EXPECT_EQ(Station.Operator.Questions.size(), 2);
}

TEST(DesignToolsOff, KeysAndGesturesDoWhatTheyAlwaysDid)
{
    Designer station;
    EXPECT_EQ(station.Window.findChild<QAction*>(QStringLiteral("cmdUndo")), nullptr);
    const QPoint text = station.At(600, 375);
    station.Click(text);
    const QString clicked = PageText(station.Session);
    EXPECT_EQ(station.Object(Family::lbl_TEXT).Left, 405);
    station.Click(station.At(600, 975), Qt::ControlModifier);
    station.Drag(station.At(2900, 200), station.At(300, 1900));
    EXPECT_FALSE(station.Selected());
    station.Click(text);
    for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Down})
        QTest::keyClick(station.Form, key);
    for (const Qt::Key key : {Qt::Key_X, Qt::Key_C, Qt::Key_V, Qt::Key_Y, Qt::Key_J})
        PressKey(station, key, Qt::ControlModifier);
    PressKey(station, Qt::Key_Backspace, Qt::AltModifier);
    EXPECT_EQ(PageText(station.Session), clicked);
    for (const char* name : {"cmdCut", "cmdCopy", "cmdPaste"})
        EXPECT_FALSE(station.Get<QAction>(name).isEnabled()) << name;
    EXPECT_TRUE(EventsUntil([&] { return station.Get<QAction>("cmdClose").isEnabled(); }));
    station.Choose("cmdClose");
    EXPECT_TRUE(station.Operator.Questions.isEmpty());
}

} // namespace
} // namespace vantrel::test
