#include "desktop/DesktopStation.h"
#include "station/layout/DocumentForm.h"
#include "station/layout/FieldApplication.h"
#include "station/layout/LoadLayout.h"
#include "support/Events.h"
#include "support/Layouts.h"
#include <QMenu>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

/// A station with a layout open whose one data field is selected.
class CommandEffect : public ::testing::Test
{
protected:
    CommandEffect()
    {
        Station.WithLayout();
        Station.Load();
        Select(Find(Family::lbl_DATA));
        Station.Session.Face.SetPropertiesEnabled(true);
        EXPECT_TRUE(
            EventsUntil([&] { return Station.Get<QMenu>("mnuData").menuAction()->isEnabled(); }));
    }

    CardObject& Find(Family family, int index = 1)
    {
        return *Station.Session.Document.Find(family, index);
    }
    void Select(CardObject& object)
    {
        CardDocument& document = Station.Session.Document;
        document.SelectedObject = &object;
        document.SelectedIndex = object.Index();
        document.SelectedFamily = FamilyName(object.Family());
    }
    int Highest(Family family) { return Station.Session.Document.HighestIndex(family); }
    /// Chooses an entry that is hidden at start.
    void ChooseHidden(const char* name)
    {
        auto& entry = Station.Get<QAction>(name);
        EXPECT_FALSE(entry.isVisible()) << name;
        entry.setVisible(true);
        Station.Choose(name);
    }

    DesktopStation Station;
};

TEST_F(CommandEffect, InsertsPutObjectsOntoTheCard)
{
    Station.Choose("cmdInsertData");
    EXPECT_EQ(Highest(Family::lbl_DATA), 2);
    Station.Choose("cmdNewText");
    EXPECT_EQ(Highest(Family::lbl_TEXT), 2);
    Station.Choose("cmdInsertImage");
    EXPECT_EQ(Highest(Family::img_LXV), 1);
    Station.Choose("cmdInsertCamImage");
    EXPECT_EQ(Highest(Family::img_CAM), 1);
    ChooseHidden("cmdAutoNumber");
    EXPECT_EQ(Highest(Family::lbl_AUTO), 1);
}

TEST_F(CommandEffect, ThreeEntriesDeleteTheSelectedObject)
{
    for (const char* name : {"cmdDelete", "cmdContextDelete", "cmdAutoNumberDelete"}) {
        AddNumber(Station.Session, 1);
        Select(Find(Family::lbl_AUTO));
        Station.Operator.BoxAnswers = {BoxAnswer::Yes};
        Station.Choose(name);
        EXPECT_EQ(Highest(Family::lbl_AUTO), 0) << name;
    }
}

TEST_F(CommandEffect, DeleteAllRemovesTheDataFields)
{
    Station.Operator.BoxAnswers = {BoxAnswer::Yes};
    Station.Choose("cmdDeleteAll");
    EXPECT_EQ(Highest(Family::lbl_DATA), 0);
    EXPECT_EQ(Highest(Family::lbl_TEXT), 1);
}

TEST_F(CommandEffect, NewAndDeleteLayoutReachTheStore)
{
    Station.Operator.Inputs = {QStringLiteral("Fresh")};
    ChooseHidden("cmdNew");
    EXPECT_EQ(Station.Session.CurrentLayoutName, QStringLiteral("Fresh"));
    ASSERT_TRUE(LoadLayout(Station.Session, QStringLiteral("Badge")));
    Station.Operator.Answers = {true};
    Station.Choose("cmdDeleteLayout");
    EXPECT_FALSE(DoesLayoutExist(Station.Session, QStringLiteral("Badge")));
}

TEST_F(CommandEffect, SizesGoUpAndDown)
{
    const float width = Find(Family::lbl_DATA).Width;
    Station.Choose("cmdIncrease");
    EXPECT_EQ(Find(Family::lbl_DATA).Width, width * 1.1F);
    Station.Choose("cmdDecrease");
    EXPECT_LT(Find(Family::lbl_DATA).Width, width);
}

TEST_F(CommandEffect, CheckDigitEntriesToggleTheirWord)
{
    struct Row
    {
        const char* Entry;
        const char* Word;
    };
    constexpr Row rows[] = {{"cmdMod10", "MOD10"},     {"cmdCodaBar", "CODABAR"},
                            {"cmdAutoMod10", "MOD10"}, {"cmdAutoCodaBar", "CODABAR"},
                            {"cmdAutoEBT", "EBT"},     {"cmdEBTCheckDigit", "EBT"}};
    EXPECT_EQ(std::size(rows), 6U);
    Station.Get<QAction>("cmdEBTCheckDigit").setVisible(true);
    for (const Row& row : rows) {
        Station.Choose(row.Entry);
        EXPECT_EQ(Find(Family::lbl_DATA).DataMember, QLatin1StringView(row.Word)) << row.Entry;
        Station.Choose(row.Entry);
        EXPECT_EQ(Find(Family::lbl_DATA).DataMember, QString()) << row.Entry;
    }
    Station.Choose("cmdMod10");
    Station.Choose("cmdCodaBar");
    SavePage(Station.Session);
    ASSERT_TRUE(LoadLayout(Station.Session, QStringLiteral("Badge")));
    EXPECT_EQ(Find(Family::lbl_DATA).DataMember, QStringLiteral("CODABAR"));
}

TEST_F(CommandEffect, AlignmentEntriesTickOneOfThree)
{
    const std::pair<const char*, int> rows[] = {
        {"cmdACenter", 2}, {"cmdARight", 1}, {"cmdALeft", 0}};
    for (const auto& [chosen, alignment] : rows) {
        Station.Choose(chosen);
        EXPECT_EQ(Find(Family::lbl_DATA).Alignment, alignment);
        for (const auto& [name, unused] : rows)
            EXPECT_EQ(Station.Get<QAction>(name).isChecked(), qstrcmp(name, chosen) == 0) << name;
    }
}

TEST_F(CommandEffect, TextColourAndFontChangeTheSelectedText)
{
    CardObject& text = Find(Family::lbl_TEXT);
    Select(text);
    Station.Operator.Inputs = {QStringLiteral("Guest")};
    Station.Choose("cmdAdjustText");
    EXPECT_EQ(text.Caption(), QStringLiteral("Guest"));
    Station.Operator.Colors = {0xFF, 0xFF00};
    Station.Choose("cmdAdjustTextColor");
    EXPECT_EQ(text.ForeColor, 0xFF);
    Station.Choose("cmdForeColor");
    EXPECT_EQ(text.ForeColor, 0xFF00);
    const Font font{QStringLiteral("DejaVu Sans"), 14, true, false, false, false};
    Station.Operator.Fonts = {font};
    Station.Choose("cmdSetFont");
    EXPECT_EQ(text.Font(), font);
}

TEST_F(CommandEffect, VisibleOnCardTogglesItsTick)
{
    const auto& entry = Station.Get<QAction>("cmdVisibleOnCard");
    Station.Choose("cmdVisibleOnCard");
    EXPECT_TRUE(entry.isChecked());
    Station.Choose("cmdVisibleOnCard");
    EXPECT_FALSE(entry.isChecked());
}

TEST_F(CommandEffect, TheFieldListShowsTheRecordAndGivesAValueToTheField)
{
    QStringList record;
    for (int number = 1; number <= 10; ++number)
        record.append(QStringLiteral("A&%1").arg(number));
    SetRecord(Station.Session, record);
    BuildFieldMenu(Station.Session.Face, Station.Session.FieldValues);
    auto& list = Station.Get<QMenu>("mnuDataFields");
    list.popup({});
    // A single ampersand would mark a mnemonic, so a caption doubles it.
    EXPECT_EQ(Station.Get<QAction>("cmdField(9)").text(),
              QStringLiteral("Data Field 9        =      A&&9"));
    EXPECT_EQ(Station.Get<QAction>("cmdField(10)").text(),
              QStringLiteral("Data Field 10      =      A&&10"));
    EXPECT_FALSE(Station.Get<QAction>("sData").isVisible());
    Station.Choose("cmdField(10)");
    EXPECT_EQ(Find(Family::lbl_DATA).DataField, QStringLiteral("10"));
    EXPECT_EQ(Find(Family::lbl_DATA).Caption(), QStringLiteral("A&10"));
    SetRecord(Station.Session, {QStringLiteral("B")});
    BuildFieldMenu(Station.Session.Face, Station.Session.FieldValues);
    ASSERT_TRUE(list.isVisible());
    EXPECT_EQ(Station.Window.findChild<QAction*>(QStringLiteral("cmdField(2)")), nullptr);
    EXPECT_TRUE(Station.Get<QAction>("sData").isVisible());
    Station.Choose("cmdField(1)");
    EXPECT_EQ(Find(Family::lbl_DATA).Caption(), QStringLiteral("B"));
    list.close();
}

TEST_F(CommandEffect, AListOfManyLongValuesIsShownInPartWhenItOpens)
{
    auto& list = Station.Get<QMenu>("mnuDataFields");
    const auto before = list.actions().size();
    SetRecord(Station.Session, QStringList(100'000, QString(5000, QLatin1Char('A'))));
    BuildFieldMenu(Station.Session.Face, Station.Session.FieldValues);
    EXPECT_EQ(list.actions().size(), before) << "nobody looks";
    list.popup({});
    EXPECT_EQ(list.actions().size(), before + 1000);
    EXPECT_LT(Station.Get<QAction>("cmdField(1000)").text().size(), 2100);
    list.close();
}

TEST_F(CommandEffect, TheFieldViewerOpensTheList)
{
    auto& list = Station.Get<QMenu>("mnuDataFields");
    Station.Choose("cmdFieldData");
    EXPECT_TRUE(EventsUntil([&] { return list.isVisible(); }));
    EXPECT_EQ(Station.Session.Document.SelectedFamily, QString());
    list.close();
}

TEST_F(CommandEffect, EachPopUpOpensItsMenu)
{
    const std::pair<PopUp, const char*> rows[] = {{PopUp::mnuFile, "mnuFile"},
                                                  {PopUp::mnuProperties, "mnuProperties"},
                                                  {PopUp::mnuDataFields, "mnuDataFields"},
                                                  {PopUp::mnuBack, "mnuBack"},
                                                  {PopUp::mnuAutoNumber, "mnuAutoNumber"}};
    for (const auto& [popUp, name] : rows) {
        Station.Session.Face.AskPopUp(popUp);
        auto& menu = Station.Get<QMenu>(name);
        EXPECT_TRUE(menu.isVisible()) << name;
        menu.close();
    }
}

TEST_F(CommandEffect, EntriesFollowTheFaceOfTheStation)
{
    StationFace& face = Station.Session.Face;
    const std::pair<ObjectEntry, const char*> rows[] = {
        {ObjectEntry::cmdSetFont, "cmdSetFont"},
        {ObjectEntry::cmdAdjustText, "cmdAdjustText"},
        {ObjectEntry::cmdFilters, "cmdFilters"},
        {ObjectEntry::cmdPreSuffix, "cmdPreSuffix"},
        {ObjectEntry::cmdAdjustTextColor, "cmdAdjustTextColor"},
        {ObjectEntry::fe4fy, "fe4fy"},
        {ObjectEntry::mnuCheckDigits, "mnuCheckDigits"},
        {ObjectEntry::ggd56456, "ggd56456"},
        {ObjectEntry::mnuDataFields, "mnuDataFields"},
        {ObjectEntry::mnuImage, "mnuImage"},
        {ObjectEntry::cmdChooseImage, "cmdChooseImage"},
        {ObjectEntry::s250, "s250"},
        {ObjectEntry::mnuAlighment, "mnuAlighment"},
        {ObjectEntry::mnuColors, "mnuColors"}};
    EXPECT_EQ(std::size(rows), static_cast<std::size_t>(ObjectEntryCount));
    for (const auto& [entry, name] : rows) {
        const auto* menu = Station.Window.findChild<QMenu*>(QLatin1StringView(name));
        const QAction& action = menu != nullptr ? *menu->menuAction() : Station.Get<QAction>(name);
        for (const bool visible : {false, true}) {
            face.SetEntryVisible(entry, visible);
            EXPECT_EQ(action.isVisible(), visible) << name;
        }
    }
    const QAction& properties = *Station.Get<QMenu>("mnuProperties").menuAction();
    face.SetPropertiesEnabled(false);
    EXPECT_FALSE(properties.isEnabled());
    face.SetPropertiesEnabled(true);
    EXPECT_TRUE(properties.isEnabled());
}

} // namespace
} // namespace vantrel::test
