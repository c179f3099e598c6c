#include "desktop/Designer.h"
#include "desktop/composers/frmPad.h"
#include "desktop/dialogs/frmFilters.h"
#include "desktop/dialogs/frmPreSuffix.h"
#include "station/layout/DesignSteps.h"
#include "station/layout/FieldApplication.h"
#include "support/Events.h"
#include "support/Layouts.h"
#include "support/PageText.h"
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QTest>
#include <QTreeWidget>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

StationOptions Tools()
{
    StationOptions options;
    options.DesignTools = true;
    return options;
}

/// A designer with a record in hand, whose field is selected.
class ShownValuesOnCard : public ::testing::Test
{
protected:
    ShownValuesOnCard()
    {
        SetRecord(Station.Session, {QStringLiteral("12-345")});
        Station.Session.History.Clear();
        Station.Session.History.PageWasLoaded();
        NoteDesign(Station.Session);
        Station.Click(Station.At(600, 975));
        EXPECT_TRUE(EventsUntil([&] { return Station.Session.Face.PropertiesEnabled(); }));
    }
    QString Label(const char* name) { return Station.Get<QLabel>(name).text(); }
    void Type(const char* name, const char* text)
    {
        auto& line = Station.Get<QLineEdit>(name);
        line.clear();
        QTest::keyClicks(&line, QLatin1StringView(text));
    }
    CardObject& Field() { return Station.Object(Family::lbl_DATA); }
    QImage Card() { return Station.Form->CardPicture(); }

    Designer Station{Tools()};
};

TEST_F(ShownValuesOnCard, StandInPlaceOfNamesWhileTheTickIsOn)
{
    const QString page = PageText(Station.Session);
    const QImage names = Card();
    Station.Choose("cmdShowValues");
    EXPECT_TRUE(Station.Get<QAction>("cmdShowValues").isChecked());
    const QImage values = Card();
    EXPECT_NE(values, names);
    EXPECT_EQ(PageText(Station.Session), page);
    EXPECT_EQ(Field().Caption(), QStringLiteral("Data Field 1"));
    EXPECT_FALSE(IsPageUnsaved(Station.Session));
    Station.Choose("cmdShowValues");
    EXPECT_FALSE(Station.Get<QAction>("cmdShowValues").isChecked());
    EXPECT_EQ(Card(), names);
}

TEST_F(ShownValuesOnCard, FollowTheNextRecordAndCheckDigits)
{
    Station.Choose("cmdShowValues");
    const QImage first = Card();
    Station.Choose("cmdMod10");
    QCoreApplication::processEvents();
    // 12-345 is no number, so the field prints nothing at all.
    const QImage checked = Card();
    EXPECT_NE(checked, first);
    SetRecord(Station.Session, {QStringLiteral("12345")});
    BuildFieldMenu(Station.Session.Face, Station.Session.FieldValues);
    EXPECT_NE(Card(), checked);
}

TEST_F(ShownValuesOnCard, PrefixAndSuffixShowWhatTheValuePrintsAsWhileTheyAreTyped)
{
    Field().Tag = QStringLiteral("-");
    Field().DataMember = QStringLiteral("MOD10");
    Station.Choose("cmdPreSuffix");
    EXPECT_EQ(Label("lblValue"), QStringLiteral("Last record: 12-345"));
    EXPECT_EQ(Label("lblPrinted"), QStringLiteral("Prints as: 123457"));
    Type("txtPrefix", "No. ");
    EXPECT_EQ(Label("lblPrinted"), QStringLiteral("Prints as: No. 123457"));
    Type("txtSuffix", "Z");
    EXPECT_EQ(Label("lblPrinted"), QStringLiteral("Prints as: No. 123457Z"));
    EXPECT_EQ(Field().ToolTipText, QStringLiteral("\r"));
    EXPECT_EQ(Field().Caption(), QStringLiteral("Data Field 1"));
}

TEST_F(ShownValuesOnCard, FiltersShowWhatTheValuePrintsAsWhileTheyAreTyped)
{
    Station.Choose("cmdFilters");
    EXPECT_EQ(Label("lblPrinted"), QStringLiteral("Prints as: 12-345"));
    Type("txtChars", "-5");
    EXPECT_EQ(Label("lblPrinted"), QStringLiteral("Prints as: 1234"));
    EXPECT_EQ(Field().Tag, QString());
    DesktopStation::Named<QAbstractButton>(Station.Get<frmFilters>("frmFilters"), "cmdSave")
        .click();
    EXPECT_EQ(Field().Tag, QStringLiteral("-5"));
}

TEST_F(ShownValuesOnCard, WithoutARecordAnExampleIsShown)
{
    SetRecord(Station.Session, {});
    Station.Choose("cmdPreSuffix");
    EXPECT_EQ(Label("lblValue"), QStringLiteral("Example: 12345"));
    Type("txtPrefix", "A");
    EXPECT_EQ(Label("lblPrinted"), QStringLiteral("Prints as: A12345"));
}

TEST_F(ShownValuesOnCard, AFilterOfANumberShowsTheNextOne)
{
    Station.Click(Station.At(600, 1600));
    Station.Choose("cmdAutoFilters");
    EXPECT_EQ(Label("lblValue"), QStringLiteral("Next number: 8"));
    Type("txtChars", "8");
    EXPECT_EQ(Label("lblPrinted"), QStringLiteral("Prints nothing"));
}

TEST_F(ShownValuesOnCard, PaddingShowsWhatTheValueBecomes)
{
    auto* pad = new frmPad(Station.Session, &Station.Window);
    pad->show();
    EXPECT_EQ(Label("lblValue"), QStringLiteral("Example: 12345"));
    Station.Get<QTreeWidget>("tvwData").setCurrentItem(
        Station.Get<QTreeWidget>("tvwData").topLevelItem(0));
    EXPECT_EQ(Label("lblValue"), QStringLiteral("Last record: 12-345"));
    EXPECT_EQ(Label("lblPrinted"), QStringLiteral("Prints as: 12-345"));
    Type("txtData", "0");
    Type("txtLength", "8");
    EXPECT_EQ(Label("lblPrinted"), QStringLiteral("Prints as: 0012-345"));
    Station.Get<QRadioButton>("optDirection(1)").click();
    EXPECT_EQ(Label("lblPrinted"), QStringLiteral("Prints as: 12-34500"));
    // A value that is as long as that prints nothing.
    Type("txtLength", "6");
    EXPECT_EQ(Label("lblPrinted"), QStringLiteral("Prints nothing"));
    EXPECT_EQ(Station.Session.Pad.PadLen, 0);
    delete pad;
}

TEST(ShownValuesOff, DialogsAreAsTheyAlwaysWere)
{
    Designer station;
    station.Click(station.At(600, 975));
    EXPECT_TRUE(EventsUntil([&] { return station.Session.Face.PropertiesEnabled(); }));
    for (const char* entry : {"cmdPreSuffix", "cmdFilters"})
        station.Choose(entry);
    frmPad pad(station.Session, &station.Window);
    EXPECT_EQ(station.Window.findChild<QLabel*>(QStringLiteral("lblPrinted")), nullptr);
}

} // namespace
} // namespace vantrel::test
