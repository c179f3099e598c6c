#include "desktop/designer/CardZoom.h"
#include "desktop/Designer.h"
#include "desktop/designer/DesktopRuler.h"
#include "desktop/window/frmNav.h"
#include "station/layout/LoadLayout.h"
#include "support/Events.h"
#include "support/PageText.h"
#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMdiArea>
#include <QMenu>
#include <QScrollBar>
#include <QTest>
#include <QToolButton>
#include <QWheelEvent>
#include <cmath>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

TEST(ZoomSteps, GoUpAndDownBetweenTheEnds)
{
    EXPECT_EQ(CardZoom::Next(1, 1), 1.25);
    EXPECT_EQ(CardZoom::Next(1, -1), 0.75);
    EXPECT_EQ(CardZoom::Next(1.87, 1), 2);
    EXPECT_EQ(CardZoom::Next(1.87, -1), 1.5);
    EXPECT_EQ(CardZoom::Next(8, 1), 8);
    EXPECT_EQ(CardZoom::Next(0.25, -1), 0.25);
    EXPECT_EQ(CardZoom::Allowed(100), 8);
    EXPECT_EQ(CardZoom::Allowed(0), 0.25);
    EXPECT_EQ(CardZoom::Allowed(std::nan("")), 1);
}

StationOptions Tools()
{
    StationOptions options;
    options.DesignTools = true;
    return options;
}

void TurnWheel(Designer& station, QPoint at, int steps, Qt::KeyboardModifiers keys)
{
    QWheelEvent event(at, station.Form->mapToGlobal(QPointF(at)), QPoint(), QPoint(0, 120 * steps),
                      Qt::NoButton, keys, Qt::NoScrollPhase, false);
    QApplication::sendEvent(station.Form, &event);
    QCoreApplication::processEvents();
}

/// The text is at 400, 300, the field at 400, 900 and the number at 400, 1500, each 1500 by 300.
class ZoomedCard : public ::testing::Test
{
protected:
    ZoomedCard() { Station.Window.resize(1000, 700); }

    CardObject& Text() { return Station.Object(Family::lbl_TEXT); }
    QPoint OnText() const { return Station.At(600, 375); }
    QMdiArea& Workspace() { return Station.Get<QMdiArea>("Workspace"); }
    /// Where a place of the card is on the screen.
    QPoint OnScreen(int left, int top) const
    {
        return Station.Form->mapToGlobal(Station.At(left, top));
    }

    Designer Station{Tools()};
};

TEST_F(ZoomedCard, TheWheelZoomsAroundThePointer)
{
    const QPoint held = OnScreen(1500, 2100);
    TurnWheel(Station, Station.At(1500, 2100), 1, Qt::ControlModifier);
    EXPECT_EQ(Station.Form->Zoom(), 1.25);
    EXPECT_EQ(Station.Form->CardRect().size(), QSize(255, 405));
    EXPECT_LE((OnScreen(1500, 2100) - held).manhattanLength(), 2);
    for (int step = 0; step < 20; ++step)
        TurnWheel(Station, Station.Form->mapFromGlobal(held), 1, Qt::ControlModifier);
    EXPECT_EQ(Station.Form->Zoom(), 8);
    EXPECT_LE((OnScreen(1500, 2100) - held).manhattanLength(), 16);
    for (int step = 0; step < 20; ++step)
        TurnWheel(Station, Station.Form->mapFromGlobal(held), -1, Qt::ControlModifier);
    EXPECT_EQ(Station.Form->Zoom(), 0.25);
    EXPECT_LE((OnScreen(1500, 2100) - held).manhattanLength(), 16);
}

TEST_F(ZoomedCard, FinelyTurnedWheelsZoomByWholeSteps)
{
    for (int part = 0; part < 7; ++part) {
        QWheelEvent event(QPointF(50, 50), Station.Form->mapToGlobal(QPointF(50, 50)), QPoint(),
                          QPoint(0, 15), Qt::NoButton, Qt::ControlModifier, Qt::NoScrollPhase,
                          false);
        QApplication::sendEvent(Station.Form, &event);
    }
    EXPECT_EQ(Station.Form->Zoom(), 1);
    TurnWheel(Station, {50, 50}, 1, Qt::ControlModifier);
    EXPECT_EQ(Station.Form->Zoom(), 1.25);
}

TEST_F(ZoomedCard, EntriesAndKeysZoom)
{
    Station.Choose("cmdZoomIn");
    EXPECT_EQ(Station.Form->Zoom(), 1.25);
    Station.Choose("cmdZoomOut");
    Station.Choose("cmdZoomOut");
    EXPECT_EQ(Station.Form->Zoom(), 0.75);
    Station.Choose("cmdZoomActual");
    EXPECT_EQ(Station.Form->Zoom(), 1);
    EXPECT_EQ(Station.Form->pos(), QPoint(32, 32));
    Station.Choose("cmdZoomFit");
    EXPECT_GT(Station.Form->Zoom(), 1.3);
    EXPECT_TRUE(Workspace().viewport()->rect().contains(Station.Form->geometry()));
    Station.Window.activateWindow();
    ASSERT_TRUE(EventsUntil([&] { return Station.Window.isActiveWindow(); }));
    const auto press = [&](Qt::Key key, Qt::KeyboardModifiers keys) {
        QTest::keyClick(Station.Window.windowHandle(), key, keys);
        QCoreApplication::processEvents();
    };
    press(Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(Station.Form->Zoom(), 1);
    press(Qt::Key_Plus, Qt::ControlModifier);
    press(Qt::Key_Equal, Qt::ControlModifier);
    EXPECT_EQ(Station.Form->Zoom(), 1.5);
    press(Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_EQ(Station.Form->Zoom(), 1.25);
}

TEST_F(ZoomedCard, IsDrawnSharpAndNotScaled)
{
    const QImage before = Station.Form->CardPicture();
    Station.Form->ZoomInPlace(4);
    const QImage& large = Station.Form->CardPicture();
    ASSERT_EQ(large.size(), before.size() * 4);
    // Scaled dots would be squares of four equal ones.
    int edges = 0;
    for (int y = 0; y < large.height(); y += 4) {
        for (int x = 0; x + 3 < large.width(); x += 4)
            edges += large.pixel(x, y) != large.pixel(x + 3, y + 3) ? 1 : 0;
    }
    EXPECT_GT(edges, 100);
}

/// Compared dot by dot, on a screen whose dots are the window's pixels.
using PictureOfZoomedCard = ZoomedCard;

TEST_F(PictureOfZoomedCard, APartIsDrawnAsTheWholeCardShowsIt)
{
    Station.Form->ZoomInPlace(8);
    Station.Form->Reveal(Text());
    Station.Click(Station.At(2500, 4000));
    const QRect seen = Station.Form->visibleRegion().boundingRect();
    const QPoint corner = Station.Form->CardRect().topLeft();
    const QImage shown = Station.Form->grab(seen).toImage().convertToFormat(QImage::Format_RGB32);
    const QImage whole = Station.Form->CardPicture();
    // Within the box of the text, away from its outline.
    const QRect within = QRect(Station.At(420, 320), Station.At(1000, 560));
    ASSERT_TRUE(seen.contains(within));
    EXPECT_EQ(shown.copy(within.translated(-seen.topLeft())),
              whole.copy(within.translated(-corner)));
}

TEST_F(ZoomedCard, ADragMovesByWhatThePointerMovedAtEachZoom)
{
    for (const double zoom : {0.25, 0.67, 1.5, 2.0, 4.0, 8.0}) {
        SCOPED_TRACE(zoom);
        Text().Left = 401;
        Text().Width = 1501;
        Station.Form->ZoomInPlace(zoom);
        Station.Form->Reveal(Text());
        const QPoint from = OnText();
        const QPoint way(zoom < 1 ? 11 : 37, 0);
        Station.Drag(from, from + way, Qt::NoModifier);
        const double twips = way.x() * 15 / zoom;
        EXPECT_NEAR(Text().Left, 401 + twips, 4 * 15 / zoom + 1);
        EXPECT_EQ(Text().Width, 1501);
        EXPECT_EQ(Text().Height, 300);
        EXPECT_EQ(Text().Top, 300);
        EXPECT_EQ(Station.Session.Document.SelectedObject, &Text());
    }
}

TEST_F(ZoomedCard, GripsAreAsLargeAtEachZoomAndMoveOneSide)
{
    for (const double zoom : {0.5, 1.0, 3.0, 8.0}) {
        SCOPED_TRACE(zoom);
        Text().Left = 407;
        Text().Width = 1503;
        Station.Form->ZoomInPlace(zoom);
        Station.Form->Reveal(Text());
        Station.Click(OnText());
        const QPoint corner = Station.At(407, 300);
        QTest::mouseMove(Station.Form, corner);
        Station.Move(corner);
        EXPECT_EQ(Station.Form->cursor().shape(), Qt::SizeFDiagCursor);
        Station.Move(corner + QPoint(3, 3));
        EXPECT_EQ(Station.Form->cursor().shape(), Qt::SizeFDiagCursor);
        Station.Move(corner + QPoint(5, 5));
        EXPECT_EQ(Station.Form->cursor().shape(), Qt::ArrowCursor);
        if (zoom == 1.0)
            continue;
        // The lower right corner, which is off the screen where the card is large.
        Station.Form->ZoomInPlace(zoom);
        const QPoint end = Station.At(407 + 1503, 600);
        Station.Drag(end, end + QPoint(-20, -1));
        EXPECT_EQ(Text().Left, 407);
        EXPECT_EQ(Text().Top, 300);
        EXPECT_NEAR(Text().Width, 1503 - 20 * 15 / zoom, 5 * 15 / zoom + 1);
        Text().Height = 300;
    }
}

TEST_F(ZoomedCard, TheBandSelectsWhatLiesInsideItAtEachZoom)
{
    for (const double zoom : {0.25, 2.0}) {
        SCOPED_TRACE(zoom);
        Station.Form->ZoomInPlace(zoom);
        Station.Drag(Station.At(2900, 200), Station.At(300, 1300));
        EXPECT_TRUE(Station.Selected());
        EXPECT_EQ(Station.Session.Document.AlsoSelected.size(), 1U);
        Station.Click(Station.At(2500, 4000));
    }
}

TEST_F(ZoomedCard, ScrollsByKeysAndBringsTheMovedObjectIntoView)
{
    Station.Form->ZoomInPlace(8);
    const auto look = [&](Qt::Key key, Qt::KeyboardModifiers keys) {
        QTest::keyClick(Station.Form, key, keys);
        QCoreApplication::processEvents();
        return Station.Form->pos();
    };
    const QPoint start = look(Qt::Key_Home, Qt::NoModifier);
    EXPECT_EQ(start, QPoint(0, 0));
    const QPoint below = look(Qt::Key_PageDown, Qt::NoModifier);
    EXPECT_LT(below.y(), -300);
    EXPECT_EQ(look(Qt::Key_PageUp, Qt::NoModifier), start);
    EXPECT_LT(look(Qt::Key_PageDown, Qt::ShiftModifier).x(), -300);
    look(Qt::Key_Home, Qt::NoModifier);
    EXPECT_LT(look(Qt::Key_Right, Qt::NoModifier).x(), 0);
    const QScrollBar& across = *Workspace().horizontalScrollBar();
    EXPECT_GT(across.maximum(), across.minimum());
    // An arrow key moves the object and the view goes along.
    look(Qt::Key_Home, Qt::NoModifier);
    Station.Click(OnText());
    look(Qt::Key_End, Qt::NoModifier);
    EXPECT_LT(Station.Form->pos().y(), -500);
    look(Qt::Key_Right, Qt::NoModifier);
    EXPECT_EQ(Text().Left, 420);
    EXPECT_TRUE(Station.Form->visibleRegion().contains(OnText()));
}

TEST_F(ZoomedCard, AScrolledDragKeepsTheObjectUnderThePointer)
{
    Station.Form->ZoomInPlace(8);
    QTest::keyClick(Station.Form, Qt::Key_Home);
    const QPoint from = OnText();
    Station.Press(from);
    Station.Move(from + QPoint(10, 0));
    Workspace().verticalScrollBar()->setValue(Workspace().verticalScrollBar()->value() + 80);
    // The pointer stays where it is on the screen, which is now 80 pixels further down the card.
    const QPoint to = from + QPoint(10, 80);
    Station.Move(to);
    Station.Release(to);
    EXPECT_NEAR(Text().Top, 300 + 80 * 15 / 8.0, 9);
}

TEST_F(ZoomedCard, StaysWhereItIsWhenARecordLoadsThePageAnew)
{
    Station.Form->ZoomInPlace(4);
    QTest::keyClick(Station.Form, Qt::Key_End);
    const QRect before = Station.Form->geometry();
    ASSERT_TRUE(LoadLayout(Station.Session, QStringLiteral("Badge")));
    QCoreApplication::processEvents();
    EXPECT_EQ(Station.Form->geometry(), before);
    EXPECT_EQ(Station.Form->Zoom(), 4);
}

TEST_F(ZoomedCard, NothingZoomsInTheMiddleOfADrag)
{
    Station.Press(OnText());
    TurnWheel(Station, OnText(), 1, Qt::ControlModifier);
    Station.Choose("cmdZoomFit");
    EXPECT_EQ(Station.Form->Zoom(), 1);
    Station.Release(OnText());
    TurnWheel(Station, OnText(), 1, Qt::ControlModifier);
    EXPECT_EQ(Station.Form->Zoom(), 1.25);
}

TEST_F(ZoomedCard, TheStatusBarShowsTheZoomAndOffersOthers)
{
    auto& button = Station.Get<QToolButton>("cmdZoom");
    EXPECT_EQ(button.text(), QStringLiteral("100 %"));
    EXPECT_EQ(button.accessibleName(), QStringLiteral("Zoom"));
    EXPECT_NE(button.focusPolicy() & Qt::TabFocus, 0);
    QStringList entries;
    for (QAction* entry : button.menu()->actions()) {
        entries += entry->text();
        if (entry->text() == QStringLiteral("400 %"))
            entry->trigger();
    }
    EXPECT_EQ(entries.first(), QStringLiteral("25 %"));
    EXPECT_EQ(entries.last(), QStringLiteral("&Fit"));
    EXPECT_EQ(Station.Form->Zoom(), 4);
    EXPECT_EQ(button.text(), QStringLiteral("400 %"));
    EXPECT_EQ(button.accessibleDescription(), QStringLiteral("400 %"));
}

TEST_F(ZoomedCard, RulersShowTheCardTheSelectionAndThePointer)
{
    auto& across = Station.Get<DesktopRuler>("RulerAcross");
    auto& down = Station.Get<DesktopRuler>("RulerDown");
    EXPECT_TRUE(across.isVisible());
    EXPECT_EQ(across.mapToGlobal(QPoint(static_cast<int>(across.View().Origin), 0)).x(),
              OnScreen(0, 0).x());
    EXPECT_EQ(down.mapToGlobal(QPoint(0, static_cast<int>(down.View().Origin))).y(),
              OnScreen(0, 0).y());
    EXPECT_EQ(across.View().Card, 3060);
    EXPECT_FALSE(across.View().Extent);
    Station.Click(OnText());
    ASSERT_TRUE(across.View().Extent);
    EXPECT_EQ(*across.View().Extent, std::pair(400.0, 1900.0));
    EXPECT_EQ(*down.View().Extent, std::pair(300.0, 600.0));
    EXPECT_EQ(across.accessibleDescription(),
              QStringLiteral("In millimetres; selected from 7.06 to 33.51"));
    EXPECT_EQ(Station.Get<QLabel>("lblPlace").text(),
              QStringLiteral("7.06, 5.29   26.46 \u00d7 5.29 mm"));
    Station.Move(Station.At(1500, 3000));
    EXPECT_EQ(across.View().Pointer, 1500);
    EXPECT_EQ(down.View().Pointer, 3000);
    const QImage before = across.grab().toImage();
    Station.Form->ZoomInPlace(2);
    EXPECT_EQ(across.View().PixelsPerTwip, 2.0 / 15);
    EXPECT_NE(across.grab().toImage(), before);
    Station.Session.Options.Unit = LengthUnit::Inches;
    Station.Click(Station.At(2500, 4000));
    EXPECT_EQ(across.View().Unit, LengthUnit::Inches);
    EXPECT_EQ(Station.Get<QLabel>("lblUnit").text(), QStringLiteral("inch"));
    EXPECT_FALSE(across.View().Extent);
    EXPECT_TRUE(EventsUntil([&] { return Station.Get<QAction>("cmdClose").isEnabled(); }));
    Station.Choose("cmdClose");
    EXPECT_TRUE(EventsUntil([&] { return !across.isVisible(); }));
    EXPECT_FALSE(Station.Get<QToolButton>("cmdZoom").isVisible());
}

TEST_F(ZoomedCard, TheNavigatorCoversNoRuler)
{
    const auto& nav = Station.Get<frmNav>("frmNav");
    for (const char* name : {"RulerAcross", "RulerDown", "lblUnit"})
        EXPECT_FALSE(Station.Get<QWidget>(name).geometry().intersects(nav.geometry())) << name;
    Station.Window.resize(700, 500);
    QCoreApplication::processEvents();
    EXPECT_FALSE(Station.Get<QWidget>("RulerAcross").geometry().intersects(nav.geometry()));
    const int below = nav.y();
    EXPECT_TRUE(EventsUntil([&] { return Station.Get<QAction>("cmdClose").isEnabled(); }));
    Station.Choose("cmdClose");
    EXPECT_TRUE(EventsUntil([&] { return nav.y() == below - DesktopRuler::Breadth; }));
}

TEST(CardWithoutDesignTools, HasNoZoomAndNoRulers)
{
    Designer station;
    const QRect before = station.Form->geometry();
    TurnWheel(station, station.At(600, 375), 1, Qt::ControlModifier);
    station.Form->ZoomTo(4, {});
    station.Form->ZoomToFit();
    QTest::keyClick(station.Form, Qt::Key_PageDown);
    EXPECT_EQ(station.Form->Zoom(), 1);
    EXPECT_EQ(station.Form->geometry(), before);
    for (const char* name : {"RulerAcross", "RulerDown", "lblUnit", "ViewBar", "cmdZoom"})
        EXPECT_EQ(station.Window.findChild<QWidget*>(QLatin1StringView(name)), nullptr) << name;
    EXPECT_EQ(station.Window.findChild<QAction*>(QStringLiteral("cmdZoomIn")), nullptr);
}

} // namespace
} // namespace vantrel::test
