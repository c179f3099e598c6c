#include "desktop/DesktopStation.h"
#include "desktop/menu/DesktopMenuRow.h"
#include "support/Events.h"
#include <QMenu>
#include <QTest>
#include <gtest/gtest.h>
#include <set>

namespace vantrel::test {
namespace {

/// A loaded station whose window takes the keys.
class Shortcuts : public ::testing::Test
{
protected:
    void Load()
    {
        Station.Load();
        Station.Window.activateWindow();
        ASSERT_TRUE(EventsUntil([&] { return Station.Window.isActiveWindow(); }));
    }
    void Press(Qt::Key key, Qt::KeyboardModifiers with = Qt::NoModifier)
    {
        QTest::keyClick(Station.Window.windowHandle(), key, with);
        QCoreApplication::processEvents();
    }
    int Highest(Family family) const { return Station.Session.Document.HighestIndex(family); }

    DesktopStation Station;
};

TEST_F(Shortcuts, NoTwoEntriesHaveTheSame)
{
    std::set<std::string> seen;
    for (const MenuRow& row : MenuRows()) {
        if (*row.Shortcut != '\0') {
            EXPECT_TRUE(seen.insert(row.Shortcut).second) << row.Shortcut;
        }
    }
    // Those of every station, F9 of the history, and twelve of the design tools.
    EXPECT_EQ(seen.size(), 31U);
}

TEST_F(Shortcuts, InsertOntoTheOpenCard)
{
    Station.WithLayout();
    Load();
    Press(Qt::Key_F1);
    EXPECT_EQ(Highest(Family::lbl_DATA), 2);
    Press(Qt::Key_F2);
    EXPECT_EQ(Highest(Family::lbl_TEXT), 2);
    Press(Qt::Key_F3);
    EXPECT_EQ(Highest(Family::img_LXV), 1);
    Press(Qt::Key_F4);
    EXPECT_EQ(Highest(Family::img_CAM), 1);
}

TEST_F(Shortcuts, DoNothingWhereTheirMenuCannotBeOpened)
{
    Load();
    Press(Qt::Key_F1);
    EXPECT_EQ(Highest(Family::lbl_DATA), 0);
    Station.WithLayout();
    const CardObject& field = *Station.Session.Document.Find(Family::lbl_DATA, 1);
    const float width = field.Width;
    Press(Qt::Key_F2, Qt::ControlModifier);
    EXPECT_EQ(field.Width, width);
}

TEST_F(Shortcuts, SizeTheSelectedObject)
{
    Station.WithLayout();
    Load();
    CardDocument& document = Station.Session.Document;
    document.SelectedObject = document.Find(Family::lbl_DATA, 1);
    document.SelectedIndex = 1;
    document.SelectedFamily = QStringLiteral("lbl_DATA");
    Station.Session.Face.SetPropertiesEnabled(true);
    const float width = document.SelectedObject->Width;
    Press(Qt::Key_F2, Qt::ControlModifier);
    EXPECT_GT(document.SelectedObject->Width, width);
    Press(Qt::Key_F1, Qt::ControlModifier);
    Press(Qt::Key_F1, Qt::ControlModifier);
    EXPECT_LT(document.SelectedObject->Width, width);
}

TEST_F(Shortcuts, LeaveOnlyWhereTheOperatorConfirms)
{
    Load();
    Press(Qt::Key_Delete, Qt::ShiftModifier);
    EXPECT_EQ(Station.Operator.AppMessages.size(), 1);
    EXPECT_TRUE(Station.Window.isVisible());
}

} // namespace
} // namespace vantrel::test
