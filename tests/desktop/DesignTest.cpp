#include "desktop/Designer.h"
#include "station/layout/LoadLayout.h"
#include "support/Events.h"
#include "support/Layouts.h"
#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QTest>
#include <QWindow>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

TEST(Designer, TheMouseMovesAnObject)
{
    Designer designer;
    // The text is at 400, 300; a drag moves an object to a whole pixel.
    designer.Drag(designer.At(600, 375), designer.At(900, 825));
    ExpectBox(designer.Object(Family::lbl_TEXT), 705, 750, 1500, 300);
    EXPECT_TRUE(designer.Selected());
}

TEST(Designer, AGripSizesAndInvertedComesOutRight)
{
    Designer designer;
    designer.Click(designer.At(600, 375));
    const CardObject& text = designer.Object(Family::lbl_TEXT);
    const float left = text.Left;
    designer.Drag(designer.Grip(4), designer.At(3000, 1500));
    ExpectBox(text, left, 300, 3000 - left, 1200);
    designer.Drag(designer.Grip(4), designer.At(150, 150));
    ExpectBox(text, 150, 150, left - 150, 150);
}

TEST(Designer, TheBandStaysInsideTheForm)
{
    Designer designer;
    designer.Click(designer.At(600, 375));
    designer.Drag(designer.Grip(4), designer.At(100000, 100000));
    const CardObject& text = designer.Object(Family::lbl_TEXT);
    EXPECT_LE(text.Left + text.Width, designer.Session.Document.Width);
    EXPECT_LE(text.Top + text.Height, designer.Session.Document.Height);
    EXPECT_GT(text.Width, 2000);
}

TEST(Designer, TheTopmostObjectTakesThePress)
{
    Designer designer;
    AddText(designer.Session, QStringLiteral("Above"), {300, 400, 300, 1500});
    designer.Click(designer.At(600, 375));
    EXPECT_EQ(designer.Session.Document.SelectedIndex, 2);
    EXPECT_EQ(designer.Session.Document.SelectedFamily, QStringLiteral("lbl_TEXT"));
}

TEST(Designer, ShiftSelectsNothing)
{
    Designer designer;
    designer.Session.Document.LayoutUnchanged = true;
    designer.Press(designer.At(600, 375), Qt::LeftButton, Qt::ShiftModifier);
    designer.Move(designer.At(900, 900));
    designer.Release(designer.At(900, 900));
    EXPECT_FALSE(designer.Selected());
    EXPECT_FALSE(designer.Session.Document.LayoutUnchanged);
    ExpectBox(designer.Object(Family::lbl_TEXT), 400, 300, 1500, 300);
}

TEST(Designer, APressOnTheEmptyCardEndsTheSelection)
{
    Designer designer;
    designer.Click(designer.At(600, 375));
    EXPECT_TRUE(EventsUntil(
        [&] { return designer.Get<QMenu>("mnuProperties").menuAction()->isEnabled(); }));
    designer.Click(designer.At(2500, 4000));
    EXPECT_FALSE(designer.Selected());
    EXPECT_TRUE(EventsUntil(
        [&] { return !designer.Get<QMenu>("mnuProperties").menuAction()->isEnabled(); }));
}

TEST(Designer, TheRightButtonOpensTheMenuOfWhatItIsPressedOn)
{
    Designer designer;
    const auto rightClick = [&](QPoint point) {
        designer.Press(point, Qt::RightButton);
        designer.Release(point, Qt::RightButton);
        return Designer::TakePopUp();
    };
    EXPECT_EQ(rightClick(designer.At(600, 375)), QStringLiteral("mnuProperties"));
    EXPECT_EQ(rightClick(designer.At(600, 1600)), QStringLiteral("mnuAutoNumber"));
    EXPECT_EQ(rightClick(designer.At(2500, 4000)), QStringLiteral("mnuData"));
}

TEST(Designer, TheMenuFollowsTheObject)
{
    Designer designer;
    const auto shows = [&](const char* name) { return designer.Get<QAction>(name).isVisible(); };
    designer.Click(designer.At(600, 375));
    EXPECT_TRUE(shows("cmdAdjustText"));
    EXPECT_FALSE(shows("cmdFilters"));
    designer.Click(designer.At(600, 975));
    EXPECT_FALSE(shows("cmdAdjustText"));
    EXPECT_TRUE(shows("cmdFilters"));
    EXPECT_TRUE(designer.Get<QAction>("cmdALeft").isChecked());
}

TEST(Designer, GripsShowTheirPointers)
{
    Designer designer;
    designer.Click(designer.At(600, 375));
    constexpr Qt::CursorShape shapes[] = {
        Qt::SizeFDiagCursor, Qt::SizeVerCursor, Qt::SizeBDiagCursor, Qt::SizeHorCursor,
        Qt::SizeFDiagCursor, Qt::SizeVerCursor, Qt::SizeBDiagCursor, Qt::SizeHorCursor};
    for (int grip = 0; grip < 8; ++grip) {
        designer.Move(designer.Grip(grip));
        EXPECT_EQ(designer.Form->cursor().shape(), shapes[grip]) << grip;
    }
    designer.Move(designer.At(2500, 4000));
    EXPECT_EQ(designer.Form->cursor().shape(), Qt::ArrowCursor);
}

TEST(Designer, TheBandShowsWhileItIsDraggedAndLeavesNoTrace)
{
    Designer designer;
    designer.Press(designer.At(600, 375));
    const QImage began = designer.Form->grab().toImage();
    designer.Move(designer.At(1500, 2500));
    EXPECT_NE(designer.Form->grab().toImage(), began);
    designer.Move(designer.At(600, 375));
    EXPECT_EQ(designer.Form->grab().toImage(), began);
    designer.Release(designer.At(600, 375));
}

TEST(Designer, ARecordInTheMiddleOfADragEndsItWithoutHarm)
{
    Designer designer;
    designer.Press(designer.At(600, 375));
    ASSERT_TRUE(LoadLayout(designer.Session, QStringLiteral("Badge")));
    designer.Move(designer.At(1500, 2500));
    designer.Release(designer.At(1500, 2500));
    ExpectBox(designer.Object(Family::lbl_TEXT), 400, 300, 1500, 300);
    designer.Press(designer.At(600, 375));
    CloseLayout(designer.Session);
    designer.Move(designer.At(1500, 2500));
    designer.Release(designer.At(1500, 2500));
    EXPECT_FALSE(designer.Selected());
}

TEST(Designer, AnotherButtonPressedInADragGoesToTheForm)
{
    Designer designer;
    for (const QPoint second : {designer.At(600, 375), designer.At(600, 975)}) {
        designer.Press(designer.At(600, 375));
        designer.Press(second, Qt::RightButton);
        EXPECT_FALSE(designer.Selected());
        EXPECT_EQ(Designer::TakePopUp(), QString());
        designer.Release(second, Qt::RightButton);
        EXPECT_EQ(Designer::TakePopUp(), QStringLiteral("mnuData"));
        designer.Release(designer.At(600, 375));
        EXPECT_EQ(designer.Session.Document.Drag.Mode, DragMode::None);
        ExpectBox(designer.Object(Family::lbl_TEXT), 400, 300, 1500, 300);
        ExpectBox(designer.Object(Family::lbl_DATA), 400, 900, 1500, 300);
    }
}

TEST(Designer, ADragEndsWithItsReleaseOverAMenuThatCameUpMeanwhile)
{
    Designer designer;
    QWindow* const frame = designer.Window.windowHandle();
    const auto at = [&](QPoint point) { return designer.Form->mapTo(&designer.Window, point); };
    // Where the band is left, away from the grips.
    const auto seen = [&] {
        const QRect around(designer.At(900, 2200), designer.At(3000, 3200));
        return designer.Form->grab(around).toImage();
    };
    const QImage before = seen();
    const QPoint object = at(designer.At(600, 375));
    const QPoint away = at(designer.At(1500, 2500));
    QTest::mousePress(frame, Qt::LeftButton, {}, object);
    QTest::mouseMove(frame, away);
    QTest::mousePress(frame, Qt::RightButton, {}, away);
    QTest::mouseRelease(frame, Qt::RightButton, {}, away);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->objectName(), QStringLiteral("mnuData"));
    ASSERT_NE(designer.Session.Document.Drag.Mode, DragMode::None);
    ASSERT_NE(seen(), before);
    QTest::mouseRelease(frame, Qt::LeftButton, {}, away);
    EXPECT_EQ(designer.Session.Document.Drag.Mode, DragMode::None);
    Designer::TakePopUp();
    EXPECT_EQ(seen(), before);
    ExpectBox(designer.Object(Family::lbl_TEXT), 400, 300, 1500, 300);
}

TEST(Designer, ADragWhoseReleaseWasLostEndsWithTheNextClick)
{
    Designer designer;
    designer.Press(designer.At(600, 375));
    // A message box has taken the release.
    designer.Click(designer.At(600, 975));
    EXPECT_EQ(designer.Session.Document.Drag.Mode, DragMode::None);
    ExpectBox(designer.Object(Family::lbl_TEXT), 400, 300, 1500, 300);
    ExpectBox(designer.Object(Family::lbl_DATA), 400, 900, 1500, 300);
    designer.Drag(designer.At(600, 375), designer.At(900, 825));
    ExpectBox(designer.Object(Family::lbl_TEXT), 705, 750, 1500, 300);
}

TEST(Designer, OnlyShiftControlAndAltAreAShiftState)
{
    Designer designer;
    for (const auto key : {Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier}) {
        designer.Press(designer.At(600, 375), Qt::LeftButton, key);
        designer.Release(designer.At(600, 375));
        EXPECT_FALSE(designer.Selected()) << key;
    }
    for (const auto key : {Qt::MetaModifier, Qt::KeypadModifier, Qt::GroupSwitchModifier}) {
        designer.Press(designer.At(600, 375), Qt::LeftButton, key);
        designer.Release(designer.At(600, 375));
        EXPECT_TRUE(designer.Selected()) << key;
        designer.Click(designer.At(2500, 4000));
    }
}

TEST(Designer, ABandDoesNotOutliveItsDocument)
{
    Designer designer;
    const QImage before = designer.Form->grab().toImage();
    designer.Press(designer.At(600, 375));
    designer.Move(designer.At(1500, 2500));
    // Both happen before the window has handled either event.
    CloseLayout(designer.Session);
    ASSERT_TRUE(LoadLayout(designer.Session, QStringLiteral("Badge")));
    QCoreApplication::processEvents();
    EXPECT_EQ(designer.Form->grab().toImage(), before);
}

// From an empty station to a printed card, with menus and mouse only.
TEST(Designer, ALayoutDesignedByHandIsSavedReloadedAndPrinted)
{
    Designer designer;
    designer.Choose("cmdInsertData");
    const CardObject& field = *designer.Session.Document.Find(Family::lbl_DATA, 2);
    ExpectBox(field, 200, 200, 1500, 300);
    designer.Drag(designer.At(300, 250), designer.At(1200, 3250));
    designer.Drag(designer.Grip(4), designer.At(2850, 3600));
    designer.Choose("cmdNewText");
    designer.Drag(designer.At(300, 250), designer.At(1200, 4000));
    const CardObject& text = *designer.Session.Document.Find(Family::lbl_TEXT, 2);
    const float fieldLeft = field.Left;
    const float fieldTop = field.Top;
    const float textTop = text.Top;
    EXPECT_EQ(fieldLeft, 1095);
    EXPECT_EQ(fieldTop, 3195);
    EXPECT_EQ(field.Left + field.Width, 2850);
    designer.Choose("cmdSave");
    designer.Choose("cmdClose");
    EXPECT_FALSE(designer.Session.Document.IsLoaded());
    ASSERT_TRUE(LoadLayout(designer.Session, QStringLiteral("Badge")));
    EXPECT_EQ(designer.Session.Document.Find(Family::lbl_DATA, 2)->Left, fieldLeft);
    EXPECT_EQ(designer.Session.Document.Find(Family::lbl_DATA, 2)->Top, fieldTop);
    SetRecord(designer.Session, {QStringLiteral("Anna")});
    designer.Printers.Operations.clear();
    EXPECT_TRUE(EventsUntil([&] { return designer.Get<QAction>("cmdPrint").isEnabled(); }));
    designer.Choose("cmdPrint");
    const QStringList& printed = designer.Printers.Operations;
    EXPECT_EQ(printed.count(QStringLiteral("Print(\"Anna\")")), 2);
    EXPECT_TRUE(printed.contains(QStringLiteral("CurrentX = 1095")));
    EXPECT_TRUE(printed.contains(QStringLiteral("CurrentY = 3195")));
    EXPECT_TRUE(printed.contains(QStringLiteral("CurrentY = %1").arg(textTop)));
}

} // namespace
} // namespace vantrel::test
