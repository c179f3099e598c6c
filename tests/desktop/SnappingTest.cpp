#include "desktop/Designer.h"
#include "station/layout/DesignSteps.h"
#include <QAction>
#include <QCoreApplication>
#include <QImage>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

StationOptions Tools()
{
    StationOptions options;
    options.DesignTools = true;
    return options;
}

constexpr QRgb GuideRgb = qRgb(0xE0, 0x20, 0x90);

/// The text is at 400, 300, the field at 400, 900 and the number at 400, 1500, each 1500 by 300.
class Snapping : public ::testing::Test
{
protected:
    Snapping()
    {
        // An odd place that no pixel of an unscaled card has.
        Field().Left = 711;
        Field().Width = 1303;
        Station.Session.Document.Refresh();
        QCoreApplication::processEvents();
    }
    CardObject& Text() { return Station.Object(Family::lbl_TEXT); }
    CardObject& Field() { return Station.Object(Family::lbl_DATA); }
    /// Presses the text and moves the pointer by so many pixels.
    QPoint Begin(QPoint way, Qt::KeyboardModifiers keys = Qt::NoModifier)
    {
        const QPoint from = Station.At(600, 375);
        Station.Press(from);
        Station.Move(from + way / 2);
        Station.Move(from + way, keys);
        return from + way;
    }
    /// How many dots of the window have the colour of a guide.
    int GuideDots() const
    {
        const QImage shown = Station.Form->grab().toImage().convertToFormat(QImage::Format_RGB32);
        int dots = 0;
        for (int y = 0; y < shown.height(); ++y) {
            for (int x = 0; x < shown.width(); ++x)
                dots += shown.pixel(x, y) == GuideRgb ? 1 : 0;
        }
        return dots;
    }

    Designer Station{Tools()};
};

TEST_F(Snapping, ADraggedSideComesToLieExactlyOnThatOfAnother)
{
    // 400 and 20 pixels are 700, which is near to 711.
    const QPoint to = Begin({20, 100});
    EXPECT_GT(GuideDots(), 50);
    Station.Release(to);
    EXPECT_EQ(Text().Left, 711);
    EXPECT_EQ(Text().Width, 1500);
    EXPECT_EQ(GuideDots(), 0);
    Station.Choose("cmdUndo");
    EXPECT_EQ(Text().Left, 400);
}

TEST_F(Snapping, AMiddleComesToLieOnTheMiddleOfTheCard)
{
    // The middle of 1500 is 750: at 780 it lies on 1530. The top comes near no other.
    Station.Release(Begin({24, 200}));
    EXPECT_EQ(Text().Left, 780);
}

TEST_F(Snapping, TheLastSideSnapsToTheEdgeOfTheCard)
{
    Station.Release(Begin({78, 200}));
    EXPECT_EQ(Text().Left + Text().Width, 3060);
}

TEST_F(Snapping, AltLetsTheObjectGo)
{
    const QPoint to = Begin({20, 100}, Qt::AltModifier);
    EXPECT_EQ(GuideDots(), 0);
    Station.Release(to);
    // As a drag does without lines, in whole pixels.
    EXPECT_EQ(Text().Left, 705);
}

TEST_F(Snapping, NothingSnapsFromAfar)
{
    const QPoint to = Begin({-6, 105});
    EXPECT_EQ(GuideDots(), 0);
    Station.Release(to);
    EXPECT_EQ(Text().Left, 315);
    EXPECT_EQ(Text().Top, 1875);
}

TEST_F(Snapping, TheReachIsInPixelsAtEachZoom)
{
    // At 800 % four pixels are 7.5 twips.
    Station.Form->ZoomInPlace(8);
    Station.Form->Reveal(Text());
    Station.Release(Begin({20 * 8, 0}));
    EXPECT_EQ(Text().Left, 700);
    Text().Left = 400;
    Station.Session.Document.Refresh();
    Station.Release(Begin({20 * 8 + 3, 0}));
    EXPECT_EQ(Text().Left, 711);
}

TEST_F(Snapping, OnlyTheSideThatAGripMovesSnaps)
{
    Station.Click(Station.At(600, 375));
    const QPoint grip = Station.Grip(3);
    // The right side at 1900 to near the end of the field at 2014.
    Station.Drag(grip, grip + QPoint(7, 0));
    EXPECT_EQ(Text().Left, 400);
    EXPECT_EQ(Text().Left + Text().Width, 2014);
    EXPECT_EQ(Text().Top, 300);
    EXPECT_EQ(Text().Height, 300);
}

TEST_F(Snapping, WhatIsDraggedAlongIsNoLine)
{
    Field().Left = 430;
    Station.Click(Station.At(600, 375));
    Station.Click(Station.At(600, 975), Qt::ControlModifier);
    // The field would be two pixels away from the text that moves with it.
    Station.Release(Begin({10, 0}));
    EXPECT_EQ(Text().Left, 555);
    EXPECT_EQ(Field().Left, 585);
}

TEST_F(Snapping, APressAloneMovesNothingOntoALine)
{
    Field().Left = 402;
    Station.Click(Station.At(600, 375));
    EXPECT_EQ(Text().Left, 400);
    EXPECT_FALSE(IsPageUnsaved(Station.Session) && Text().Left != 400);
}

TEST(SnappingOff, ADragGoesInWholePixelsWithoutDesignTools)
{
    Designer station;
    station.Object(Family::lbl_DATA).Left = 711;
    station.Drag(station.At(600, 375), station.At(600, 375) + QPoint(20, 100));
    EXPECT_EQ(station.Object(Family::lbl_TEXT).Left, 705);
}

} // namespace
} // namespace vantrel::test
