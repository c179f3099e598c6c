#include "card/ObjectExtras.h"
#include "desktop/DesktopStation.h"
#include "desktop/dialogs/frmCheck.h"
#include "desktop/dialogs/frmShrink.h"
#include "station/layout/DesignSteps.h"
#include "station/layout/LoadLayout.h"
#include "support/Events.h"
#include "support/Layouts.h"
#include <QCheckBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>
#include <gtest/gtest.h>

// The list of what would not print as it should, and the window that lets texts shrink.

namespace vantrel::test {
namespace {

const QString LongName = QStringLiteral("Bartholomew Featherstone");

StationOptions WithDesignTools()
{
    StationOptions options;
    options.DesignTools = true;
    return options;
}

/// A layout of two pages with a field each. The record fits neither.
class CheckWindow : public ::testing::Test
{
protected:
    CheckWindow()
    {
        Station.WithLayout();
        Station.Load();
        vantrel::Session& session = Station.Session;
        BeginLayout(session, QStringLiteral("Pass"));
        AddField(session, 1).SetFont(Letters);
        SavePage(session);
        BeginPage(session, 2);
        AddField(session, 1).SetFont(Letters);
        SavePage(session);
        LoadFirstPage(session, QStringLiteral("Pass"));
        NoteDesign(session);
        SetRecord(session, {LongName});
    }

    frmCheck& Open()
    {
        Station.Choose("cmdCheckLayout");
        return Station.Get<frmCheck>("frmCheck");
    }
    static QTreeWidget& List(QWidget& window)
    {
        return DesktopStation::Named<QTreeWidget>(window, "lstFindings");
    }
    static QString Summary(QWidget& window)
    {
        return DesktopStation::Named<QLabel>(window, "lblSummary").text();
    }
    static QString Advice(QWidget& window)
    {
        return DesktopStation::Named<QLabel>(window, "lblAdvice").text();
    }
    CardObject& Field() { return *Station.Session.Document.Find(Family::lbl_DATA, 1); }
    void MakeFit(CardObject& field)
    {
        SetShrinkTo(field, 2);
        Station.Session.Document.Refresh();
    }

    const Font Letters{.Name = QStringLiteral("Liberation Sans"), .Size = 10};
    DesktopStation Station{true, WithDesignTools()};
};

TEST_F(CheckWindow, ListsEachFindingWithItsPageAndObject)
{
    frmCheck& window = Open();
    ASSERT_EQ(List(window).topLevelItemCount(), 2);
    const QTreeWidgetItem& second = *List(window).topLevelItem(1);
    EXPECT_EQ(second.text(0), QStringLiteral("Warning"));
    EXPECT_FALSE(second.icon(0).isNull());
    EXPECT_EQ(second.text(1), QStringLiteral("2"));
    EXPECT_EQ(second.text(2), QStringLiteral("Data Field 1"));
    EXPECT_TRUE(second.text(3).startsWith(QStringLiteral("The text leaves its box")));
    EXPECT_EQ(Summary(window), QStringLiteral("0 errors and 2 warnings on the layout Pass, with "
                                              "the values of the last record."));
    EXPECT_TRUE(Advice(window).contains(QStringLiteral("Make the box larger")));
}

TEST_F(CheckWindow, SaysPlainlyThatNothingWasFound)
{
    SetRecord(Station.Session, {QStringLiteral("Ada")});
    frmCheck& window = Open();
    EXPECT_EQ(List(window).topLevelItemCount(), 0);
    EXPECT_TRUE(Summary(window).startsWith(QStringLiteral("Nothing found on the layout Pass")));
    EXPECT_EQ(Advice(window), QString());
    EXPECT_FALSE(DesktopStation::Named<QPushButton>(window, "cmdShow").isEnabled());
}

TEST_F(CheckWindow, APressOnAFindingSelectsItsObject)
{
    frmCheck& window = Open();
    QTreeWidget& list = List(window);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                      list.visualItemRect(list.topLevelItem(0)).center());
    EXPECT_EQ(Station.Session.Document.SelectedObject, &Field());
    EXPECT_EQ(Station.Session.CurrentParams.PageIndex, 1);
}

TEST_F(CheckWindow, EnterOnAFindingOpensItsPage)
{
    frmCheck& window = Open();
    QTreeWidget& list = List(window);
    list.setFocus();
    list.setCurrentItem(list.topLevelItem(1));
    EXPECT_EQ(Station.Session.Document.SelectedObject, nullptr);
    QTest::keyClick(&list, Qt::Key_Return);
    EXPECT_EQ(Station.Session.CurrentParams.PageIndex, 2);
    EXPECT_EQ(Station.Session.Document.SelectedObject, &Field());
    EXPECT_TRUE(window.isVisible());
}

TEST_F(CheckWindow, ChecksAgainAfterAChangeAndKeepsTheChosenFinding)
{
    frmCheck& window = Open();
    List(window).setCurrentItem(List(window).topLevelItem(1));
    MakeFit(Field());
    ASSERT_TRUE(EventsUntil([&] { return List(window).topLevelItemCount() == 1; }));
    EXPECT_EQ(List(window).currentItem(), List(window).topLevelItem(0));
    EXPECT_EQ(List(window).topLevelItem(0)->text(1), QStringLiteral("2"));
}

TEST_F(CheckWindow, ChecksAgainWhenAsked)
{
    frmCheck& window = Open();
    SetRecord(Station.Session, {QStringLiteral("Ada")});
    auto& again = DesktopStation::Named<QPushButton>(window, "cmdAgain");
    EXPECT_EQ(again.shortcut(), QKeySequence(Qt::Key_F5));
    again.click();
    EXPECT_EQ(List(window).topLevelItemCount(), 0);
}

TEST_F(CheckWindow, ShowsTheBeginningOfAValueOfAMillionCharacters)
{
    SetRecord(Station.Session, {QString(1'000'000, QLatin1Char('W'))});
    frmCheck& window = Open();
    ASSERT_EQ(List(window).topLevelItemCount(), 2);
    for (int column = 0; column < List(window).columnCount(); ++column)
        EXPECT_LT(List(window).topLevelItem(0)->text(column).size(), 2000);
}

TEST_F(CheckWindow, AClosedLayoutHasNoFindings)
{
    frmCheck& window = Open();
    CloseLayout(Station.Session);
    ASSERT_TRUE(EventsUntil([&] { return List(window).topLevelItemCount() == 0; }));
    EXPECT_EQ(Summary(window), QStringLiteral("No layout is open."));
}

/// The same layout with its field selected.
class ShrinkWindow : public CheckWindow
{
protected:
    ShrinkWindow()
    {
        CardDocument& document = Station.Session.Document;
        document.SelectedObject = &Field();
        document.SelectedIndex = 1;
        document.SelectedFamily = QStringLiteral("lbl_DATA");
        Station.Session.Face.NotifyDesign();
    }
    frmShrink& OpenShrink()
    {
        Station.Choose("cmdShrink");
        return Station.Get<frmShrink>("frmShrink");
    }
};

TEST_F(ShrinkWindow, SetsTheSmallestSizeInOneStep)
{
    frmShrink& window = OpenShrink();
    auto& shrinks = DesktopStation::Named<QCheckBox>(window, "chkShrink");
    auto& least = DesktopStation::Named<QDoubleSpinBox>(window, "numLeast");
    EXPECT_FALSE(shrinks.isChecked());
    EXPECT_FALSE(least.isEnabled());
    EXPECT_EQ(least.value(), 6);
    shrinks.click();
    ASSERT_TRUE(least.isEnabled());
    least.setValue(4.5);
    DesktopStation::Named<QPushButton>(window, "cmdSave").click();
    EXPECT_EQ(ShrinkToOf(Field()), 4.5);
    NoteDesign(Station.Session);
    UndoDesign(Station.Session);
    EXPECT_EQ(ShrinkToOf(Field()), 0);
}

TEST_F(ShrinkWindow, ShowsWhatIsSetAndTakesItBack)
{
    SetShrinkTo(Field(), 7);
    frmShrink& window = OpenShrink();
    EXPECT_EQ(DesktopStation::Named<QDoubleSpinBox>(window, "numLeast").value(), 7);
    auto& shrinks = DesktopStation::Named<QCheckBox>(window, "chkShrink");
    EXPECT_TRUE(shrinks.isChecked());
    shrinks.click();
    DesktopStation::Named<QPushButton>(window, "cmdSave").click();
    EXPECT_EQ(ShrinkToOf(Field()), 0);
}

TEST_F(ShrinkWindow, CancelChangesNothing)
{
    frmShrink& window = OpenShrink();
    DesktopStation::Named<QCheckBox>(window, "chkShrink").click();
    DesktopStation::Named<QPushButton>(window, "cmdCancel").click();
    EXPECT_EQ(ShrinkToOf(Field()), 0);
}

} // namespace
} // namespace vantrel::test
