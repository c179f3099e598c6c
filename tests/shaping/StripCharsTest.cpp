#include "shaping/StripChars.h"
#include "support/Print.h"
#include <gtest/gtest.h>

using namespace vantrel;

TEST(StripChars, RemovesEveryOccurrenceOfEachCharacter)
{
    EXPECT_EQ(StripChars(QStringLiteral("-"), QStringLiteral("12-34")), QStringLiteral("1234"));
    EXPECT_EQ(StripChars(QStringLiteral("-."), QStringLiteral("-1.2-.3-")), QStringLiteral("123"));
    EXPECT_EQ(StripChars(QStringLiteral("-"), QStringLiteral("---")), QString());
}

TEST(StripChars, WithoutCharactersNothingIsRemoved)
{
    EXPECT_EQ(StripChars(QString(), QStringLiteral("a b")), QStringLiteral("a b"));
    EXPECT_EQ(StripChars(QStringLiteral("x"), QString()), QString());
}

TEST(StripChars, BlanksAreCharactersToo)
{
    EXPECT_EQ(StripChars(QStringLiteral(" "), QStringLiteral(" a b ")), QStringLiteral("ab"));
}

TEST(StripChars, CaseCounts)
{
    EXPECT_EQ(StripChars(QStringLiteral("a"), QStringLiteral("aAbB")), QStringLiteral("AbB"));
}
