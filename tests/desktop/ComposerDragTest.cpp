#include "desktop/ComposerHand.h"
#include "desktop/composers/frmEncoding.h"
#include "desktop/composers/frmSerialize.h"
#include "desktop/controls/DesktopControls.h"
#include "support/Events.h"
#include "support/Layouts.h"
#include <QApplication>
#include <QDrag>
#include <QPointer>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

// Drags with the mouse, including the event loop that runs while the button is held.

namespace vantrel::test {
namespace {

/// A platform without a display on which drags work as on a screen.
const bool Drags = qputenv("VANTREL_TEST_PLATFORM", "minimal");

class ComposerDrag : public ::testing::Test
{
protected:
    ComposerDrag()
    {
        Station.WithLayout();
        SetRecord(Station.Session, {QStringLiteral("4000")});
        Station.Load();
        From = &OpenDialog<frmSerialize>(Station.Session, &Station.Window);
        From->move(0, 0);
        Onto = &OpenDialog<frmEncoding>(Station.Session, &Station.Window);
        Onto->move(0, 300);
        EXPECT_TRUE(EventsUntil([&] { return From->isVisible() && Onto->isVisible(); }));
    }

    QTreeWidget& Tree() { return DesktopStation::Named<QTreeWidget>(*From, "tvwData"); }
    QDrag* Drag() { return From->findChild<QDrag*>(); }

    static void MoveOver(const QWidget& window, QPoint at)
    {
        QTest::mouseMove(window.windowHandle(), at);
    }
    /// Drags the first node with the mouse and runs a routine during the drag.
    template <typename Use>
    void WhileDragging(Use use)
    {
        const QPoint at = Tree().viewport()->mapTo(
            From.data(), Tree().visualItemRect(Tree().topLevelItem(0)).center());
        QTest::mousePress(From->windowHandle(), Qt::LeftButton, {}, at);
        bool used = false;
        QTimer watch;
        QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
            if (Drag() == nullptr)
                return;
            watch.stop();
            used = true;
            use();
            QTest::mouseRelease(Station.Window.windowHandle(), Qt::LeftButton);
        });
        watch.start(0);
        // Some releases of Qt begin the drag at the first of these moves, others at the second. The
        // handling of that move returns when the drag has ended.
        const QPoint step(2 * QApplication::startDragDistance(), 0);
        for (int move = 1; move <= 2 && !used; ++move)
            QTest::mouseMove(From->windowHandle(), at + move * step);
        EXPECT_TRUE(used);
    }
    /// Carries the dragged node over the first track of the other composer.
    void CarryOntoTrack()
    {
        auto& row = DesktopStation::Named<DesktopElementRow>(*Onto, "Track1");
        for (int step = 0; step < 2; ++step)
            MoveOver(*Onto, row.mapTo(Onto.data(), row.rect().center() + QPoint(step, 0)));
        ASSERT_NE(Drag()->target(), nullptr);
    }
    static void Settle()
    {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    DesktopStation Station;
    QPointer<frmSerialize> From;
    QPointer<frmEncoding> Onto;
};

TEST_F(ComposerDrag, TheDragLeavesATrackWhoseComposerCloses)
{
    WhileDragging([&] {
        CarryOntoTrack();
        Onto->close();
        EXPECT_EQ(Drag()->target(), nullptr);
        Settle();
        MoveOver(*From, QPoint(40, 40));
    });
    EXPECT_TRUE(EventsUntil([&] { return Onto.isNull(); }));
    EXPECT_FALSE(From.isNull());
}

TEST_F(ComposerDrag, AComposerThatClosesLivesUntilItsDragHasEnded)
{
    WhileDragging([&] {
        From->close();
        EXPECT_FALSE(From->isVisible());
        Settle();
        EXPECT_FALSE(From.isNull());
        CarryOntoTrack();
    });
    EXPECT_TRUE(EventsUntil([&] { return From.isNull(); }));
}

TEST_F(ComposerDrag, AComposerReopenedDuringItsOwnDragStaysOpen)
{
    WhileDragging([&] {
        From->close();
        EXPECT_EQ(&OpenDialog<frmSerialize>(Station.Session, &Station.Window), From.data());
    });
    Settle();
    ASSERT_FALSE(From.isNull());
    EXPECT_TRUE(From->isVisible());
    From->close();
    EXPECT_TRUE(EventsUntil([&] { return From.isNull(); }));
}

} // namespace
} // namespace vantrel::test
