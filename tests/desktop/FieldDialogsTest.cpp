#include "desktop/DesktopStation.h"
#include "desktop/composers/frmPad.h"
#include "desktop/dialogs/frmFilters.h"
#include "desktop/dialogs/frmPreSuffix.h"
#include "station/layout/FieldApplication.h"
#include "station/layout/LoadLayout.h"
#include "support/Events.h"
#include "support/Layouts.h"
#include <QLineEdit>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

/// A station with a layout whose one data field is selected.
class FieldDialogTest : public ::testing::Test
{
protected:
    FieldDialogTest()
    {
        Station.WithLayout();
        Station.Load();
        CardDocument& document = Station.Session.Document;
        document.SelectedObject = &Field();
        document.SelectedIndex = 1;
        document.SelectedFamily = QStringLiteral("lbl_DATA");
        Station.Session.Face.SetPropertiesEnabled(true);
    }

    CardObject& Field() { return *Station.Session.Document.Find(Family::lbl_DATA, 1); }
    static void Press(QWidget& dialog, const char* name)
    {
        DesktopStation::Named<QAbstractButton>(dialog, name).click();
    }
    static QLineEdit& Box(QWidget& dialog, const char* name)
    {
        return DesktopStation::Named<QLineEdit>(dialog, name);
    }

    DesktopStation Station;
};

TEST_F(FieldDialogTest, PrefixAndSuffixReachTheCardAndTheStore)
{
    Station.Choose("cmdPreSuffix");
    auto& dialog = Station.Get<frmPreSuffix>("frmPreSuffix");
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Prefix / Suffix"));
    EXPECT_TRUE(dialog.isModal());
    Box(dialog, "txtPrefix").setText(QStringLiteral("A"));
    Box(dialog, "txtSuffix").setText(QStringLiteral("Z"));
    Press(dialog, "cmdSave");
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(Field().ToolTipText, QStringLiteral("A\rZ"));
    SetRecord(Station.Session, {QStringLiteral("Anna")});
    ReapplyFieldValues(Station.Session);
    EXPECT_EQ(Field().Caption(), QStringLiteral("AAnnaZ"));
    SavePage(Station.Session);
    ASSERT_TRUE(LoadLayout(Station.Session, QStringLiteral("Badge")));
    EXPECT_EQ(Field().ToolTipText, QStringLiteral("A\rZ"));
}

TEST_F(FieldDialogTest, CancelOfPrefixAndSuffixDoesNothingAndTheTitleBarCloses)
{
    Field().ToolTipText = QStringLiteral("A\rZ");
    Station.Choose("cmdPreSuffix");
    auto& dialog = Station.Get<frmPreSuffix>("frmPreSuffix");
    EXPECT_EQ(Box(dialog, "txtPrefix").text(), QStringLiteral("A"));
    EXPECT_EQ(Box(dialog, "txtSuffix").text(), QStringLiteral("Z"));
    EXPECT_EQ(DesktopStation::Named<QAbstractButton>(dialog, "cmdCancel").text(),
              QStringLiteral("&Cancel"));
    Press(dialog, "cmdCancel");
    EXPECT_TRUE(dialog.isVisible());
    Box(dialog, "txtPrefix").setText(QStringLiteral("B"));
    dialog.close();
    EXPECT_EQ(Field().ToolTipText, QStringLiteral("A\rZ"));
}

TEST_F(FieldDialogTest, FilterCharactersReachTheCardAndTheStore)
{
    Station.Choose("cmdFilters");
    auto& dialog = Station.Get<frmFilters>("frmFilters");
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Filter Characters"));
    Box(dialog, "txtChars").setText(QStringLiteral("- "));
    Press(dialog, "cmdSave");
    EXPECT_FALSE(dialog.isVisible());
    SetRecord(Station.Session, {QStringLiteral("12-34 5")});
    ReapplyFieldValues(Station.Session);
    EXPECT_EQ(Field().Caption(), QStringLiteral("12345"));
    SavePage(Station.Session);
    ASSERT_TRUE(LoadLayout(Station.Session, QStringLiteral("Badge")));
    EXPECT_EQ(Field().Tag, QStringLiteral("- "));
}

TEST_F(FieldDialogTest, ACancelledFilterChangesNothing)
{
    Field().Tag = QStringLiteral("-");
    Station.Choose("cmdAutoFilters");
    auto& dialog = Station.Get<frmFilters>("frmFilters");
    EXPECT_EQ(Box(dialog, "txtChars").text(), QStringLiteral("-"));
    Box(dialog, "txtChars").setText(QStringLiteral("+"));
    Press(dialog, "cmdCancel");
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(Field().Tag, QStringLiteral("-"));
}

TEST_F(FieldDialogTest, ALayoutLoadedMeanwhileIsNotTouched)
{
    Station.Choose("cmdFilters");
    auto& dialog = Station.Get<frmFilters>("frmFilters");
    ASSERT_TRUE(LoadLayout(Station.Session, QStringLiteral("Badge")));
    Box(dialog, "txtChars").setText(QStringLiteral("+"));
    Press(dialog, "cmdSave");
    EXPECT_EQ(Field().Tag, QString());
}

TEST_F(FieldDialogTest, PaddingOpensOnceItsEntryShows)
{
    auto& entry = Station.Get<QAction>("cmdDataPadding");
    EXPECT_FALSE(entry.isVisible());
    entry.setVisible(true);
    Station.Choose("cmdDataPadding");
    EXPECT_TRUE(Station.Get<frmPad>("frmPad").isVisible());
}

} // namespace
} // namespace vantrel::test
