#include "station/imaging/PhotoFrame.h"
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

using Corner = PhotoFrame::Corner;

/// A picture of 400 x 300 pixels for a box that is three wide and four high.
PhotoFrame Portrait()
{
    return {QSize(400, 300), QSizeF(1050, 1400)};
}

void ExpectInside(const PhotoFrame& frame)
{
    constexpr double slack = 1e-6;
    EXPECT_GE(frame.Frame().left(), -slack);
    EXPECT_GE(frame.Frame().top(), -slack);
    EXPECT_LE(frame.Frame().right(), 400 + slack);
    EXPECT_LE(frame.Frame().bottom(), 300 + slack);
    EXPECT_NEAR(frame.Frame().width() / frame.Frame().height(), 0.75, slack);
}

TEST(PhotoFrame, BeginsAsTheLargestInTheMiddle)
{
    EXPECT_EQ(Portrait().Frame(), QRectF(87.5, 0, 225, 300));
    EXPECT_EQ(PhotoFrame(QSize(400, 300), {}).Frame(), QRectF(0, 0, 400, 300));
    EXPECT_EQ(PhotoFrame(QSize(300, 400), QSizeF(400, 200)).Frame(), QRectF(0, 125, 300, 150));
}

TEST(PhotoFrame, WithoutAPictureThereIsNone)
{
    PhotoFrame frame(QSize(), QSizeF(10, 10));
    EXPECT_TRUE(frame.IsEmpty());
    frame.MoveBy({10, 10});
    frame.ScaleBy(2);
    frame.DrawCorner(Corner::TopLeft, {5, 5});
    EXPECT_TRUE(frame.IsEmpty());
    EXPECT_TRUE(frame.PartOf(QImage(), {}).isNull());
}

TEST(PhotoFrame, MovesAsFarAsThePictureReaches)
{
    PhotoFrame frame = Portrait();
    frame.MoveBy({20, 50});
    EXPECT_EQ(frame.Frame(), QRectF(107.5, 0, 225, 300));
    frame.MoveBy({1000, 0});
    EXPECT_EQ(frame.Frame(), QRectF(175, 0, 225, 300));
    frame.MoveMiddleTo({0, 0});
    EXPECT_EQ(frame.Frame(), QRectF(0, 0, 225, 300));
}

TEST(PhotoFrame, IsSizedAboutItsMiddleWithinThePicture)
{
    PhotoFrame frame = Portrait();
    frame.ScaleBy(0.5);
    EXPECT_EQ(frame.Frame(), QRectF(143.75, 75, 112.5, 150));
    frame.MoveBy({-1000, 0});
    frame.ScaleBy(1.5);
    EXPECT_EQ(frame.Frame().left(), 0);
    frame.ScaleBy(100);
    EXPECT_EQ(frame.Frame().size(), QSizeF(225, 300));
    frame.ScaleBy(1e-9);
    EXPECT_EQ(frame.Frame().width(), 16);
    ExpectInside(frame);
}

TEST(PhotoFrame, ACornerIsDrawnWhileTheOneAcrossStays)
{
    PhotoFrame frame = Portrait();
    frame.ScaleBy(0.5);
    const QPointF across = frame.PlaceOf(Corner::TopLeft);
    frame.DrawCorner(Corner::BottomRight, {200, 165});
    EXPECT_EQ(frame.PlaceOf(Corner::TopLeft), across);
    EXPECT_EQ(frame.Frame().size(), QSizeF(67.5, 90));
    ExpectInside(frame);
}

TEST(PhotoFrame, EveryCornerStaysInThePictureWhereverItIsDrawn)
{
    for (const Corner corner :
         {Corner::TopLeft, Corner::TopRight, Corner::BottomLeft, Corner::BottomRight}) {
        for (const double x : {-500.0, 0.0, 190.0, 399.0, 5000.0}) {
            for (const double y : {-500.0, 0.0, 150.0, 299.0, 5000.0}) {
                PhotoFrame frame = Portrait();
                frame.ScaleBy(0.6);
                frame.DrawCorner(corner, {x, y});
                ExpectInside(frame);
            }
        }
    }
}

TEST(PhotoFrame, ThePartHasThePixelsWithinTheFrame)
{
    QImage picture(400, 300, QImage::Format_RGB32);
    for (int y = 0; y < 300; ++y) {
        for (int x = 0; x < 400; ++x)
            picture.setPixel(x, y, qRgb(x % 256, y % 256, x / 256));
    }
    PhotoFrame frame = Portrait();
    frame.ScaleBy(0.4);
    frame.MoveBy({-1000, -1000});
    frame.MoveBy({30, 40});
    EXPECT_EQ(frame.PartOf(picture, {}), picture.copy(30, 40, 90, 120));
    // On a box of 1050 by 1400 twips that is 123 dots to the inch, which is not made smaller.
    EXPECT_EQ(frame.PartOf(picture, {1050, 1400}), picture.copy(30, 40, 90, 120));
    // Six hundred dots to the inch are enough.
    EXPECT_EQ(frame.PartOf(picture, {72, 96}).size(), QSize(30, 40));
}

} // namespace
} // namespace vantrel::test
