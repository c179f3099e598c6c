#include "station/layout/ObjectMenu.h"
#include "support/Layouts.h"
#include <gtest/gtest.h>
#include <set>

namespace vantrel::test {
namespace {

class MenuStation : public TestSession
{
public:
    MenuStation()
    {
        WithDatabase();
        BeginLayout(Session, QStringLiteral("Badge"));
        AddField(Session, 1);
        AddText(Session, QStringLiteral("Visitor"));
        AddNumber(Session, 7);
        AddImage(Session, QString());
    }

    void Show(Family family)
    {
        Session.Document.SelectedFamily = FamilyName(family);
        UpdateObjectMenu(Session.Face, Session.Document, Object(family));
    }
    CardObject& Object(Family family) { return *Session.Document.Find(family, 1); }
    std::set<ObjectEntry> Visible() const
    {
        std::set<ObjectEntry> visible;
        for (int entry = 0; entry < ObjectEntryCount; ++entry) {
            if (Session.Face.IsEntryVisible(static_cast<ObjectEntry>(entry)))
                visible.insert(static_cast<ObjectEntry>(entry));
        }
        return visible;
    }
    std::set<Tick> Ticked() const
    {
        std::set<Tick> ticked;
        for (int tick = 0; tick < TickCount; ++tick) {
            if (Session.Face.IsTicked(static_cast<Tick>(tick)))
                ticked.insert(static_cast<Tick>(tick));
        }
        return ticked;
    }
    std::set<Tick> TickedFor(const char* word)
    {
        Object(Family::lbl_DATA).DataMember = QLatin1StringView(word);
        Show(Family::lbl_DATA);
        std::set<Tick> ticked = Ticked();
        for (const Tick alignment : {Tick::cmdALeft, Tick::cmdARight, Tick::cmdACenter})
            ticked.erase(alignment);
        return ticked;
    }
};

using E = ObjectEntry;

TEST(ObjectMenu, AnImageShowsItsOwnCommandsOnly)
{
    MenuStation station;
    station.Show(Family::img_LXV);
    EXPECT_EQ(station.Visible(), (std::set<E>{E::mnuImage, E::cmdChooseImage}));
    station.Object(Family::img_LXV).Tag = Marker::Camera;
    station.Show(Family::img_LXV);
    EXPECT_EQ(station.Visible(), (std::set<E>{E::mnuImage}));
}

TEST(ObjectMenu, AFieldShowsWhatShapesItsValue)
{
    MenuStation station;
    for (const Family family : {Family::lbl_DATA, Family::lbl_AUTO}) {
        station.Show(Family::img_LXV);
        station.Show(family);
        EXPECT_EQ(station.Visible(),
                  (std::set<E>{E::cmdSetFont, E::cmdFilters, E::cmdPreSuffix, E::cmdAdjustTextColor,
                               E::fe4fy, E::mnuCheckDigits, E::ggd56456, E::mnuDataFields,
                               E::cmdChooseImage, E::s250, E::mnuAlighment, E::mnuColors}));
    }
}

TEST(ObjectMenu, AStaticTextKeepsTheRestAsItStood)
{
    MenuStation station;
    station.Show(Family::img_LXV);
    station.Show(Family::lbl_TEXT);
    const std::set<E> afterImage = {E::cmdSetFont,     E::cmdAdjustText, E::cmdPreSuffix,
                                    E::mnuCheckDigits, E::mnuDataFields, E::cmdChooseImage,
                                    E::s250,           E::mnuAlighment,  E::mnuColors};
    EXPECT_EQ(station.Visible(), afterImage);
    station.Show(Family::lbl_DATA);
    station.Show(Family::lbl_TEXT);
    std::set<E> afterField = afterImage;
    afterField.insert({E::cmdAdjustTextColor, E::fe4fy, E::ggd56456});
    EXPECT_EQ(station.Visible(), afterField);
}

TEST(ObjectMenu, TheAlignmentTicksOneOfThree)
{
    MenuStation station;
    const std::pair<std::int16_t, Tick> rows[] = {
        {0, Tick::cmdALeft}, {1, Tick::cmdARight}, {2, Tick::cmdACenter}, {7, Tick::cmdACenter}};
    for (const auto& [alignment, tick] : rows) {
        station.Object(Family::lbl_DATA).Alignment = alignment;
        station.Show(Family::lbl_DATA);
        EXPECT_EQ(station.Ticked(), std::set<Tick>{tick}) << alignment;
    }
}

TEST(ObjectMenu, AStaticTextKeepsTheTicksOfTheObjectBefore)
{
    MenuStation station;
    station.Object(Family::lbl_DATA).Alignment = 1;
    station.Show(Family::lbl_DATA);
    station.Show(Family::lbl_TEXT);
    EXPECT_EQ(station.Ticked(), std::set<Tick>{Tick::cmdARight});
}

TEST(ObjectMenu, TheCheckDigitTicksItsEntries)
{
    MenuStation station;
    EXPECT_EQ(station.TickedFor("MOD10"), std::set<Tick>{Tick::cmdMod10});
    EXPECT_EQ(station.TickedFor("False"), std::set<Tick>());
    EXPECT_EQ(station.TickedFor("CODABAR"),
              (std::set<Tick>{Tick::cmdCodaBar, Tick::cmdAutoCodaBar}));
    EXPECT_EQ(station.TickedFor(""), std::set<Tick>());
    EXPECT_EQ(station.TickedFor("EBT"), (std::set<Tick>{Tick::cmdEBTCheckDigit, Tick::cmdAutoEBT}));
    EXPECT_EQ(station.TickedFor("mod10"), std::set<Tick>());
}

TEST(ObjectMenu, OnlyAnObjectWithoutACheckDigitClearsTheTicks)
{
    MenuStation station;
    station.TickedFor("CODABAR");
    EXPECT_EQ(station.TickedFor("MOD10"),
              (std::set<Tick>{Tick::cmdMod10, Tick::cmdCodaBar, Tick::cmdAutoCodaBar}));
    station.Session.Face.SetTick(Tick::cmdAutoMod10, true);
    EXPECT_EQ(station.TickedFor(""), std::set<Tick>());
}

TEST(ObjectMenu, PropertiesFollowTheSelection)
{
    MenuStation station;
    TickObjectMenu(station.Session.Face, station.Session.Document);
    EXPECT_FALSE(station.Session.Face.PropertiesEnabled());
    station.Session.Document.SelectedObject = &station.Object(Family::lbl_DATA);
    TickObjectMenu(station.Session.Face, station.Session.Document);
    EXPECT_TRUE(station.Session.Face.PropertiesEnabled());
}

} // namespace
} // namespace vantrel::test
