#include "card/StripChars.h"
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

TEST(StripChars, ATextThatLosesNothingForLackOfCharactersIsShared)
{
    const QString text(1'000'000, QLatin1Char('x'));
    EXPECT_EQ(StripChars(QString(), text).constData(), text.constData());
}

TEST(StripChars, ManyCharactersAreRemovedAsFewAre)
{
    QString characters;
    for (char16_t code = u'a'; code <= u'z'; ++code)
        characters += QChar(code);
    EXPECT_EQ(StripChars(characters, QStringLiteral("Card 12-ab\uFFFFc")),
              QStringLiteral("C 12-\uFFFF"));
}

TEST(StripChars, BlanksAreCharactersToo)
{
    EXPECT_EQ(StripChars(QStringLiteral(" "), QStringLiteral(" a b ")), QStringLiteral("ab"));
}

TEST(StripChars, CaseCounts)
{
    EXPECT_EQ(StripChars(QStringLiteral("a"), QStringLiteral("aAbB")), QStringLiteral("AbB"));
}
