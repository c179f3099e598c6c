#include "desktop/Designer.h"
#include "desktop/controls/DesktopUpDown.h"
#include "desktop/designer/frmSize.h"
#include "desktop/window/frmNav.h"
#include "station/layout/LoadLayout.h"
#include "support/Events.h"
#include "support/Layouts.h"
#include <QApplication>
#include <QEnterEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QToolButton>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

/// Selects the text and opens the dialog on it.
frmSize& OpenSizeDialog(Designer& designer)
{
    designer.Click(designer.At(600, 375));
    EXPECT_TRUE(EventsUntil(
        [&] { return designer.Get<QMenu>("mnuProperties").menuAction()->isEnabled(); }));
    designer.Choose("cmdSize");
    return designer.Get<frmSize>("frmSize");
}

TEST(SizeDialog, StepsTheObjectByOneTwip)
{
    Designer designer;
    frmSize& dialog = OpenSizeDialog(designer);
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
    frmSize& dialog = OpenSizeDialog(designer);
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

TEST(SizeDialog, ChangesNothingOnceItsObjectHasGone)
{
    Designer designer;
    frmSize& dialog = OpenSizeDialog(designer);
    auto& up = designer.Named<DesktopUpDown>(dialog, "udTop");
    ASSERT_TRUE(LoadLayout(designer.Session, QStringLiteral("Badge")));
    up.UpButton().click();
    ExpectBox(designer.Object(Family::lbl_TEXT), 400, 300, 1500, 300);
    CloseLayout(designer.Session);
    up.DownButton().click();
    EXPECT_TRUE(dialog.isVisible());
}

TEST(SizeDialog, TakesNumbersBeyondAllBoundsWithoutHarm)
{
    Designer designer;
    frmSize& dialog = OpenSizeDialog(designer);
    const CardObject& text = designer.Object(Family::lbl_TEXT);
    auto& left = designer.Named<QLineEdit>(dialog, "txtLeft");
    auto& up = designer.Named<DesktopUpDown>(dialog, "udLeft");
    for (const char* number : {"1e300", "-1e300", "99999999999", "&H7FFFFFFF", "inf", ""}) {
        left.setText(QLatin1StringView(number));
        up.UpButton().click();
        designer.Form->grab();
    }
    EXPECT_EQ(text.Left, 1);
    left.setText(QStringLiteral("1e300"));
    up.UpButton().click();
    SavePage(designer.Session);
    ASSERT_TRUE(LoadLayout(designer.Session, QStringLiteral("Badge")));
    // A stored value that is no length counts as no length.
    EXPECT_EQ(designer.Object(Family::lbl_TEXT).Left, 0);
    EXPECT_EQ(designer.Object(Family::lbl_TEXT).Top, 300);
}

TEST(SizeDialog, APressOnAGripClosesIt)
{
    Designer designer;
    const QPointer<frmSize> open(&OpenSizeDialog(designer));
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

} // namespace
} // namespace vantrel::test
