#include "desktop/Designer.h"
#include "desktop/designer/DesktopTextInPlace.h"
#include "station/layout/DesignSteps.h"
#include "station/layout/LoadLayout.h"
#include "support/Events.h"
#include "support/Layouts.h"
#include "support/PageText.h"
#include <QAccessible>
#include <QAction>
#include <QTest>
#include <algorithm>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

StationOptions Tools()
{
    StationOptions options;
    options.DesignTools = true;
    return options;
}

/// The text "Visitor" is at 400, 300, the field at 400, 900.
class TextInPlace : public ::testing::Test
{
protected:
    TextInPlace()
    {
        // The page was designed without a window.
        Station.Session.History.Clear();
        Station.Session.History.PageWasLoaded();
        NoteDesign(Station.Session);
    }
    void DoublePress(QPoint point)
    {
        Station.Click(point);
        QMouseEvent second(QEvent::MouseButtonDblClick, point, Station.Form->mapToGlobal(point),
                           Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(Station.Form, &second);
        Station.Release(point);
        QCoreApplication::processEvents();
    }
    /// The field in which the text is edited; null where there is none.
    DesktopTextInPlace* Field() const
    {
        const auto fields = Station.Form->findChildren<DesktopTextInPlace*>();
        const auto shown = std::ranges::find_if(
            fields, [](const DesktopTextInPlace* field) { return !field->isHidden(); });
        return shown == fields.end() ? nullptr : *shown;
    }
    void Type(const QString& text)
    {
        ASSERT_NE(Field(), nullptr);
        QTest::keyClicks(Field(), text);
    }
    void Key(Qt::Key key, Qt::KeyboardModifiers keys = Qt::NoModifier)
    {
        ASSERT_NE(Field(), nullptr);
        QTest::keyClick(Field(), key, keys);
        QCoreApplication::processEvents();
    }
    QString Caption() { return Station.Object(Family::lbl_TEXT).Caption(); }

    Designer Station{Tools()};
    const QPoint OnText = Station.At(600, 375);
};

TEST_F(TextInPlace, ADoublePressEditsTheTextWhereItStands)
{
    DoublePress(OnText);
    ASSERT_NE(Field(), nullptr);
    EXPECT_EQ(Field()->toPlainText(), QStringLiteral("Visitor"));
    EXPECT_TRUE(Field()->geometry().contains(OnText));
    EXPECT_LE((Field()->pos() - Station.At(400, 300)).manhattanLength(), 2);
    Type(QStringLiteral("Guest"));
    EXPECT_EQ(Caption(), QStringLiteral("Visitor"));
    Key(Qt::Key_Return);
    EXPECT_EQ(Field(), nullptr);
    EXPECT_EQ(Caption(), QStringLiteral("Guest"));
    Station.Choose("cmdUndo");
    EXPECT_EQ(Caption(), QStringLiteral("Visitor"));
    EXPECT_FALSE(Station.Get<QAction>("cmdUndo").isEnabled());
    EXPECT_TRUE(Station.Operator.InputBoxes.isEmpty());
}

TEST_F(TextInPlace, EnterAndTheMenuEditTheSelectedText)
{
    Station.Click(OnText);
    QTest::keyClick(Station.Form, Qt::Key_Return);
    ASSERT_NE(Field(), nullptr);
    Type(QStringLiteral("One"));
    Key(Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(Caption(), QStringLiteral("One"));
    Station.Choose("cmdTextInPlace");
    Type(QStringLiteral("Two"));
    Key(Qt::Key_Return, Qt::ShiftModifier);
    Type(QStringLiteral("lines"));
    Key(Qt::Key_Return);
    EXPECT_EQ(Caption(), QStringLiteral("Two\nlines"));
}

TEST_F(TextInPlace, EscapeLeavesTheTextAsItWas)
{
    const QString before = PageText(Station.Session);
    DoublePress(OnText);
    Type(QStringLiteral("Guest"));
    Key(Qt::Key_Escape);
    EXPECT_EQ(Field(), nullptr);
    EXPECT_EQ(PageText(Station.Session), before);
    // An empty text changes nothing, as in the dialog.
    DoublePress(OnText);
    Key(Qt::Key_Delete);
    Key(Qt::Key_Return);
    EXPECT_EQ(PageText(Station.Session), before);
    EXPECT_FALSE(Station.Get<QAction>("cmdUndo").isEnabled());
}

TEST_F(TextInPlace, APressElsewhereAndACommandTakeTheText)
{
    DoublePress(OnText);
    Type(QStringLiteral("Guest"));
    Station.Click(Station.At(2500, 4000));
    EXPECT_EQ(Field(), nullptr);
    EXPECT_EQ(Caption(), QStringLiteral("Guest"));
    DoublePress(OnText);
    Type(QStringLiteral("Staff"));
    Station.Window.activateWindow();
    ASSERT_TRUE(EventsUntil([&] { return Field() != nullptr && Field()->hasFocus(); }));
    QTest::keyClick(Station.Window.windowHandle(), Qt::Key_S, Qt::ControlModifier);
    QCoreApplication::processEvents();
    ASSERT_TRUE(LoadLayout(Station.Session, QStringLiteral("Badge")));
    EXPECT_EQ(Caption(), QStringLiteral("Staff"));
}

TEST_F(TextInPlace, ARecordThatArrivesLeavesWhatIsTyped)
{
    DoublePress(OnText);
    Type(QStringLiteral("Guest"));
    ASSERT_TRUE(LoadLayout(Station.Session, QStringLiteral("Badge")));
    QCoreApplication::processEvents();
    ASSERT_NE(Field(), nullptr);
    EXPECT_EQ(Field()->toPlainText(), QStringLiteral("Guest"));
    Key(Qt::Key_Return);
    EXPECT_EQ(Caption(), QStringLiteral("Guest"));
}

TEST_F(TextInPlace, WaitsWhileAnotherPageIsOnTheForm)
{
    DoublePress(OnText);
    Type(QStringLiteral("Guest"));
    Station.Session.CurrentParams.PageIndex = 2;
    Station.Session.Document.Refresh();
    QCoreApplication::processEvents();
    EXPECT_EQ(Field(), nullptr);
    Station.Session.CurrentParams.PageIndex = 1;
    Station.Session.Document.Refresh();
    QCoreApplication::processEvents();
    ASSERT_NE(Field(), nullptr);
    Key(Qt::Key_Return);
    EXPECT_EQ(Caption(), QStringLiteral("Guest"));
}

TEST_F(TextInPlace, GoesWithTheCardWhenItIsZoomedAndGrowsWithTheText)
{
    DoublePress(OnText);
    const int size = Field()->fontInfo().pixelSize();
    Station.Form->ZoomInPlace(4);
    EXPECT_NEAR(Field()->fontInfo().pixelSize(), size * 4, 4);
    EXPECT_LE((Field()->pos() - Station.At(400, 300)).manhattanLength(), 2);
    const int width = Field()->width();
    Type(QString(60, u'W'));
    EXPECT_GT(Field()->width(), width);
}

TEST_F(TextInPlace, LightTextsAreEditedOnDarkGround)
{
    Station.Object(Family::lbl_TEXT).ForeColor = ColorWhite;
    DoublePress(OnText);
    EXPECT_LT(Field()->palette().color(QPalette::Base).lightness(), 128);
    Key(Qt::Key_Escape);
    Station.Object(Family::lbl_TEXT).ForeColor = ColorBlack;
    DoublePress(OnText);
    EXPECT_EQ(Field()->palette().color(QPalette::Base), QColor(Qt::white));
}

TEST_F(TextInPlace, FieldsAndNumbersShowValuesAndAreNotEdited)
{
    DoublePress(Station.At(600, 975));
    EXPECT_EQ(Field(), nullptr);
    EXPECT_TRUE(Station.Selected());
    QTest::keyClick(Station.Form, Qt::Key_Return);
    EXPECT_EQ(Field(), nullptr);
}

TEST_F(TextInPlace, IsFoundByAScreenReader)
{
    DoublePress(OnText);
    QAccessibleInterface& card = *QAccessible::queryAccessibleInterface(Station.Form);
    QAccessibleInterface* const field = QAccessible::queryAccessibleInterface(Field());
    ASSERT_EQ(card.childCount(), 4);
    EXPECT_EQ(card.child(3), field);
    EXPECT_EQ(card.indexOfChild(field), 3);
    EXPECT_EQ(field->text(QAccessible::Name), QStringLiteral("Text"));
    const QPoint middle = field->rect().center();
    EXPECT_EQ(card.childAt(middle.x(), middle.y()), field);
    Key(Qt::Key_Escape);
    EXPECT_EQ(card.childCount(), 3);
}

TEST(TextInPlaceOff, ADoublePressIsAPressLikeAnyOther)
{
    Designer station;
    const QPoint point = station.At(600, 375);
    station.Click(point);
    QMouseEvent second(QEvent::MouseButtonDblClick, point, station.Form->mapToGlobal(point),
                       Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(station.Form, &second);
    EXPECT_EQ(station.Session.Document.Drag.Mode, DragMode::Moving);
    station.Release(point);
    QTest::keyClick(station.Form, Qt::Key_Return);
    EXPECT_EQ(station.Form->findChild<DesktopTextInPlace*>(), nullptr);
}

} // namespace
} // namespace vantrel::test
