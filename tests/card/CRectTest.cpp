#include "card/CRect.h"
#include "card/CardObject.h"
#include <gtest/gtest.h>
#include <limits>

namespace vantrel::test {
namespace {

CRect Sides(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom)
{
    CRect rectangle;
    rectangle.Left = left;
    rectangle.Top = top;
    rectangle.Right = right;
    rectangle.Bottom = bottom;
    return rectangle;
}

TEST(CRect, WidthAndHeightMoveTheFarSides)
{
    CRect rectangle = Sides(10, 20, 0, 0);
    rectangle.SetWidth(30);
    rectangle.SetHeight(40);
    EXPECT_EQ(rectangle, Sides(10, 20, 40, 60));
    EXPECT_EQ(rectangle.Width(), 30);
    EXPECT_EQ(rectangle.Height(), 40);
}

TEST(CRect, TakesTheBoxOfAnObjectInWholeTwips)
{
    CardObject object(Family::lbl_DATA, 1);
    object.Left = 100.5F;
    object.Top = 201.5F;
    object.Width = 300.25F;
    object.Height = 99.5F;
    CRect rectangle;
    rectangle.SetRectToCtrl(object);
    EXPECT_EQ(rectangle, Sides(100, 202, 401, 301));
}

TEST(CRect, ALengthThatDoesNotFitLeavesItsSideUnchanged)
{
    CardObject object(Family::lbl_DATA, 1);
    object.Left = 1e30F;
    object.Top = 5;
    CRect rectangle = Sides(1, 2, 3, 4);
    rectangle.SetRectToCtrl(object);
    EXPECT_EQ(rectangle, Sides(1, 5, 3, 5));
}

TEST(CRect, GivesAnObjectItsBoxTheRightWayRound)
{
    CardObject object(Family::img_LXV, 1);
    CRect rectangle = Sides(400, 700, 100, 200);
    rectangle.SetCtrlToRect(object);
    EXPECT_EQ(object.Left, 100);
    EXPECT_EQ(object.Top, 200);
    EXPECT_EQ(object.Width, 300);
    EXPECT_EQ(object.Height, 500);
    EXPECT_EQ(rectangle.Flags, CRect::SwappedX | CRect::SwappedY);
}

struct NormalRow
{
    CRect Before;
    CRect After;
    std::uint32_t Flags;
};

TEST(CRect, NormalizesOnlyTheSidesThatAreSwapped)
{
    const NormalRow rows[] = {
        {Sides(1, 2, 3, 4), Sides(1, 2, 3, 4), 0},
        {Sides(3, 2, 1, 4), Sides(1, 2, 3, 4), CRect::SwappedX},
        {Sides(1, 4, 3, 2), Sides(1, 2, 3, 4), CRect::SwappedY},
        {Sides(5, 5, 5, 5), Sides(5, 5, 5, 5), 0},
    };
    for (NormalRow row : rows) {
        row.Before.NormalizeRect();
        row.After.Flags = row.Flags;
        EXPECT_EQ(row.Before, row.After);
    }
}

TEST(CRect, ConvertsByTheHorizontalFactorOnBothAxes)
{
    const FormOnScreen form{100, 50, 15, 20};
    CRect rectangle = Sides(300, 150, 4500, 307);
    rectangle.TwipsToScreen(form);
    // 307 twips are 20.47 pixels of 15 twips; the vertical factor has no influence.
    EXPECT_EQ(rectangle, Sides(120, 60, 400, 70));
    rectangle.ScreenToTwips(form);
    EXPECT_EQ(rectangle, Sides(300, 150, 4500, 300));
}

TEST(CRect, ConvertsAtEveryScale)
{
    for (const double twipsPerPixel : {15.0, 12.0, 7.5}) {
        const FormOnScreen form{-40, 7, twipsPerPixel, twipsPerPixel};
        CRect rectangle = Sides(600, 1200, 3060, 4860);
        rectangle.TwipsToScreen(form);
        EXPECT_EQ(rectangle.Left, static_cast<int>(600 / twipsPerPixel) - 40);
        rectangle.ScreenToTwips(form);
        EXPECT_EQ(rectangle, Sides(600, 1200, 3060, 4860)) << twipsPerPixel;
    }
}

TEST(CRect, PointsOnTheNearSidesAreInside)
{
    const CRect rectangle = Sides(10, 20, 30, 40);
    EXPECT_TRUE(rectangle.PtInRect(10, 20));
    EXPECT_TRUE(rectangle.PtInRect(29.9F, 39.9F));
    EXPECT_FALSE(rectangle.PtInRect(30, 25));
    EXPECT_FALSE(rectangle.PtInRect(15, 40));
    EXPECT_FALSE(rectangle.PtInRect(9.9F, 25));
    EXPECT_FALSE(Sides(30, 20, 10, 40).PtInRect(15, 25));
}

} // namespace
} // namespace vantrel::test
