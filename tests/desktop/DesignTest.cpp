#include "app/DesktopUpDown.h"
#include "app/ScreenUnits.h"
#include "desktop/DesktopStation.h"
#include "layout/LoadLayout.h"
#include "layout/frmDocument.h"
#include "layout/frmNav.h"
#include "layout/frmSize.h"
#include "support/Events.h"
#include "support/Layouts.h"
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QPointer>
#include <QTimer>
#include <QToolButton>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

/// A station with the designer on the screen: a text, a field and a number on one page.
class Designer : public DesktopStation
{
public:
    Designer()
    {
        WithLayout();
        AddNumber(Session, 7, {1500, 400, 300, 1500});
        SavePage(Session);
        EXPECT_TRUE(LoadLayout(Session, QStringLiteral("Badge")));
        Load();
        Form = &Get<frmDocument>("frmDocument");
        EXPECT_TRUE(EventsUntil([&] { return Form->isVisible(); }));
    }

    /// The point of the window at that place on the card, in twips.
    QPoint At(int left, int top) const
    {
        return Form->CardRect().topLeft() + QPoint(ScreenPixels(left), ScreenPixels(top));
    }
    void Send(QEvent::Type type, QPoint point, Qt::MouseButton button = Qt::LeftButton,
              Qt::KeyboardModifiers keys = Qt::NoModifier)
    {
        if (type == QEvent::MouseButtonPress)
            m_held = button;
        else if (type == QEvent::MouseButtonRelease)
            m_held = Qt::NoButton;
        const Qt::MouseButton of = type == QEvent::MouseMove ? Qt::NoButton : button;
        QMouseEvent event(type, point, Form->mapToGlobal(point), of, m_held, keys);
        QApplication::sendEvent(Form, &event);
    }
    void Press(QPoint point, Qt::MouseButton button = Qt::LeftButton,
               Qt::KeyboardModifiers keys = Qt::NoModifier)
    {
        Send(QEvent::MouseButtonPress, point, button, keys);
    }
    void Move(QPoint point) { Send(QEvent::MouseMove, point); }
    void Release(QPoint point, Qt::MouseButton button = Qt::LeftButton)
    {
        Send(QEvent::MouseButtonRelease, point, button);
    }
    void Drag(QPoint from, QPoint to)
    {
        Press(from);
        Move((from + to) / 2);
        Move(to);
        Release(to);
    }
    void Click(QPoint point)
    {
        Press(point);
        Release(point);
    }
    CardObject& Object(Family family) { return *Session.Document.Find(family, 1); }
    QPoint Grip(int index)
    {
        const CardObject& grip = *Session.Document.Find(Family::picHandle, index);
        return At(static_cast<int>(grip.Left) + 37, static_cast<int>(grip.Top) + 37);
    }
    bool Selected() const { return Session.Document.SelectedObject != nullptr; }
    /// Name of the menu that stands open, which is then closed.
    static QString TakePopUp()
    {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        const QString name = menu == nullptr ? QString() : menu->objectName();
        if (menu != nullptr)
            menu->close();
        return name;
    }

    frmDocument* Form;

private:
    Qt::MouseButton m_held = Qt::NoButton;
};

void ExpectBox(const CardObject& object, float left, float top, float width, float height)
{
    EXPECT_EQ(object.Left, left);
    EXPECT_EQ(object.Top, top);
    EXPECT_EQ(object.Width, width);
    EXPECT_EQ(object.Height, height);
}

TEST(Designer, TheMouseMovesAnObject)
{
    Designer designer;
    // The text stands at 400, 300; what a drag touches lands on a pixel.
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

TEST(SizeDialog, StepsTheObjectByOneTwip)
{
    Designer designer;
    designer.Click(designer.At(600, 375));
    EXPECT_TRUE(EventsUntil(
        [&] { return designer.Get<QMenu>("mnuProperties").menuAction()->isEnabled(); }));
    designer.Choose("cmdSize");
    auto& dialog = designer.Get<frmSize>("frmSize");
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral(" Adjust Size"));
    EXPECT_EQ(dialog.pos(), QPoint(ScreenPixels(2000), ScreenPixels(3000)));
    const CardObject& text = designer.Object(Family::lbl_TEXT);
    const auto arrow = [&](const char* name) -> DesktopUpDown& {
        return designer.Named<DesktopUpDown>(dialog, name);
    };
    arrow("udTop").UpButton().click();
    arrow("udLeft").DownButton().click();
    arrow("udHeight").UpButton().click();
    arrow("udWidth").DownButton().click();
    ExpectBox(text, 404, 301, 1499, 301);
    designer.Named<QLineEdit>(dialog, "txtTop").setText(QStringLiteral("500"));
    EXPECT_EQ(text.Top, 301);
    arrow("udLeft").UpButton().click();
    EXPECT_EQ(text.Top, 500);
    const QPointer<frmSize> open(&dialog);
    designer.Press(designer.At(600, 975));
    EXPECT_TRUE(EventsUntil([&] { return open.isNull(); }));
    designer.Release(designer.At(600, 975));
}

TEST(SizeDialog, TheArrowKeysStepTheFieldTheyArePressedIn)
{
    Designer designer;
    designer.Click(designer.At(600, 375));
    EXPECT_TRUE(EventsUntil(
        [&] { return designer.Get<QMenu>("mnuProperties").menuAction()->isEnabled(); }));
    designer.Choose("cmdSize");
    auto& dialog = designer.Get<frmSize>("frmSize");
    const CardObject& text = designer.Object(Family::lbl_TEXT);
    const float width = text.Width;
    const auto press = [&](const char* field, Qt::Key key) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QApplication::sendEvent(&designer.Named<QLineEdit>(dialog, field), &event);
    };
    press("txtWidth", Qt::Key_Up);
    press("txtWidth", Qt::Key_Up);
    press("txtTop", Qt::Key_Down);
    press("txtTop", Qt::Key_Left);
    EXPECT_EQ(text.Width, width + 2);
    EXPECT_EQ(text.Top, 299);
}

TEST(SizeDialog, APressOnAGripClosesIt)
{
    Designer designer;
    designer.Click(designer.At(600, 375));
    EXPECT_TRUE(EventsUntil(
        [&] { return designer.Get<QMenu>("mnuProperties").menuAction()->isEnabled(); }));
    designer.Choose("cmdSize");
    const QPointer<frmSize> open(&designer.Get<frmSize>("frmSize"));
    designer.Click(designer.Grip(4));
    EXPECT_TRUE(EventsUntil([&] { return open.isNull(); }));
}

TEST(DesignerNavigator, MakesAndDeletesPages)
{
    Designer designer;
    EXPECT_TRUE(EventsUntil([&] { return designer.Get<QToolButton>("cmdNewPage").isEnabled(); }));
    designer.DesktopStation::Press("cmdNewPage");
    EXPECT_EQ(designer.Session.CurrentParams.PageIndex, 2);
    designer.Choose("cmdNewText");
    designer.DesktopStation::Press("cmdSave");
    designer.Operator.Answers = {true};
    designer.DesktopStation::Press("cmdDelete");
    EXPECT_EQ(designer.Session.CurrentParams.PageIndex, 1);
    EXPECT_EQ(designer.Session.CurrentParams.PageCount, 1);
    EXPECT_EQ(designer.Get<QLabel>("SB3").text(), QStringLiteral("Layout (Badge) Page 1 of 1"));
}

TEST(DesignerNavigator, TheMenuReachesTheSamePages)
{
    Designer designer;
    EXPECT_TRUE(EventsUntil([&] { return designer.Get<QAction>("cmdNewPage").isEnabled(); }));
    designer.Choose("cmdNewPage");
    EXPECT_EQ(designer.Session.CurrentParams.PageCount, 2);
    designer.Operator.Answers = {true};
    designer.Choose("cmdDeletePage");
    EXPECT_EQ(designer.Session.CurrentParams.PageCount, 1);
}

TEST(DesignerNavigator, ComesToTheFrontUnderThePointer)
{
    Designer designer;
    auto& nav = designer.Get<frmNav>("frmNav");
    auto& workspace = *nav.parentWidget();
    auto* cover = new QWidget(&workspace);
    cover->setGeometry(nav.geometry());
    cover->show();
    cover->raise();
    const QPoint inside = nav.geometry().center();
    EXPECT_EQ(workspace.childAt(inside), cover);
    QEnterEvent enter({5, 5}, {5, 5}, {5, 5});
    QApplication::sendEvent(&nav, &enter);
    EXPECT_NE(workspace.childAt(inside), cover);
}

TEST(DesignerNavigator, KeepsItsPlaceInFront)
{
    Designer designer;
    const auto& nav = designer.Get<frmNav>("frmNav");
    EXPECT_EQ(nav.x(), designer.Window.width() - ScreenPixels(1650));
    EXPECT_EQ(nav.y(), ScreenPixels(200));
    designer.Window.resize(900, 600);
    EXPECT_TRUE(EventsUntil([&] { return nav.x() == 900 - ScreenPixels(1650); }));
}

// What an operator does from an empty station to a printed card, by menus and mouse alone.
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
