#include "station/commands/InsertCommands.h"
#include "station/layout/DrawObjects.h"
#include "support/Layouts.h"
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

TEST(InsertCommands, DoNothingWithoutALayout)
{
    TestSession station;
    for (const InsertRow& row : InsertRows)
        row.Command(station.Session);
    EXPECT_TRUE(station.Session.Document.Objects().empty());
}

} // namespace
} // namespace vantrel::test
