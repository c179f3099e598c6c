#include "station/layout/DesignSnap.h"
#include "card/ObjectArrange.h"
#include "station/layout/DesignSelection.h"
#include "support/Layouts.h"
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

/// A form on the screen at some scale, and a pointer that a test moves.
class ScaledScreen : public DesignScreen
{
public:
    Point Cursor() const override { return Pointer; }
    FormOnScreen Form() const override { return {200, 100, TwipsPerPixel, TwipsPerPixel}; }
    void InvertOutline(const CRect& /*rectangle*/) override {}
    void CaptureMouse() override {}
    void ReleaseMouse() override {}
    void UpdateForm() override {}
    void CloseSizeDialog() override {}

    Point Pointer;
    double TwipsPerPixel = 15;
};

/// A text of odd sizes that is dragged, and a field that it may snap to.
class SnappedDrag : public ::testing::Test
{
protected:
    SnappedDrag()
    {
        Station.WithDatabase();
        BeginLayout(Station.Session, QStringLiteral("Badge"));
        AddText(Station.Session, QStringLiteral("Visitor"), {307, 401, 303, 1501});
        AddField(Station.Session, 1, {2007, 1011, 300, 900});
    }
    CardDocument& Document() { return Station.Session.Document; }
    CardObject& Text() { return *Document().Find(Family::lbl_TEXT, 1); }
    /// The pixel of the screen at so many twips of the card.
    DesignScreen::Point At(double left, double top) const
    {
        return {200 + static_cast<int>(left / Screen.TwipsPerPixel),
                100 + static_cast<int>(top / Screen.TwipsPerPixel)};
    }
    void Press()
    {
        Screen.Pointer = At(700, 400);
        PressOneOfSeveral(Document(), Station.Session.Face, Screen, Text(), MouseButton::Left,
                          ShiftState::None, false);
        Snap.emplace(Document());
    }
    void PressGrip(int grip, DesignScreen::Point at)
    {
        Screen.Pointer = at;
        PressHandle(Document(), Screen, grip);
        Snap.emplace(Document());
    }
    void MoveBy(int across, int down, bool snaps = true)
    {
        Screen.Pointer = {Screen.Pointer.X + across, Screen.Pointer.Y + down};
        if (snaps)
            Screen.Pointer = Snap->Aim(Document(), Screen.Form(), Screen.Pointer);
        else
            Snap->LetGo();
        MoveMouse(Document(), Screen);
    }
    void Release()
    {
        ReleaseSeveral(Document(), Station.Session.Face, Screen, MouseButton::Left, &*Snap);
    }

    TestSession Station;
    ScaledScreen Screen;
    std::optional<DesignSnap> Snap;
};

TEST_F(SnappedDrag, PutsTheSideExactlyOnTheLineAndKeepsTheSize)
{
    Press();
    MoveBy(41, 20);
    ASSERT_TRUE(Snap->Upright());
    EXPECT_EQ(Snap->Upright()->Line.Place, 1011);
    EXPECT_FALSE(Snap->Level());
    Release();
    EXPECT_EQ(Text().Left, 1011);
    EXPECT_EQ(Text().Width, 1501);
    // The other axis goes in whole pixels, as ever.
    EXPECT_EQ(static_cast<int>(Text().Top) % 15, 0);
}

TEST_F(SnappedDrag, WithoutALineADragIsTheUnscaledOne)
{
    Press();
    MoveBy(41, 20, false);
    Release();
    const CardObject snapped = Text();
    Text().Left = 401;
    Text().Top = 307;
    Text().Width = 1501;
    Text().Height = 303;
    Screen.Pointer = At(700, 400);
    PressObject(Document(), Station.Session.Face, Screen, Text(), MouseButton::Left,
                ShiftState::None);
    Screen.Pointer = {Screen.Pointer.X + 41, Screen.Pointer.Y + 20};
    MoveMouse(Document(), Screen);
    ReleaseButton(Document(), Station.Session.Face, Screen, MouseButton::Left);
    EXPECT_EQ(Text().Left, snapped.Left);
    EXPECT_EQ(Text().Top, snapped.Top);
    EXPECT_EQ(Text().Width, snapped.Width);
    EXPECT_EQ(Text().Height, snapped.Height);
}

TEST_F(SnappedDrag, AtAnotherScaleOnlyThePlaceChanges)
{
    for (const double scale : {60.0, 7.5, 1.875}) {
        SCOPED_TRACE(scale);
        Text().Left = 401;
        Text().Top = 307;
        Screen.TwipsPerPixel = scale;
        Press();
        MoveBy(7, 3, false);
        Release();
        EXPECT_NEAR(Text().Left, 401 + 7 * scale, 0.5);
        EXPECT_NEAR(Text().Top, 307 + 3 * scale, 0.5);
        EXPECT_EQ(Text().Width, 1501);
        EXPECT_EQ(Text().Height, 303);
    }
}

TEST_F(SnappedDrag, APressAloneChangesNothingAtAnyScale)
{
    for (const double scale : {60.0, 15.0, 1.875}) {
        Screen.TwipsPerPixel = scale;
        Press();
        MoveBy(0, 0, false);
        Release();
        EXPECT_EQ(Text().Left, 401);
        EXPECT_EQ(Text().Top, 307);
        EXPECT_EQ(Text().Width, 1501);
    }
}

TEST_F(SnappedDrag, AGripPutsItsSideOnTheLineAndLeavesTheOther)
{
    for (const double scale : {15.0, 3.75}) {
        SCOPED_TRACE(scale);
        Text().Left = 401;
        Text().Width = 1501;
        Screen.TwipsPerPixel = scale;
        Press();
        Release();
        // The left side, from 401 to near 1011.
        PressGrip(7, At(1011 + scale, 400));
        MoveBy(0, 0);
        ASSERT_TRUE(Snap->Upright());
        EXPECT_FALSE(Snap->Level());
        Release();
        EXPECT_EQ(Text().Left, 1011);
        EXPECT_EQ(Text().Left + Text().Width, 1902);
    }
}

TEST_F(SnappedDrag, AGripDraggedPastTheOtherSideTurnsTheBox)
{
    Screen.TwipsPerPixel = 3.75;
    Press();
    Release();
    PressGrip(7, At(2400, 400));
    MoveBy(0, 0, false);
    Release();
    EXPECT_EQ(Text().Left, 1902);
    EXPECT_NEAR(Text().Width, 2400 - 1902, 4);
}

TEST_F(SnappedDrag, WhatIsSelectedWithItGoesTheSameWay)
{
    AddText(Station.Session, QStringLiteral("Guest"), {3000, 411, 300, 1500});
    CardObject& other = *Document().Find(Family::lbl_TEXT, 2);
    SelectObjects(Document(), Station.Session.Face, {&other, &Text()});
    Press();
    MoveBy(41, 0);
    Release();
    EXPECT_EQ(Text().Left, 1011);
    EXPECT_EQ(other.Left, 411 + 1011 - 401);
}

TEST(SidesOfGrips, AreThoseOfTheCornerOrTheSideWhereTheGripIs)
{
    const GripSides expected[] = {{-1, -1}, {0, -1}, {1, -1}, {1, 0},
                                  {1, 1},   {0, 1},  {-1, 1}, {-1, 0}};
    for (int grip = 0; grip < 8; ++grip) {
        EXPECT_EQ(SidesOfGrip(grip).Across, expected[grip].Across) << grip;
        EXPECT_EQ(SidesOfGrip(grip).Down, expected[grip].Down) << grip;
    }
}

} // namespace
} // namespace vantrel::test
