#include "desktop/controls/DesktopUpDown.h"
#include <QApplication>
#include <QKeyEvent>
#include <QToolButton>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

void PressKey(DesktopUpDown& arrows, Qt::Key key)
{
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    QApplication::sendEvent(&arrows, &press);
}

TEST(UpDown, CountsByOneAndSignalsIt)
{
    DesktopUpDown arrows(QStringLiteral("Copies"));
    QList<int> told;
    QObject::connect(&arrows, &DesktopUpDown::ValueChanged, [&](int value) { told += value; });
    arrows.UpButton().click();
    arrows.UpButton().click();
    arrows.DownButton().click();
    EXPECT_EQ(told, (QList<int>{1, 2, 1}));
    EXPECT_EQ(arrows.Value(), 1);
}

TEST(UpDown, StaysInItsRangeAndStillSignalsThePress)
{
    DesktopUpDown arrows(QStringLiteral("Copies"));
    arrows.SetRange(1, 2);
    EXPECT_EQ(arrows.Value(), 1);
    int ups = 0;
    int downs = 0;
    QObject::connect(&arrows, &DesktopUpDown::Up, [&] { ++ups; });
    QObject::connect(&arrows, &DesktopUpDown::Down, [&] { ++downs; });
    for (int press = 0; press < 3; ++press)
        arrows.UpButton().click();
    EXPECT_EQ(arrows.Value(), 2);
    arrows.SetValue(-7);
    EXPECT_EQ(arrows.Value(), 1);
    arrows.DownButton().click();
    EXPECT_EQ(arrows.Value(), 1);
    EXPECT_EQ(ups, 3);
    EXPECT_EQ(downs, 1);
}

TEST(UpDown, TheArrowKeysCountToo)
{
    DesktopUpDown arrows(QStringLiteral("Copies"));
    PressKey(arrows, Qt::Key_Up);
    PressKey(arrows, Qt::Key_Up);
    PressKey(arrows, Qt::Key_Down);
    PressKey(arrows, Qt::Key_Left);
    EXPECT_EQ(arrows.Value(), 1);
}

TEST(UpDown, ItsArrowsAreNamedAfterIt)
{
    const DesktopUpDown arrows(QStringLiteral("Copies"));
    EXPECT_EQ(arrows.UpButton().accessibleName(), QStringLiteral("Copies up"));
    EXPECT_EQ(arrows.DownButton().accessibleName(), QStringLiteral("Copies down"));
}

} // namespace
} // namespace vantrel::test
