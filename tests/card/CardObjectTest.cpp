#include "card/CardObject.h"
#include "base/Failure.h"
#include "support/Print.h"
#include <gtest/gtest.h>

namespace vantrel {

namespace {

struct FamilyCase
{
    const char* Name;
    const char* Type;
    Family Of;
    bool Label;
    bool Image;
};

constexpr FamilyCase FamilyCases[] = {
    {"lbl_DATA", "Label", Family::lbl_DATA, true, false},
    {"lbl_TEXT", "Label", Family::lbl_TEXT, true, false},
    {"lbl_AUTO", "Label", Family::lbl_AUTO, true, false},
    {"img_LXV", "Image", Family::img_LXV, false, true},
    {"img_CAM", "Image", Family::img_CAM, false, true},
    {"picHandle", "PictureBox", Family::picHandle, false, false},
};

TEST(CardObject, KnowsItsFamilyAndItsElementType)
{
    static_assert(std::size(FamilyCases) == FamilyCount);
    for (const FamilyCase& row : FamilyCases) {
        const CardObject object(row.Of, 3);
        EXPECT_EQ(FamilyName(row.Of), QLatin1StringView(row.Name));
        EXPECT_EQ(object.TypeName(), QLatin1StringView(row.Type));
        EXPECT_EQ(object.IsLabel(), row.Label) << row.Name;
        EXPECT_EQ(object.IsImage(), row.Image) << row.Name;
        EXPECT_EQ(object.Index(), 3);
    }
}

TEST(CardObject, OnlyALabelHasAFont)
{
    for (const FamilyCase& row : FamilyCases) {
        CardObject object(row.Of, 1);
        Font font;
        font.Size = 8.25;
        object.SetFont(font);
        if (row.Label) {
            EXPECT_EQ(object.Font(), font);
            continue;
        }
        try {
            static_cast<void>(object.Font());
            FAIL() << row.Name;
        } catch (const Failure& failure) {
            EXPECT_EQ(failure.Number(), FailureNumber::PropertyNotSupported);
        }
    }
}

TEST(CardObject, CountsAsContentUnlessItsTagSaysNotIncluded)
{
    CardObject object(Family::lbl_TEXT, 1);
    EXPECT_TRUE(object.IsContent());
    object.Tag = QStringLiteral("no_incl");
    EXPECT_TRUE(object.IsContent());
    object.Tag = QStringLiteral("NO_INCL");
    EXPECT_FALSE(object.IsContent());
}

TEST(CardObject, FilterRemovesEveryOccurrenceOfEachTagCharacterFromTheCaption)
{
    for (const Family family : {Family::lbl_DATA, Family::lbl_AUTO}) {
        CardObject object(family, 1);
        object.Tag = QStringLiteral("-aa.");
        object.SetCaption(QStringLiteral("a-A.b-a--."));
        EXPECT_EQ(object.Caption(), QStringLiteral("Ab"));
    }
}

TEST(CardObject, FilterActsWhenTheCaptionIsGivenTheTextItHas)
{
    CardObject object(Family::lbl_DATA, 1);
    object.SetCaption(QStringLiteral("1-2"));
    object.Tag = QStringLiteral("-");
    EXPECT_EQ(object.Caption(), QStringLiteral("1-2"));
    object.SetCaption(QString(object.Caption()));
    EXPECT_EQ(object.Caption(), QStringLiteral("12"));
}

TEST(CardObject, StaticTextHasNoFilter)
{
    CardObject object(Family::lbl_TEXT, 1);
    object.Tag = QStringLiteral("a");
    object.SetCaption(QStringLiteral("banana"));
    EXPECT_EQ(object.Caption(), QStringLiteral("banana"));
}

} // namespace

} // namespace vantrel
