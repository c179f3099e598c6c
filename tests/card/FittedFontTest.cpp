#include "card/FittedFont.h"
#include "card/CardObject.h"
#include "card/ObjectExtras.h"
#include "drawing/PageCanvas.h"
#include <gtest/gtest.h>

// Texts that shrink until they fit their box.

namespace vantrel::test {
namespace {

constexpr double Own = 24;
constexpr double Least = 6;

CardObject LabelOf(const QString& caption, float width, float height = 600)
{
    CardObject label(Family::lbl_TEXT, 1);
    label.SetFont({.Name = QStringLiteral("Liberation Sans"), .Size = Own, .Bold = true});
    label.SetCaption(caption);
    label.Width = width;
    label.Height = height;
    SetShrinkTo(label, Least);
    return label;
}

TEST(FittedFont, IsTheOwnFontWhereTheTextFits)
{
    const CardObject label = LabelOf(QStringLiteral("Ada"), 3000);
    EXPECT_EQ(FittedFont(label), label.Font());
}

TEST(FittedFont, IsTheOwnFontOfATextThatKeepsItsSize)
{
    CardObject label = LabelOf(QStringLiteral("Bartholomew Featherstonehaugh"), 3000);
    SetShrinkTo(label, 0);
    EXPECT_TRUE(label.Extras.isEmpty());
    EXPECT_EQ(FittedFont(label), label.Font());
}

TEST(FittedFont, IsTheLargestStepThatFits)
{
    const CardObject label = LabelOf(QStringLiteral("Bartholomew Featherstonehaugh"), 3000);
    Font font = FittedFont(label);
    EXPECT_LT(font.Size, Own);
    EXPECT_GT(font.Size, Least);
    EXPECT_TRUE(FitsBox(label, font));
    font.Size += ShrinkStep;
    EXPECT_FALSE(FitsBox(label, font));
    font.Size = Own;
    EXPECT_EQ(font, label.Font());
}

TEST(FittedFont, FitsTheHeightOfAllLinesToo)
{
    const QString lines = QStringLiteral("Ada\rLovelace\rCambridge");
    const CardObject label = LabelOf(lines, 4000, 900);
    const Font font = FittedFont(label);
    EXPECT_LT(font.Size, Own);
    EXPECT_LE(PageCanvas::TextHeight(lines, font), 900);
}

TEST(FittedFont, IsNeverSmallerThanTheSizeThatIsSet)
{
    const CardObject label = LabelOf(QStringLiteral("Bartholomew Featherstonehaugh"), 300);
    EXPECT_EQ(FittedFont(label).Size, Least);
    EXPECT_FALSE(FitsBox(label, FittedFont(label)));
}

TEST(FittedFont, NeverGrows)
{
    CardObject label = LabelOf(QStringLiteral("Bartholomew Featherstonehaugh"), 300);
    SetShrinkTo(label, Own + 10);
    EXPECT_EQ(FittedFont(label), label.Font());
}

TEST(FittedFont, LeavesFiguresAlone)
{
    CardObject label = LabelOf(QStringLiteral("4711"), 10);
    label.SetFont({.Name = QStringLiteral("Barcode QR Code"), .Size = Own});
    EXPECT_EQ(FittedFont(label), label.Font());
}

TEST(FittedFont, TakesAMillionCharacters)
{
    const CardObject label = LabelOf(QString(1'000'000, QLatin1Char('W')), 3000);
    EXPECT_EQ(FittedFont(label).Size, Least);
}

TEST(ObjectExtras, AreBroughtWithinTheirLimits)
{
    CardObject label(Family::lbl_TEXT, 1);
    EXPECT_EQ(ShrinkToOf(label), 0);
    SetShrinkTo(label, 0.01);
    EXPECT_EQ(ShrinkToOf(label), LeastShrinkTo);
    for (const QJsonValue& stored : {QJsonValue(1e300), QJsonValue(5000)}) {
        label.Extras.insert(ExtraName::ShrinkTo, stored);
        EXPECT_EQ(ShrinkToOf(label), MostShrinkTo);
    }
    for (const QJsonValue& stored :
         {QJsonValue(-1), QJsonValue(QStringLiteral("six")), QJsonValue(QJsonObject())}) {
        label.Extras.insert(ExtraName::ShrinkTo, stored);
        EXPECT_EQ(ShrinkToOf(label), 0);
    }
}

TEST(ObjectExtras, OfOtherStationsAreKept)
{
    CardObject label(Family::lbl_TEXT, 1);
    label.Extras.insert(QStringLiteral("Later"), QStringLiteral("kept"));
    SetShrinkTo(label, 7);
    SetShrinkTo(label, 0);
    EXPECT_EQ(label.Extras, (QJsonObject{{QStringLiteral("Later"), QStringLiteral("kept")}}));
}

} // namespace
} // namespace vantrel::test
