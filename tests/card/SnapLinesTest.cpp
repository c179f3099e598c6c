#include "card/SnapLines.h"
#include "card/CardDocument.h"
#include <algorithm>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

CardObject& AddBox(CardDocument& document, float left, float top, float width, float height)
{
    CardObject& object = document.Add(Family::lbl_TEXT);
    object.Left = left;
    object.Top = top;
    object.Width = width;
    object.Height = height;
    object.Visible = true;
    return object;
}

class SnapLinesOfAPage : public ::testing::Test
{
protected:
    SnapLinesOfAPage()
    {
        Document.Load();
        Document.Width = 3060;
        Document.Height = 4860;
    }
    std::optional<SnapHit> Upright(double begin, double length, double reach = 60) const
    {
        return NearestLine(LinesToSnapTo(Document).Upright, begin, length, SnapShares, reach);
    }

    CardDocument Document;
};

TEST_F(SnapLinesOfAPage, AreTheSidesAndMiddlesOfTheCardAndOfItsObjects)
{
    AddBox(Document, 400, 900, 1500, 300);
    const SnapLines lines = LinesToSnapTo(Document);
    EXPECT_EQ(lines.Upright, (std::vector<SnapLine>{{0, 0, 4860},
                                                    {1530, 0, 4860},
                                                    {3060, 0, 4860},
                                                    {400, 900, 1200},
                                                    {1150, 900, 1200},
                                                    {1900, 900, 1200}}));
    EXPECT_EQ(lines.Level, (std::vector<SnapLine>{{0, 0, 3060},
                                                  {2430, 0, 3060},
                                                  {4860, 0, 3060},
                                                  {900, 400, 1900},
                                                  {1050, 400, 1900},
                                                  {1200, 400, 1900}}));
}

TEST_F(SnapLinesOfAPage, AreNotThoseOfWhatIsSelectedOrHidden)
{
    CardObject& first = AddBox(Document, 400, 900, 1500, 300);
    CardObject& second = AddBox(Document, 500, 1900, 1500, 300);
    AddBox(Document, 600, 2900, 1500, 300).Visible = false;
    Document.SelectedObject = &first;
    Document.AlsoSelected = {&second};
    EXPECT_EQ(LinesToSnapTo(Document).Upright.size(), 3U);
    EXPECT_EQ(LinesToSnapTo(Document).Level.size(), 3U);
}

TEST_F(SnapLinesOfAPage, ALengthSnapsWithTheNearestOfItsSidesAndItsMiddle)
{
    AddBox(Document, 400, 900, 1500, 300);
    const auto left = Upright(430, 600);
    ASSERT_TRUE(left);
    EXPECT_EQ(left->Line.Place, 400);
    EXPECT_EQ(left->Share, 0);
    const auto middle = Upright(1220, 600);
    ASSERT_TRUE(middle);
    EXPECT_EQ(middle->Line.Place, 1530);
    EXPECT_EQ(middle->Share, 0.5);
    const auto right = Upright(2380, 700);
    ASSERT_TRUE(right);
    EXPECT_EQ(right->Line.Place, 3060);
    EXPECT_EQ(right->Share, 1);
    EXPECT_FALSE(Upright(500, 400));
}

TEST_F(SnapLinesOfAPage, TheReachIsIncludedAndNothingBeyondIt)
{
    EXPECT_TRUE(Upright(60, 100));
    EXPECT_FALSE(Upright(61, 100));
    EXPECT_TRUE(Upright(-60, 100));
    EXPECT_TRUE(Upright(0, 100, 0));
    EXPECT_FALSE(Upright(1, 100, 0));
}

TEST_F(SnapLinesOfAPage, LinesAtOnePlaceReachOverAllTheirObjects)
{
    AddBox(Document, 400, 900, 1500, 300);
    AddBox(Document, 400, 2900, 500, 400);
    AddBox(Document, 402, 4000, 500, 400);
    const auto hit = Upright(400, 100);
    ASSERT_TRUE(hit);
    EXPECT_EQ(hit->Line, (SnapLine{400, 900, 3300}));
}

TEST_F(SnapLinesOfAPage, OnlyTheGivenPartsOfALengthSnap)
{
    const double end[] = {1};
    const SnapLines lines = LinesToSnapTo(Document);
    EXPECT_FALSE(NearestLine(lines.Upright, 0, 700, end, 60));
    EXPECT_TRUE(NearestLine(lines.Upright, 0, 1500, end, 60));
    EXPECT_FALSE(NearestLine({}, 0, 1500, end, 60));
}

} // namespace
} // namespace vantrel::test
