#include "card/FreePlace.h"
#include "card/CardDocument.h"
#include <algorithm>
#include <gtest/gtest.h>
#include <random>

namespace vantrel::test {
namespace {

/// A bank card, upright.
const QSizeF Card(3060, 4860);
const QSizeF Text(1500, 300);

bool CoversAny(const QPointF& place, const QSizeF& size, const std::vector<QRectF>& taken)
{
    return std::ranges::any_of(
        taken, [&](const QRectF& box) { return box.intersects(QRectF(place, size)); });
}

TEST(FreePlace, IsTheMiddleOfAnEmptyCard)
{
    EXPECT_EQ(FreePlace(Card, {}, Text), QPointF(780, 2280));
}

TEST(FreePlace, IsTheMiddleOfTheLargestRectangleThatIsFree)
{
    // Below a text near the top edge.
    const QPointF below = FreePlace(Card, {QRectF(200, 200, 1500, 280)}, Text);
    EXPECT_EQ(below.x(), 780);
    EXPECT_NEAR(below.y(), 480 + (4860 - 480 - 300) / 2.0, 20);
    // Beside a picture on a card that lies.
    const QPointF beside = FreePlace({4860, 3060}, {QRectF(0, 0, 1860, 3060)}, Text);
    EXPECT_NEAR(beside.x(), 1860 + (3000 - 1500) / 2.0, 20);
    EXPECT_EQ(beside.y(), 1380);
}

TEST(FreePlace, OneAfterTheOtherCoverNothingWhileThereIsRoom)
{
    std::vector<QRectF> taken;
    for (int count = 0; count < 7; ++count) {
        const QPointF place = FreePlace(Card, taken, Text);
        EXPECT_FALSE(CoversAny(place, Text, taken)) << count;
        EXPECT_TRUE(QRectF(QPointF(0, 0), Card).contains(QRectF(place, Text))) << count;
        taken.emplace_back(place, Text);
    }
}

TEST(FreePlace, ThatIsAsLargeAsTheObjectIsTakenExactly)
{
    const std::vector<QRectF> around{QRectF(0, 0, 3060, 1215), QRectF(0, 2430, 3060, 2430)};
    EXPECT_EQ(FreePlace(Card, around, {3060, 1215}), QPointF(0, 1215));
}

TEST(FreePlace, OnAFullCardIsWhereTheObjectCoversTheLeast)
{
    // All of the card is taken, and its lower half twice.
    const std::vector<QRectF> full{QRectF(0, 0, 3060, 2430), QRectF(0, 2430, 3060, 2430),
                                   QRectF(0, 2430, 3060, 2430)};
    const QPointF place = FreePlace(Card, full, Text);
    EXPECT_LE(place.y() + Text.height(), 2430);
    EXPECT_GT(place.y(), 1800) << "among these, the one nearest to the middle";
    EXPECT_NEAR(place.x(), 780, 20);
}

TEST(FreePlace, IsNotTakenByTheBackground)
{
    const std::vector<QRectF> taken{QRectF(-50, -50, 3200, 5000), QRectF(0, 0, 3060, 1215)};
    const QPointF place = FreePlace(Card, taken, Text);
    EXPECT_EQ(place, FreePlace(Card, {QRectF(0, 0, 3060, 1215)}, Text));
    EXPECT_GE(place.y(), 1215);
}

TEST(FreePlace, OfAnObjectLargerThanTheCardBeginsAtItsEdge)
{
    EXPECT_EQ(FreePlace(Card, {}, {4000, 6000}), QPointF(0, 0));
    EXPECT_EQ(FreePlace(Card, {}, {4000, 300}), QPointF(0, 2280));
    EXPECT_EQ(FreePlace({0, 0}, {}, Text), QPointF(0, 0));
}

TEST(FreePlace, IsFoundAmongVeryManyObjectsAndAnywhere)
{
    std::mt19937 random(7);
    std::uniform_real_distribution<double> anywhere(-1e9, 1e9);
    std::vector<QRectF> taken;
    taken.reserve(400000);
    for (int count = 0; count < 200000; ++count)
        taken.emplace_back(anywhere(random), anywhere(random), 500, 500);
    for (int count = 0; count < 200000; ++count)
        taken.emplace_back(count % 3060, 100, 40, 40);
    const QPointF place = FreePlace(Card, taken, Text);
    EXPECT_GE(place.y(), 140);
    EXPECT_TRUE(QRectF(QPointF(0, 0), Card).contains(QRectF(place, Text)));
}

TEST(FreePlace, GoesAroundWhatIsSeenOnThePage)
{
    CardDocument document;
    document.Load();
    document.Width = 3060;
    document.Height = 4860;
    CardObject& picture = document.Add(Family::img_LXV);
    picture.Visible = true;
    picture.Width = 3060;
    picture.Height = 2430;
    CardObject& text = document.Add(Family::lbl_TEXT);
    text.Visible = true;
    text.Width = 1500;
    text.Height = 300;
    MoveToFreePlace(document, text);
    EXPECT_EQ(text.Left, 780);
    EXPECT_NEAR(text.Top, 3495, 20);
}

TEST(NextFreeField, IsTheLowestThatNoFieldShows)
{
    CardDocument document;
    document.Load();
    EXPECT_EQ(NextFreeField(document), 1);
    for (const char* number : {"1", "2", "4", "none"})
        document.Add(Family::lbl_DATA).DataField = QLatin1StringView(number);
    EXPECT_EQ(NextFreeField(document), 3);
    document.Add(Family::lbl_DATA).DataField = QStringLiteral("3");
    EXPECT_EQ(NextFreeField(document), 5);
}

} // namespace
} // namespace vantrel::test
