#include "station/commands/InsertCommands.h"
#include "card/CaptionFigure.h"
#include "station/layout/DrawObjects.h"
#include "support/Layouts.h"
#include <QRectF>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

struct InsertRow
{
    void (*Command)(Session&);
    Family Made;
    float Top, Left, Height, Width;
    const char* DataField;
    const char* Caption;
};

const InsertRow InsertRows[] = {
    {InsertDataField, Family::lbl_DATA, 200, 200, 300, 1500, "1", "Data Field 1"},
    {InsertText, Family::lbl_TEXT, 200, 200, 300, 1500, "", "Static Text 1"},
    {InsertAutoNumber, Family::lbl_AUTO, 200, 200, 300, 1500, "1", "1"},
    {InsertImage, Family::img_LXV, 300, 300, 1500, 1000, "", ""},
    {InsertCameraImage, Family::img_CAM, 300, 300, 2000, 1500, "", ""},
};

TEST(InsertCommands, PutEachObjectAtItsPlaceUnselected)
{
    EXPECT_EQ(std::size(InsertRows), 5U);
    TestSession station;
    BeginLayout(station.Session, QStringLiteral("Badge"));
    const CardDocument& document = station.Session.Document;
    for (const InsertRow& row : InsertRows) {
        row.Command(station.Session);
        const CardObject* made = document.Find(row.Made, 1);
        ASSERT_NE(made, nullptr);
        SCOPED_TRACE(qPrintable(FamilyName(row.Made)));
        EXPECT_EQ(made->Top, row.Top);
        EXPECT_EQ(made->Left, row.Left);
        EXPECT_EQ(made->Height, row.Height);
        EXPECT_EQ(made->Width, row.Width);
        EXPECT_EQ(made->DataField, QLatin1StringView(row.DataField));
        EXPECT_EQ(made->Caption(), QLatin1StringView(row.Caption));
        EXPECT_TRUE(made->Visible);
        if (made->IsLabel()) {
            EXPECT_EQ(made->BackColor, 0xFFFFFF);
            EXPECT_EQ(made->ForeColor, 0);
            EXPECT_EQ(made->BorderStyle, 1);
            EXPECT_EQ(made->Alignment, 0);
            EXPECT_EQ(made->BackStyle, 0);
        }
        EXPECT_EQ(document.SelectedObject, nullptr);
    }
    EXPECT_FALSE(document.Find(Family::img_LXV, 1)->Picture.HasHandle());
    EXPECT_EQ(document.Find(Family::img_LXV, 1)->Tag, QString());
    EXPECT_EQ(document.Find(Family::img_CAM, 1)->Tag, QStringLiteral("CVIEW"));
}

TEST(InsertCommands, WithDesignToolsPutEachObjectInAFreePlaceSelected)
{
    TestSession station;
    station.Session.Options.DesignTools = true;
    BeginLayout(station.Session, QStringLiteral("Badge"));
    const CardDocument& document = station.Session.Document;
    AddText(station.Session, QStringLiteral("Visitor"), {0, 0, 500, 3060});
    const QRectF card(0, 0, document.Width, document.Height);
    std::vector<QRectF> taken{QRectF(0, 0, 3060, 500)};
    for (const InsertRow& row : InsertRows) {
        const int before = document.HighestIndex(row.Made);
        row.Command(station.Session);
        const CardObject* made = document.Find(row.Made, before + 1);
        ASSERT_NE(made, nullptr);
        SCOPED_TRACE(qPrintable(FamilyName(row.Made)));
        EXPECT_EQ(document.SelectedObject, made);
        EXPECT_EQ(document.SelectedFamily, FamilyName(row.Made));
        EXPECT_EQ(made->Height, row.Height);
        EXPECT_EQ(made->Width, row.Width);
        const QRectF box(made->Left, made->Top, made->Width, made->Height);
        EXPECT_TRUE(card.contains(box));
        if (made->IsLabel()) {
            for (const QRectF& other : taken)
                EXPECT_FALSE(box.intersects(other));
        }
        taken.push_back(box);
    }
    EXPECT_TRUE(document.AlsoSelected.empty());
}

TEST(InsertCommands, WithDesignToolsGiveTheNextFreeFieldAndTheNumberBeforeTheFirst)
{
    TestSession station;
    station.Session.Options.DesignTools = true;
    BeginLayout(station.Session, QStringLiteral("Badge"));
    AddField(station.Session, 1);
    AddField(station.Session, 3);
    InsertDataField(station.Session);
    InsertDataField(station.Session);
    const CardDocument& document = station.Session.Document;
    EXPECT_EQ(document.Find(Family::lbl_DATA, 3)->DataField, QStringLiteral("2"));
    EXPECT_EQ(document.Find(Family::lbl_DATA, 4)->DataField, QStringLiteral("4"));
    EXPECT_EQ(document.Find(Family::lbl_DATA, 4)->Caption(), QStringLiteral("Data Field 4"));
    InsertAutoNumber(station.Session);
    EXPECT_EQ(document.Find(Family::lbl_AUTO, 1)->DataField, QStringLiteral("0"));
}

TEST(InsertCommands, MakeAFieldThatIsACodeAndAShape)
{
    TestSession station;
    station.Session.Options.DesignTools = true;
    BeginLayout(station.Session, QStringLiteral("Badge"));
    AddField(station.Session, 1);
    InsertCode(station.Session);
    const CardDocument& document = station.Session.Document;
    const CardObject& code = *document.Find(Family::lbl_DATA, 2);
    EXPECT_EQ(document.SelectedObject, &code);
    EXPECT_EQ(code.Font().Name, QStringLiteral("Barcode QR Code"));
    EXPECT_TRUE(IsFigureFont(code.Font()));
    EXPECT_EQ(code.DataField, QStringLiteral("2"));
    InsertShape(station.Session);
    const CardObject& shape = *document.Find(Family::lbl_TEXT, 1);
    EXPECT_EQ(document.SelectedObject, &shape);
    EXPECT_TRUE(IsShapeFont(shape.Font()));
}

TEST(InsertCommands, LeaveADragItsObject)
{
    TestSession station;
    station.Session.Options.DesignTools = true;
    BeginLayout(station.Session, QStringLiteral("Badge"));
    CardObject& dragged = AddText(station.Session, QStringLiteral("Visitor"));
    station.Session.Document.SelectedObject = &dragged;
    station.Session.Document.Drag.Mode = DragMode::Moving;
    InsertText(station.Session);
    EXPECT_NE(station.Session.Document.Find(Family::lbl_TEXT, 2), nullptr);
    EXPECT_EQ(station.Session.Document.SelectedObject, &dragged);
}

TEST(InsertCommands, DoNothingWithoutALayout)
{
    TestSession station;
    for (const InsertRow& row : InsertRows)
        row.Command(station.Session);
    EXPECT_TRUE(station.Session.Document.Objects().empty());
}

} // namespace
} // namespace vantrel::test
