#include "card/Padding.h"
#include "support/Print.h"
#include <gtest/gtest.h>

using namespace vantrel;

TEST(Padding, PutsThePadTextOnItsSide)
{
    EXPECT_EQ(PadValue(QStringLiteral("1234"), 8, QStringLiteral("0"), 0),
              QStringLiteral("00001234"));
    EXPECT_EQ(PadValue(QStringLiteral("1234"), 8, QStringLiteral("0"), 1),
              QStringLiteral("12340000"));
    EXPECT_EQ(PadValue(QString(), 3, QStringLiteral("0"), 0), QStringLiteral("000"));
}

TEST(Padding, AValueOfTheLengthOrMoreVanishes)
{
    EXPECT_EQ(PadValue(QStringLiteral("1234"), 4, QStringLiteral("0"), 0), QString());
    EXPECT_EQ(PadValue(QStringLiteral("12345"), 4, QStringLiteral("0"), 0), QString());
    EXPECT_EQ(PadValue(QStringLiteral("1"), 0, QStringLiteral("0"), 1), QString());
    EXPECT_EQ(PadValue(QString(), 0, QStringLiteral("0"), 1), QString());
    EXPECT_EQ(PadValue(QStringLiteral("1"), -5, QStringLiteral("0"), 2), QString());
}

TEST(Padding, ALongerPadTextOvershoots)
{
    EXPECT_EQ(PadValue(QStringLiteral("12"), 4, QStringLiteral("ab"), 0), QStringLiteral("abab12"));
    EXPECT_EQ(PadValue(QStringLiteral("12"), 4, QStringLiteral("ab"), 1), QStringLiteral("12abab"));
}

TEST(Padding, AnEmptyPadTextLeavesTheValueUnchanged)
{
    EXPECT_EQ(PadValue(QStringLiteral("12"), 4, QString(), 0), QStringLiteral("12"));
}

TEST(Padding, AnyOtherDirectionLeavesTheValueUnchanged)
{
    for (const int direction : {2, -1, 100000})
        EXPECT_EQ(PadValue(QStringLiteral("1234"), 8, QStringLiteral("0"), direction),
                  QStringLiteral("1234"));
}
