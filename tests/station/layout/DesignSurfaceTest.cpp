#include "station/layout/DesignSurface.h"
#include "base/Failure.h"
#include "card/SizeFields.h"
#include "station/layout/DocumentForm.h"
#include "station/layout/LoadLayout.h"
#include "station/layout/ObjectMenu.h"
#include "support/FailureOf.h"
#include "support/Layouts.h"
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

/// A form at a place on the screen, and a pointer that a test moves.
class TestScreen : public DesignScreen
{
public:
    Point Cursor() const override { return Pointer; }
    FormOnScreen Form() const override { return {200, 100, 15, 15}; }
    void InvertOutline(const CRect& rectangle) override
    {
        if (Band == rectangle)
            Band.reset();
        else
            Band = rectangle;
    }
    void CaptureMouse() override { Captured = true; }
    void ReleaseMouse() override { Captured = false; }
    void UpdateForm() override {}
    void CloseSizeDialog() override { ++SizeDialogsClosed; }

    Point Pointer;
    std::optional<CRect> Band;
    bool Captured = false;
    int SizeDialogsClosed = 0;
};

/// A page with one object of each kind, the field at 40 by 60 pixels of the form, 100 by 20 large.
class DesignStation : public TestSession
{
public:
    DesignStation()
    {
        WithDatabase();
        BeginLayout(Session, QStringLiteral("Badge"));
        AddField(Session, 1, {900, 600, 300, 1500});
        AddText(Session, QStringLiteral("Visitor"), {300, 600, 300, 1500});
        AddNumber(Session, 7, {1500, 600, 300, 1500});
        AddImage(Session, QString(), {2100, 600, 600, 600});
        QObject::connect(&Session.Face, &StationFace::PopUpAsked,
                         [this](PopUp menu) { PopUps.push_back(menu); });
    }

    CardObject& Object(Family family) { return *Session.Document.Find(family, 1); }
    CardObject& Field() { return Object(Family::lbl_DATA); }
    CardObject& Grip(int index) { return *Session.Document.Find(Family::picHandle, index); }
    bool GripsShow()
    {
        for (int grip = 0; grip < 8; ++grip) {
            if (Grip(grip).Visible != Grip(0).Visible)
                ADD_FAILURE() << "grip " << grip;
        }
        return Grip(0).Visible;
    }
    void Press(CardObject& object, MouseButton button = MouseButton::Left,
               ShiftState shift = ShiftState::None)
    {
        PressObject(Session.Document, Session.Face, Screen, object, button, shift);
    }
    void MoveTo(int x, int y)
    {
        Screen.Pointer = {x, y};
        MoveMouse(Session.Document, Screen);
    }
    /// Presses the field and lets it go where it is.
    void SelectField()
    {
        Screen.Pointer = {250, 165};
        Press(Field());
        ReleaseButton(Session.Document, Session.Face, Screen, MouseButton::Left);
    }

    TestScreen Screen;
    std::vector<PopUp> PopUps;
};

void ExpectBox(const CardObject& object, float left, float top, float width, float height)
{
    EXPECT_EQ(object.Left, left);
    EXPECT_EQ(object.Top, top);
    EXPECT_EQ(object.Width, width);
    EXPECT_EQ(object.Height, height);
}

TEST(DesignSurface, APressSelectsAndADragMovesAtTheReleaseOnly)
{
    DesignStation station;
    station.Session.Document.LayoutUnchanged = true;
    station.Screen.Pointer = {250, 165};
    station.Press(station.Field());
    EXPECT_EQ(station.Session.Document.SelectedObject, &station.Field());
    EXPECT_EQ(station.Session.Document.SelectedFamily, QStringLiteral("lbl_DATA"));
    EXPECT_EQ(station.Session.Document.SelectedIndex, 1);
    EXPECT_FALSE(station.Session.Document.LayoutUnchanged);
    EXPECT_TRUE(station.Screen.Captured);
    EXPECT_FALSE(station.GripsShow());
    EXPECT_TRUE(station.Screen.Band.has_value());
    station.MoveTo(260, 185);
    ExpectBox(station.Field(), 600, 900, 1500, 300);
    EXPECT_EQ(station.Screen.Band->Left, 250);
    EXPECT_EQ(station.Screen.Band->Top, 180);
    EXPECT_EQ(station.Screen.Band->Width(), 100);
    ReleaseButton(station.Session.Document, station.Session.Face, station.Screen,
                  MouseButton::Left);
    ExpectBox(station.Field(), 750, 1200, 1500, 300);
    EXPECT_FALSE(station.Screen.Band.has_value());
    EXPECT_FALSE(station.Screen.Captured);
    EXPECT_TRUE(station.GripsShow());
    EXPECT_EQ(station.Session.Document.Drag.Mode, DragMode::None);
}

TEST(DesignSurface, DragsGoInWholePixels)
{
    DesignStation station;
    station.Field().Left = 604;
    station.SelectField();
    // 604 twips lie in pixel 40: a drag moves an object to a whole pixel.
    EXPECT_EQ(station.Field().Left, 600);
}

TEST(DesignSurface, GripsStandAroundTheBox)
{
    DesignStation station;
    station.SelectField();
    // 75 twips are a grip, 37 its half, 8 half a pixel.
    constexpr float lefts[] = {571, 1313, 2055, 2055, 2055, 1313, 571, 571};
    constexpr float tops[] = {871, 871, 871, 1013, 1155, 1155, 1155, 1013};
    for (int grip = 0; grip < 8; ++grip) {
        EXPECT_EQ(station.Grip(grip).Left, lefts[grip]) << grip;
        EXPECT_EQ(station.Grip(grip).Top, tops[grip]) << grip;
        EXPECT_EQ(station.Grip(grip).Width, 75);
        EXPECT_EQ(station.Grip(grip).Height, 75);
    }
}

struct GripRow
{
    GripCursor Cursor;
    /// The result of a move of the pointer to 20 pixels right of the form's corner and 30 below it.
    float Left;
    float Top;
    float Width;
    float Height;
};

TEST(DesignSurface, EachGripMovesItsSides)
{
    constexpr GripRow rows[] = {
        {GripCursor::NorthWest, 300, 450, 1800, 750}, {GripCursor::NorthSouth, 600, 450, 1500, 750},
        {GripCursor::NorthEast, 300, 450, 300, 750},  {GripCursor::EastWest, 300, 900, 300, 300},
        {GripCursor::NorthWest, 300, 450, 300, 450},  {GripCursor::NorthSouth, 600, 450, 1500, 450},
        {GripCursor::NorthEast, 300, 450, 1800, 450}, {GripCursor::EastWest, 300, 900, 1800, 300},
    };
    int grip = 0;
    for (const GripRow& row : rows) {
        DesignStation station;
        station.SelectField();
        EXPECT_EQ(CursorOfGrip(grip), row.Cursor);
        PressHandle(station.Session.Document, station.Screen, grip);
        EXPECT_FALSE(station.GripsShow());
        station.MoveTo(220, 130);
        ReleaseButton(station.Session.Document, station.Session.Face, station.Screen,
                      MouseButton::Left);
        SCOPED_TRACE(grip);
        ExpectBox(station.Field(), row.Left, row.Top, row.Width, row.Height);
        ++grip;
    }
    EXPECT_EQ(grip, 8);
}

TEST(DesignSurface, AGripDraggedPastTheOppositeSideIsPutRightAtRelease)
{
    DesignStation station;
    station.SelectField();
    PressHandle(station.Session.Document, station.Screen, 4);
    station.MoveTo(210, 110);
    EXPECT_LT(station.Screen.Band->Width(), 0);
    EXPECT_LT(station.Screen.Band->Height(), 0);
    ReleaseButton(station.Session.Document, station.Session.Face, station.Screen,
                  MouseButton::Left);
    ExpectBox(station.Field(), 150, 150, 450, 750);
}

TEST(DesignSurface, ShiftSelectsNothingButTheLayoutCountsAsTouched)
{
    DesignStation station;
    station.Session.Document.LayoutUnchanged = true;
    for (const MouseButton button : {MouseButton::Left, MouseButton::Right}) {
        station.Press(station.Field(), button, ShiftState::Held);
        EXPECT_EQ(station.Session.Document.SelectedObject, nullptr);
        EXPECT_EQ(station.Session.Document.Drag.Mode, DragMode::None);
        EXPECT_FALSE(station.Screen.Captured);
        EXPECT_TRUE(station.PopUps.empty());
    }
    EXPECT_FALSE(station.Session.Document.LayoutUnchanged);
}

TEST(DesignSurface, AnotherButtonOpensTheObjectsMenu)
{
    DesignStation station;
    for (const Family family : {Family::lbl_DATA, Family::lbl_TEXT, Family::img_LXV})
        station.Press(station.Object(family), MouseButton::Right);
    station.Press(station.Object(Family::lbl_AUTO), MouseButton::Other);
    EXPECT_EQ(station.PopUps, (std::vector<PopUp>{PopUp::mnuProperties, PopUp::mnuProperties,
                                                  PopUp::mnuProperties, PopUp::mnuAutoNumber}));
    EXPECT_EQ(station.Session.Document.SelectedObject, &station.Object(Family::lbl_AUTO));
    EXPECT_EQ(station.Session.Document.Drag.Mode, DragMode::None);
    EXPECT_TRUE(station.GripsShow());
    EXPECT_EQ(station.Screen.SizeDialogsClosed, 4);
}

TEST(DesignSurface, TheFirstRightPressShowsTheGripsWhereTheyLastStood)
{
    DesignStation station;
    const float before = station.Grip(0).Left;
    station.Press(station.Field(), MouseButton::Right);
    EXPECT_TRUE(station.GripsShow());
    EXPECT_EQ(station.Grip(0).Left, before);
    station.Press(station.Field(), MouseButton::Right);
    EXPECT_EQ(station.Grip(0).Left, 571);
}

TEST(DesignSurface, AReleaseOfTheRightButtonOverTheFormOpensTheDocumentMenu)
{
    DesignStation station;
    ReleaseButton(station.Session.Document, station.Session.Face, station.Screen,
                  MouseButton::Right);
    ReleaseButton(station.Session.Document, station.Session.Face, station.Screen,
                  MouseButton::Left);
    ReleaseButton(station.Session.Document, station.Session.Face, station.Screen,
                  MouseButton::Other);
    EXPECT_EQ(station.PopUps, std::vector<PopUp>{PopUp::mnuData});
}

TEST(DesignSurface, OnlyTheLeftReleaseEndsADrag)
{
    DesignStation station;
    station.Press(station.Field());
    ReleaseButton(station.Session.Document, station.Session.Face, station.Screen,
                  MouseButton::Right);
    EXPECT_EQ(station.Session.Document.Drag.Mode, DragMode::Moving);
    EXPECT_TRUE(station.Screen.Captured);
    ReleaseButton(station.Session.Document, station.Session.Face, station.Screen,
                  MouseButton::Left);
    EXPECT_EQ(station.Session.Document.Drag.Mode, DragMode::None);
}

TEST(DesignSurface, APressOnTheEmptyFormEndsTheSelection)
{
    DesignStation station;
    station.SelectField();
    PressForm(station.Session.Document);
    EXPECT_EQ(station.Session.Document.SelectedObject, nullptr);
    EXPECT_FALSE(station.GripsShow());
}

TEST(DesignSurface, DragEndDropsEverything)
{
    DesignStation station;
    station.Press(station.Field());
    DragEnd(station.Session.Document);
    EXPECT_EQ(station.Session.Document.SelectedObject, nullptr);
    EXPECT_EQ(station.Session.Document.Drag.Mode, DragMode::None);
    EXPECT_FALSE(station.GripsShow());
}

TEST(DesignSurface, ARecordThatReloadsThePageLeavesTheDragWithoutAnObject)
{
    DesignStation station;
    SavePage(station.Session);
    station.Press(station.Field());
    ASSERT_TRUE(LoadLayout(station.Session, QStringLiteral("Badge")));
    station.MoveTo(300, 300);
    ReleaseButton(station.Session.Document, station.Session.Face, station.Screen,
                  MouseButton::Left);
    EXPECT_EQ(station.Session.Document.SelectedObject, nullptr);
    EXPECT_EQ(station.Session.Document.Drag.Mode, DragMode::None);
    EXPECT_FALSE(station.Screen.Band.has_value());
    ExpectBox(station.Field(), 600, 900, 1500, 300);
}

TEST(SizeFields, ChangeByOneTwipAndNotBelowZero)
{
    QString field = QStringLiteral("1");
    StepDown(field);
    EXPECT_EQ(field, QStringLiteral("0"));
    StepDown(field);
    EXPECT_EQ(field, QStringLiteral("0"));
    StepUp(field);
    EXPECT_EQ(field, QStringLiteral("1"));
    field = QStringLiteral("0.5");
    StepDown(field);
    EXPECT_EQ(field, QStringLiteral("0.5"));
    field = QStringLiteral("wide");
    StepUp(field);
    EXPECT_EQ(field, QStringLiteral("1"));
}

TEST(SizeFields, AreAllAppliedToTheSelectedObjectAtOnce)
{
    DesignStation station;
    station.SelectField();
    SizeFields fields = SizeFieldsOfSelected(station.Session.Document);
    EXPECT_EQ(fields, (SizeFields{QStringLiteral("900"), QStringLiteral("600"),
                                  QStringLiteral("300"), QStringLiteral("1500")}));
    fields = {QStringLiteral("901"), QStringLiteral("2"), QStringLiteral("3"), QStringLiteral("4")};
    ApplySizeFields(station.Session.Document, fields);
    ExpectBox(station.Field(), 2, 901, 4, 3);
    EXPECT_EQ(station.Session.Document.Drag.m_DragRect.Top, 901);
    EXPECT_TRUE(station.GripsShow());
}

TEST(SizeFields, NeedAnObject)
{
    DesignStation station;
    EXPECT_EQ(FailureOf([&] { SizeFieldsOfSelected(station.Session.Document); }),
              FailureNumber::ObjectNotSet);
    ApplySizeFields(station.Session.Document, {});
    ExpectBox(station.Field(), 600, 900, 1500, 300);
}

} // namespace
} // namespace vantrel::test
