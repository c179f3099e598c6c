#include "card/ObjectPlace.h"
#include "card/CardDocument.h"
#include "card/ObjectNames.h"
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

class Placed : public ::testing::Test
{
protected:
    Placed() { Document.Load(); }
    CardObject& Add(Family family, float left, float top, float width, float height)
    {
        CardObject& object = Document.Add(family);
        object.Left = left;
        object.Top = top;
        object.Width = width;
        object.Height = height;
        return object;
    }

    CardDocument Document;
};

TEST_F(Placed, SharedSidesAreThoseThatAllHave)
{
    CardObject& one = Add(Family::lbl_TEXT, 100, 200, 1500, 300);
    CardObject& other = Add(Family::img_LXV, 100, 900, 1500, 1200);
    const std::vector<CardObject*> both{&one, &other};
    EXPECT_EQ(SharedSide(both, PlaceSide::Left), 100.0);
    EXPECT_EQ(SharedSide(both, PlaceSide::Top), std::nullopt);
    EXPECT_EQ(SharedSide(both, PlaceSide::Width), 1500.0);
    EXPECT_EQ(SharedSide(both, PlaceSide::Height), std::nullopt);
    EXPECT_EQ(SharedSide({&other}, PlaceSide::Height), 1200.0);
    EXPECT_EQ(SharedSide({}, PlaceSide::Left), std::nullopt);
}

TEST_F(Placed, ASideIsSetOnEachAndNothingElse)
{
    CardObject& one = Add(Family::lbl_TEXT, 100, 200, 1500, 300);
    CardObject& other = Add(Family::img_LXV, 500, 900, 1000, 1200);
    SetSide({&one, &other}, PlaceSide::Top, 77);
    EXPECT_EQ(one.Top, 77);
    EXPECT_EQ(other.Top, 77);
    EXPECT_EQ(one.Left, 100);
    EXPECT_EQ(other.Width, 1000);
    EXPECT_EQ(other.Height, 1200);
}

TEST(ObjectPlace, APlaceMayBeOutsideTheCardAndASizeIsAtLeastATwip)
{
    for (const PlaceSide side : {PlaceSide::Left, PlaceSide::Top}) {
        EXPECT_TRUE(IsSideAllowed(side, -FarthestPlace));
        EXPECT_FALSE(IsSideAllowed(side, -FarthestPlace - 1));
    }
    for (const PlaceSide side : {PlaceSide::Width, PlaceSide::Height}) {
        EXPECT_TRUE(IsSideAllowed(side, 1));
        EXPECT_FALSE(IsSideAllowed(side, 0));
        EXPECT_FALSE(IsSideAllowed(side, -5));
        EXPECT_TRUE(IsSideAllowed(side, FarthestPlace));
        EXPECT_FALSE(IsSideAllowed(side, FarthestPlace + 1));
    }
}

TEST_F(Placed, ObjectsAreNamedByKindAndByWhatTheyShow)
{
    CardObject& text = Add(Family::lbl_TEXT, 0, 0, 1, 1);
    text.SetCaption(QStringLiteral("Visitor"));
    EXPECT_EQ(ObjectKind(text), QStringLiteral("Static Text"));
    EXPECT_EQ(ObjectText(text), QStringLiteral("Visitor"));
    Font font;
    font.Name = QStringLiteral("Shape Rounded Rectangle");
    text.SetFont(font);
    EXPECT_EQ(ObjectKind(text), QStringLiteral("Rounded Rectangle"));
    CardObject& field = Add(Family::lbl_DATA, 0, 0, 1, 1);
    EXPECT_EQ(ObjectKind(field), QStringLiteral("Data Field"));
    font.Name = QStringLiteral("Barcode QR Code");
    field.SetFont(font);
    EXPECT_EQ(ObjectKind(field), QStringLiteral("Data Field as QR Code"));
    EXPECT_EQ(ObjectKind(Add(Family::lbl_AUTO, 0, 0, 1, 1)), QStringLiteral("AutoNumber Field"));
    CardObject& image = Add(Family::img_LXV, 0, 0, 1, 1);
    EXPECT_EQ(ObjectKind(image), QStringLiteral("Image"));
    EXPECT_EQ(ObjectText(image), QString());
    image.Tag = QStringLiteral("/pictures/of/members/{1}.jpg");
    EXPECT_EQ(ObjectText(image), QStringLiteral("{1}.jpg"));
    CardObject& camera = Add(Family::img_CAM, 0, 0, 1, 1);
    camera.Tag = QStringLiteral("CVIEW");
    EXPECT_EQ(ObjectKind(camera), QStringLiteral("Camera Image"));
    EXPECT_EQ(ObjectText(camera), QString());
}

} // namespace
} // namespace vantrel::test
