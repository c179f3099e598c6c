#include "card/ObjectArrange.h"
#include "desktop/Designer.h"
#include "desktop/designer/ObjectsModel.h"
#include "desktop/designer/frmObjects.h"
#include "station/layout/DesignSteps.h"
#include "station/layout/LoadLayout.h"
#include "support/Events.h"
#include "support/Layouts.h"
#include <QHeaderView>
#include <QLabel>
#include <QTableView>
#include <QTest>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

StationOptions Tools()
{
    StationOptions options;
    options.DesignTools = true;
    options.Unit = LengthUnit::Twips;
    return options;
}

/// The text is at the bottom of the stack, the field above it, the number on top.
class ObjectsWindow : public ::testing::Test
{
protected:
    ObjectsWindow()
    {
        Station.Session.History.Clear();
        Station.Session.History.PageWasLoaded();
        NoteDesign(Station.Session);
        Station.Choose("cmdObjects");
        Window = &Station.Get<frmObjects>("frmObjects");
        List = &Station.Get<QTableView>("lstObjects");
        Window->activateWindow();
        EXPECT_TRUE(EventsUntil([&] { return Window->isActiveWindow(); }));
        List->setFocus();
    }
    void Key(Qt::Key key, Qt::KeyboardModifiers keys = Qt::NoModifier)
    {
        QTest::keyClick(Window->windowHandle(), key, keys);
        QCoreApplication::processEvents();
    }
    QString Cell(int row, ObjectColumn column) const
    {
        return List->model()->index(row, static_cast<int>(column)).data().toString();
    }
    QStringList Kinds() const
    {
        QStringList kinds;
        for (int row = 0; row < List->model()->rowCount(); ++row)
            kinds.append(Cell(row, ObjectColumn::Kind));
        return kinds;
    }
    std::vector<int> Chosen() const
    {
        std::vector<int> rows;
        for (const QModelIndex& row : List->selectionModel()->selectedRows())
            rows.push_back(row.row());
        std::ranges::sort(rows);
        return rows;
    }
    void ExpectSelected(const std::vector<CardObject*>& objects)
    {
        std::vector<CardObject*> selected = SelectedObjects(Station.Session.Document);
        EXPECT_EQ(selected, objects);
    }
    QStringList Asked() const { return Station.Operator.Questions + Station.Operator.AppMessages; }
    CardObject* Text() { return &Station.Object(Family::lbl_TEXT); }
    CardObject* Field() { return &Station.Object(Family::lbl_DATA); }
    CardObject* Number() { return &Station.Object(Family::lbl_AUTO); }

    Designer Station{Tools()};
    frmObjects* Window = nullptr;
    QTableView* List = nullptr;
};

TEST_F(ObjectsWindow, ListsEachObjectTheTopmostFirst)
{
    EXPECT_EQ(Kinds(), QStringList({QStringLiteral("AutoNumber Field"),
                                    QStringLiteral("Data Field"), QStringLiteral("Static Text")}));
    EXPECT_EQ(Cell(2, ObjectColumn::Text), QStringLiteral("Visitor"));
    EXPECT_EQ(Cell(1, ObjectColumn::Field), QStringLiteral("1"));
    EXPECT_EQ(Cell(2, ObjectColumn::Field), QString());
    EXPECT_EQ(Cell(1, ObjectColumn::Left), QStringLiteral("400"));
    EXPECT_EQ(Cell(1, ObjectColumn::Top), QStringLiteral("900"));
    EXPECT_EQ(Cell(1, ObjectColumn::Width), QStringLiteral("1500"));
    EXPECT_EQ(Cell(1, ObjectColumn::Height), QStringLiteral("300"));
    EXPECT_EQ(Station.Get<QLabel>("lblTold").text(),
              QStringLiteral("3 objects on page 1, the topmost first"));
}

TEST_F(ObjectsWindow, IsWalkedByTheKeyboardAndSelectsOnTheCard)
{
    Key(Qt::Key_Down);
    ExpectSelected({Number()});
    Key(Qt::Key_Down);
    ExpectSelected({Field()});
    EXPECT_TRUE(Station.Session.Document.HandlesShown);
    Key(Qt::Key_Down, Qt::ShiftModifier);
    ExpectSelected({Text(), Field()});
    EXPECT_EQ(Station.Session.Document.SelectedObject, Text());
    EXPECT_EQ(Station.Session.Document.SelectedFamily, QStringLiteral("lbl_TEXT"));
    Key(Qt::Key_Home);
    ExpectSelected({Number()});
}

TEST_F(ObjectsWindow, IsPressedWithTheMouse)
{
    const auto press = [&](int row, Qt::KeyboardModifiers keys) {
        QTest::mouseClick(List->viewport(), Qt::LeftButton, keys,
                          List->visualRect(List->model()->index(row, 1)).center());
        QCoreApplication::processEvents();
    };
    press(2, {});
    ExpectSelected({Text()});
    press(0, Qt::ControlModifier);
    ExpectSelected({Text(), Number()});
    press(2, Qt::ControlModifier);
    ExpectSelected({Number()});
}

TEST_F(ObjectsWindow, FollowsTheSelectionOnTheCard)
{
    Station.Click(Station.At(600, 375));
    EXPECT_TRUE(EventsUntil([&] { return Chosen() == std::vector<int>{2}; }));
    Station.Click(Station.At(600, 975), Qt::ControlModifier);
    EXPECT_TRUE(EventsUntil([&] { return Chosen() == std::vector<int>({1, 2}); }));
    ExpectSelected({Text(), Field()});
    Station.Click(Station.At(2500, 4000));
    EXPECT_TRUE(EventsUntil([&] { return Chosen().empty(); }));
    EXPECT_FALSE(Station.Selected());
}

TEST_F(ObjectsWindow, DeleteAsksAndDeletesAsTheMenuDoes)
{
    Key(Qt::Key_Down);
    Key(Qt::Key_Delete);
    EXPECT_EQ(Asked().size(), 1);
    EXPECT_EQ(Kinds().size(), 3);
    Key(Qt::Key_Down, Qt::ShiftModifier);
    Station.Operator.Answers = {true};
    Station.Operator.BoxAnswers = {BoxAnswer::Yes};
    Key(Qt::Key_Delete);
    ASSERT_EQ(Asked().size(), 2);
    EXPECT_TRUE(Asked().last().contains(QStringLiteral("2")));
    EXPECT_TRUE(EventsUntil([&] { return Kinds().size() == 1; }));
    EXPECT_EQ(Station.Get<QLabel>("lblTold").text(), QStringLiteral("1 object on page 1"));
    Station.Choose("cmdUndo");
    EXPECT_TRUE(EventsUntil([&] { return Kinds().size() == 3; }));
}

TEST_F(ObjectsWindow, DeleteWithoutASelectionAsksNothing)
{
    Key(Qt::Key_Delete);
    EXPECT_TRUE(Asked().isEmpty());
}

TEST_F(ObjectsWindow, KeysOfTheMenuChangeTheStack)
{
    Key(Qt::Key_End);
    ExpectSelected({Text()});
    Key(Qt::Key_Up, Qt::ControlModifier);
    EXPECT_TRUE(EventsUntil([&] { return Kinds().value(1) == QStringLiteral("Static Text"); }));
    EXPECT_EQ(Chosen(), std::vector<int>{1});
    Key(Qt::Key_Up, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(EventsUntil([&] { return Kinds().value(0) == QStringLiteral("Static Text"); }));
    EXPECT_EQ(Station.Session.Document.Objects().back().get(), Text());
    Key(Qt::Key_Backspace, Qt::AltModifier);
    Key(Qt::Key_Backspace, Qt::AltModifier);
    EXPECT_TRUE(EventsUntil([&] { return Kinds().value(2) == QStringLiteral("Static Text"); }));
    EXPECT_EQ(Chosen(), std::vector<int>{2});
}

TEST_F(ObjectsWindow, FollowsPagesRecordsAndLayouts)
{
    Station.Choose("cmdNewText");
    EXPECT_TRUE(EventsUntil([&] { return Kinds().size() == 4; }));
    EXPECT_EQ(Chosen(), std::vector<int>{0});
    // A record that loads the page anew.
    ASSERT_TRUE(LoadLayout(Station.Session, QStringLiteral("Badge")));
    EXPECT_TRUE(EventsUntil([&] { return Kinds().size() == 3; }));
    Field()->SetCaption(QStringLiteral("Anna"));
    Station.Session.Document.Refresh();
    EXPECT_TRUE(EventsUntil([&] { return Cell(1, ObjectColumn::Text) == QStringLiteral("Anna"); }));
    CloseLayout(Station.Session);
    EXPECT_TRUE(EventsUntil([&] { return Kinds().isEmpty(); }));
    EXPECT_EQ(Station.Get<QLabel>("lblTold").text(), QStringLiteral("No layout is open."));
}

TEST_F(ObjectsWindow, ShowsLengthsInTheUnitOfTheStation)
{
    Station.Session.Options.Unit = LengthUnit::Millimetres;
    Station.Session.Face.NotifyDesign();
    EXPECT_TRUE(EventsUntil([&] { return Cell(1, ObjectColumn::Left) == QStringLiteral("7.06"); }));
    EXPECT_EQ(
        List->model()->headerData(static_cast<int>(ObjectColumn::Left), Qt::Horizontal).toString(),
        QStringLiteral("Left mm"));
    EXPECT_EQ(List->model()
                  ->index(1, static_cast<int>(ObjectColumn::Left))
                  .data(Qt::AccessibleTextRole)
                  .toString(),
              QStringLiteral("Left 7.06 mm"));
}

TEST_F(ObjectsWindow, ADragKeepsItsObjectWhateverIsChosen)
{
    Station.Press(Station.At(600, 375));
    Station.Move(Station.At(700, 475));
    List->selectRow(0);
    EXPECT_EQ(Station.Session.Document.SelectedObject, Text());
    Station.Release(Station.At(700, 475));
    EXPECT_TRUE(EventsUntil([&] { return Chosen() == std::vector<int>{2}; }));
}

TEST_F(ObjectsWindow, ShowsTheBeginningOfAVeryLongCaption)
{
    Text()->SetCaption(QString(5'000'000, u'x'));
    Station.Session.Document.Refresh();
    EXPECT_TRUE(EventsUntil([&] { return Cell(2, ObjectColumn::Text).startsWith(u'x'); }));
    EXPECT_LT(Cell(2, ObjectColumn::Text).size(), 10'000);
}

TEST(ObjectsWindowOff, HasNoEntryWithoutDesignTools)
{
    Designer station;
    EXPECT_EQ(station.Window.findChild<QAction*>(QStringLiteral("cmdObjects")), nullptr);
    EXPECT_EQ(station.Window.findChild<QAction*>(QStringLiteral("cmdShowValues")), nullptr);
}

} // namespace
} // namespace vantrel::test
