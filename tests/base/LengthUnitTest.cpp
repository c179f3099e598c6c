#include "base/LengthUnit.h"
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

constexpr LengthUnit AllUnits[] = {LengthUnit::Millimetres, LengthUnit::Inches, LengthUnit::Twips};

std::optional<std::int32_t> Typed(const char* text, LengthUnit unit = LengthUnit::Millimetres)
{
    return LengthOfText(QString::fromUtf8(text), unit);
}

TEST(LengthUnit, EveryTwipComesBackFromItsText)
{
    for (const LengthUnit unit : AllUnits) {
        for (std::int32_t twips = -3000; twips <= 40000; ++twips) {
            ASSERT_EQ(LengthOfText(LengthText(twips, unit), unit), twips) << twips;
            ASSERT_EQ(LengthOfText(LengthWithUnit(twips, unit), LengthUnit::Twips), twips);
        }
    }
}

TEST(LengthUnit, ALengthIsShownWithNoMoreDecimalsThanItNeeds)
{
    EXPECT_EQ(LengthText(1440, LengthUnit::Millimetres), QStringLiteral("25.4"));
    EXPECT_EQ(LengthText(1440, LengthUnit::Inches), QStringLiteral("1"));
    EXPECT_EQ(LengthText(4860, LengthUnit::Inches), QStringLiteral("3.375"));
    EXPECT_EQ(LengthText(10, LengthUnit::Twips), QStringLiteral("10"));
    EXPECT_EQ(LengthText(20000, LengthUnit::Twips), QStringLiteral("20000"));
    EXPECT_EQ(LengthText(-0.1, LengthUnit::Twips), QStringLiteral("0"));
    EXPECT_EQ(LengthText(-57, LengthUnit::Millimetres), QStringLiteral("-1.01"));
    EXPECT_EQ(LengthWithUnit(1440, LengthUnit::Millimetres), QStringLiteral("25.4 mm"));
    EXPECT_EQ(LengthWithUnit(1440, LengthUnit::Inches), QStringLiteral("1 inch"));
    EXPECT_EQ(LengthWithUnit(1440, LengthUnit::Twips), QStringLiteral("1440 twips"));
}

TEST(LengthUnit, ATypedLengthMayHaveAUnitOfItsOwn)
{
    EXPECT_EQ(Typed("25.4"), 1440);
    EXPECT_EQ(Typed(" 25,4 mm "), 1440);
    EXPECT_EQ(Typed("2.54cm", LengthUnit::Twips), 1440);
    EXPECT_EQ(Typed("1 IN"), 1440);
    EXPECT_EQ(Typed("1 inch"), 1440);
    EXPECT_EQ(Typed("2 inches"), 2880);
    EXPECT_EQ(Typed(".5\""), 720);
    EXPECT_EQ(Typed("12 pt"), 240);
    EXPECT_EQ(Typed("1 twip"), 1);
    EXPECT_EQ(Typed("-300 twips"), -300);
    EXPECT_EQ(Typed("+1.", LengthUnit::Inches), 1440);
    EXPECT_EQ(Typed("7", LengthUnit::Twips), 7);
}

TEST(LengthUnit, WhatIsNoLengthIsRefused)
{
    for (const char* text :
         {"", " ", "mm", "1 furlong", "1 mm mm", "1.2.3", "1 2", "--1", "1-", "1e3", "0x10", "inf",
          "nan", "1 mm 2", ".", "-", "99999999999", "1e999", "3000000 inch"})
        EXPECT_EQ(Typed(text), std::nullopt) << text;
    EXPECT_EQ(LengthOfText(QString(10'000'000, u'9'), LengthUnit::Twips), std::nullopt);
    EXPECT_EQ(LengthOfText(QString(10'000'000, u'm'), LengthUnit::Twips), std::nullopt);
    EXPECT_EQ(
        LengthOfText(QStringLiteral("0.") + QString(10'000'000, u'0') + u'1', LengthUnit::Inches),
        0);
}

} // namespace
} // namespace vantrel::test
