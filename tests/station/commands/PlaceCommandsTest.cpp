#include "station/commands/PlaceCommands.h"
#include "station/layout/DesignSelection.h"
#include "station/layout/DesignSteps.h"
#include "support/Layouts.h"
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

/// A text at 400, 300 and a picture at 400, 900, the text selected.
class PlaceCommands : public ::testing::Test
{
protected:
    PlaceCommands()
    {
        Station.Session.Options.DesignTools = true;
        BeginLayout(Station.Session, QStringLiteral("Badge"));
        Text = &AddText(Station.Session, QStringLiteral("Visitor"), {300, 400, 300, 1500});
        Image = &AddImage(Station.Session, QString(), {900, 400, 1500, 1000});
        Select({Text});
        NoteDesign(Station.Session);
    }
    void Select(const std::vector<CardObject*>& objects)
    {
        SelectObjects(Station.Session.Document, Station.Session.Face, objects);
    }
    QString Type(PlaceSide side, const char* text)
    {
        return TypeSelectedSide(Station.Session, side, QString::fromUtf8(text));
    }
    QString Shown(PlaceSide side) { return SelectedSideText(Station.Session, side); }
    int Steps()
    {
        int steps = 0;
        for (; CanUndoDesign(Station.Session); ++steps)
            UndoDesign(Station.Session);
        return steps;
    }

    TestSession Station;
    CardObject* Text;
    CardObject* Image;
};

TEST_F(PlaceCommands, TakeLengthsInTheStationsUnitOrInTheOneTyped)
{
    EXPECT_EQ(Shown(PlaceSide::Left), QStringLiteral("7.06"));
    EXPECT_EQ(Type(PlaceSide::Left, "10"), QString());
    EXPECT_EQ(Text->Left, 567);
    EXPECT_EQ(Shown(PlaceSide::Left), QStringLiteral("10"));
    EXPECT_EQ(Type(PlaceSide::Left, "1 in"), QString());
    EXPECT_EQ(Text->Left, 1440);
    EXPECT_EQ(Type(PlaceSide::Top, "-60 twips"), QString());
    EXPECT_EQ(Text->Top, -60);
    Station.Session.Options.Unit = LengthUnit::Inches;
    EXPECT_EQ(Shown(PlaceSide::Left), QStringLiteral("1"));
    EXPECT_EQ(Type(PlaceSide::Width, "0,5"), QString());
    EXPECT_EQ(Text->Width, 720);
    Station.Session.Options.Unit = LengthUnit::Twips;
    EXPECT_EQ(Type(PlaceSide::Height, "12mm"), QString());
    EXPECT_EQ(Text->Height, 680);
    EXPECT_EQ(Shown(PlaceSide::Height), QStringLiteral("680"));
    EXPECT_EQ(Image->Left, 400);
}

TEST_F(PlaceCommands, EachTypedLengthIsOneStepAndTheSameLengthIsNone)
{
    Type(PlaceSide::Left, "10");
    Type(PlaceSide::Left, "10");
    Type(PlaceSide::Height, "300 twips");
    Type(PlaceSide::Width, "50");
    EXPECT_EQ(Steps(), 2);
    EXPECT_EQ(Text->Left, 400);
    EXPECT_EQ(Text->Width, 1500);
}

TEST_F(PlaceCommands, SayWhatIsWrongAndChangeNothing)
{
    for (const char* text : {"", "wide", "12 ells", "1e5", "--4", "99999999999999999999"})
        EXPECT_TRUE(Type(PlaceSide::Left, text).contains(QStringLiteral("no length"))) << text;
    EXPECT_EQ(Type(PlaceSide::Width, "0"), QStringLiteral("It must be from 0.02 to 1763.89 mm."));
    EXPECT_EQ(Type(PlaceSide::Left, "-9000"),
              QStringLiteral("It must be from -1763.89 to 1763.89 mm."));
    EXPECT_LT(Type(PlaceSide::Left, qPrintable(QString(1000000, u'x'))).size(), 100);
    EXPECT_EQ(Text->Left, 400);
    EXPECT_EQ(Text->Width, 1500);
    EXPECT_EQ(Steps(), 0);
    Select({});
    EXPECT_EQ(Type(PlaceSide::Left, "10"), QStringLiteral("No object is selected."));
}

TEST_F(PlaceCommands, ShowWhatSeveralObjectsShareAndSetItOnAllInOneStep)
{
    Select({Text, Image});
    EXPECT_EQ(Shown(PlaceSide::Left), QStringLiteral("7.06"));
    EXPECT_EQ(Shown(PlaceSide::Top), QString());
    EXPECT_EQ(Type(PlaceSide::Width, "20"), QString());
    EXPECT_EQ(Text->Width, 1134);
    EXPECT_EQ(Image->Width, 1134);
    EXPECT_EQ(Text->Height, 300);
    EXPECT_EQ(Steps(), 1);
    EXPECT_EQ(Text->Width, 1500);
    EXPECT_EQ(Image->Width, 1000);
}

TEST_F(PlaceCommands, StepByTheUnitAndNotOutOfTheRange)
{
    StepSelectedSide(Station.Session, PlaceSide::Left, 1);
    EXPECT_EQ(Shown(PlaceSide::Left), QStringLiteral("7.16"));
    Station.Session.Options.Unit = LengthUnit::Inches;
    StepSelectedSide(Station.Session, PlaceSide::Left, -1);
    EXPECT_EQ(Text->Left, 392);
    Station.Session.Options.Unit = LengthUnit::Twips;
    StepSelectedSide(Station.Session, PlaceSide::Left, -1);
    EXPECT_EQ(Text->Left, 391);
    Text->Height = 2;
    for (int press = 0; press < 5; ++press)
        StepSelectedSide(Station.Session, PlaceSide::Height, -1);
    EXPECT_EQ(Text->Height, 1);
}

TEST_F(PlaceCommands, LeaveADragItsObject)
{
    Station.Session.Document.Drag.Mode = DragMode::Moving;
    EXPECT_NE(Type(PlaceSide::Left, "10"), QString());
    StepSelectedSide(Station.Session, PlaceSide::Left, 1);
    EXPECT_EQ(Text->Left, 400);
}

} // namespace
} // namespace vantrel::test
