#include "desktop/Designer.h"
#include "desktop/designer/DesktopCardAccess.h"
#include "station/layout/LoadLayout.h"
#include "support/Events.h"
#include "support/Layouts.h"
#include <QAccessible>
#include <QCoreApplication>
#include <QMenu>
#include <gtest/gtest.h>

// The card and its menus as screen readers see them.

namespace vantrel::test {
namespace {

/// The designer with the accessible interface of its card.
class AccessibleCard : public Designer
{
public:
    using Designer::Designer;

    QAccessibleInterface& Card() const { return *QAccessible::queryAccessibleInterface(Form); }
    QAccessibleInterface& Main() { return *QAccessible::queryAccessibleInterface(&Window); }
    /// The objects as "role|name|kind".
    QStringList Objects() const
    {
        QStringList objects;
        for (int index = 0; index < Card().childCount(); ++index) {
            const QAccessibleInterface& object = *Card().child(index);
            const bool picture = object.role() == QAccessible::Graphic;
            EXPECT_TRUE(picture || object.role() == QAccessible::StaticText);
            objects += (picture ? QStringLiteral("picture|") : QStringLiteral("text|")) +
                       object.text(QAccessible::Name) + QLatin1Char('|') +
                       object.text(QAccessible::Description);
        }
        return objects;
    }
};

TEST(AccessibleCard, EachObjectHasItsRoleItsNameAndItsKind)
{
    AccessibleCard designer;
    AddImage(designer.Session, QString());
    AddText(designer.Session, QStringLiteral("  "));
    EXPECT_EQ(designer.Objects(), (QStringList{QStringLiteral("text|Visitor|Static Text"),
                                               QStringLiteral("text|Data Field 1|Data Field"),
                                               QStringLiteral("text|7|AutoNumber Field"),
                                               QStringLiteral("picture|Image|Image"),
                                               QStringLiteral("text|Static Text|Static Text")}));
    EXPECT_EQ(designer.Card().text(QAccessible::Name), QStringLiteral("Card"));
}

TEST(AccessibleCard, AnObjectIsReportedWhereItIsSeen)
{
    AccessibleCard designer;
    const QRect box(designer.Form->mapToGlobal(designer.At(400, 300)),
                    QSize(ScreenPixels(1500), ScreenPixels(300)));
    EXPECT_EQ(designer.Card().child(0)->rect(), box);
    const QPoint middle = box.center();
    EXPECT_EQ(designer.Card().childAt(middle.x(), middle.y()), designer.Card().child(0));
    EXPECT_EQ(designer.Card().childAt(box.left() - 5, middle.y()), nullptr);
    designer.Drag(designer.At(600, 375), designer.At(900, 825));
    EXPECT_EQ(designer.Card().child(0)->rect().topLeft(),
              designer.Form->mapToGlobal(designer.At(705, 750)));
    EXPECT_TRUE(designer.Card().child(0)->state().selected);
    EXPECT_FALSE(designer.Card().child(1)->state().selected);
}

TEST(AccessibleCard, AnObjectStaysTheSameWhenARecordArrives)
{
    AccessibleCard designer;
    QAccessibleInterface* const field = designer.Card().child(1);
    EXPECT_EQ(designer.Card().indexOfChild(field), 1);
    EXPECT_EQ(field->parent(), &designer.Card());
    ASSERT_TRUE(LoadLayout(designer.Session, QStringLiteral("Badge")));
    QCoreApplication::processEvents();
    designer.Object(Family::lbl_DATA).SetCaption(QStringLiteral("Anna"));
    EXPECT_EQ(designer.Card().child(1), field);
    EXPECT_EQ(field->text(QAccessible::Name), QStringLiteral("Anna"));
}

TEST(AccessibleCard, AnObjectThatHasGoneIsNoLongerReported)
{
    AccessibleCard designer;
    QAccessibleInterface* const text = designer.Card().child(0);
    designer.Session.Document.Remove(designer.Object(Family::lbl_TEXT));
    EXPECT_EQ(designer.Objects(), (QStringList{QStringLiteral("text|Data Field 1|Data Field"),
                                               QStringLiteral("text|7|AutoNumber Field")}));
    EXPECT_TRUE(text->state().invalid);
    EXPECT_EQ(text->text(QAccessible::Name), QString());
    EXPECT_EQ(text->rect(), QRect());
    EXPECT_EQ(designer.Card().child(2), nullptr);
    CloseLayout(designer.Session);
    EXPECT_EQ(designer.Objects(), QStringList());
}

TEST(AccessibleCard, NothingIsKeptOfAnObjectThatHasGone)
{
    AccessibleCard designer;
    const QAccessible::Id text = QAccessible::uniqueId(designer.Card().child(0));
    const QAccessible::Id field = QAccessible::uniqueId(designer.Card().child(1));
    designer.Session.Document.Remove(designer.Object(Family::lbl_TEXT));
    dynamic_cast<CardAccess&>(designer.Card()).Follow();
    EXPECT_EQ(QAccessible::accessibleInterface(text), nullptr);
    EXPECT_EQ(QAccessible::accessibleInterface(field), designer.Card().child(0));
}

TEST(AccessibleCard, AllSelectedObjectsAreReportedAsSelected)
{
    StationOptions options;
    options.DesignTools = true;
    AccessibleCard designer(options);
    designer.Click(designer.At(600, 375));
    designer.Click(designer.At(600, 975), Qt::ControlModifier);
    dynamic_cast<CardAccess&>(designer.Card()).Follow(true);
    EXPECT_TRUE(designer.Card().child(0)->state().selected);
    EXPECT_TRUE(designer.Card().child(1)->state().selected);
    EXPECT_FALSE(designer.Card().child(2)->state().selected);
}

TEST(AccessibleCard, AnObjectIsReportedWhereItIsSeenAtEachZoom)
{
    StationOptions options;
    options.DesignTools = true;
    AccessibleCard designer(options);
    for (const double zoom : {0.25, 2.0, 8.0}) {
        SCOPED_TRACE(zoom);
        designer.Form->ZoomInPlace(zoom);
        const QRect box = designer.Card().child(1)->rect();
        EXPECT_EQ(box.topLeft(), designer.Form->mapToGlobal(designer.At(400, 900)));
        EXPECT_EQ(box.width(), ScreenPixels(1500 * zoom));
        const QPoint middle = box.center();
        EXPECT_EQ(designer.Card().childAt(middle.x(), middle.y()), designer.Card().child(1));
    }
    // Most of the card is now beyond the workspace.
    designer.Form->Reveal(designer.Object(Family::lbl_TEXT));
    EXPECT_FALSE(designer.Card().child(0)->state().offscreen);
    EXPECT_TRUE(designer.Card().child(2)->state().offscreen);
}

TEST(AccessibleCard, TheKeyboardIsReportedAtTheObjectWithTheGrips)
{
    StationOptions options;
    options.DesignTools = true;
    AccessibleCard designer(options);
    designer.Window.activateWindow();
    ASSERT_TRUE(EventsUntil([&] { return designer.Window.isActiveWindow(); }));
    designer.Form->setFocus();
    designer.Click(designer.At(600, 375));
    designer.Click(designer.At(600, 975), Qt::ControlModifier);
    EXPECT_TRUE(designer.Card().child(0)->state().focused);
    EXPECT_FALSE(designer.Card().child(1)->state().focused);
    EXPECT_TRUE(designer.Card().child(1)->state().focusable);
    AccessibleCard without;
    without.Click(without.At(600, 375));
    EXPECT_FALSE(without.Card().child(0)->state().focusable);
    EXPECT_FALSE(without.Card().child(0)->state().focused);
}

TEST(AccessibleCard, AnOpenPopUpMenuIsAChildOfTheMainWindow)
{
    AccessibleCard designer;
    for (const char* name : {"mnuBack", "mnuAutoNumber"}) {
        auto& menu = designer.Get<QMenu>(name);
        QAccessibleInterface* const told = QAccessible::queryAccessibleInterface(&menu);
        const int before = designer.Main().childCount();
        EXPECT_EQ(designer.Main().indexOfChild(told), -1) << name;
        menu.popup(designer.Window.mapToGlobal(QPoint(50, 50)));
        ASSERT_EQ(designer.Main().childCount(), before + 1) << name;
        EXPECT_EQ(designer.Main().child(before), told);
        EXPECT_EQ(designer.Main().indexOfChild(told), before);
        EXPECT_FALSE(told->text(QAccessible::Name).isEmpty());
        menu.close();
        EXPECT_EQ(designer.Main().childCount(), before);
    }
    // A menu of the menu bar is reported there, open or not.
    auto& file = designer.Get<QMenu>("mnuFile");
    const int before = designer.Main().childCount();
    file.popup(designer.Window.mapToGlobal(QPoint(50, 50)));
    EXPECT_EQ(designer.Main().childCount(), before);
    file.close();
}

} // namespace
} // namespace vantrel::test
