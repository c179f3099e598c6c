#include "base/Text.h"
#include "base/Failure.h"
#include "support/Print.h"
#include <gtest/gtest.h>

using namespace vantrel;

TEST(Text, OnlyBlanksAreTrimmed)
{
    EXPECT_EQ(TrimBlanks(u"  a b  ").toString(), QStringLiteral("a b"));
    EXPECT_EQ(TrimBlanks(u"\t a\r ").toString(), QStringLiteral("\t a\r"));
    EXPECT_TRUE(TrimBlanks(u"   ").isEmpty());
}

TEST(Text, SearchesCountFromOne)
{
    const QString text = QStringLiteral("abcabc");
    EXPECT_EQ(InStr(1, text, QStringLiteral("abc")), 1);
    EXPECT_EQ(InStr(2, text, QStringLiteral("abc")), 4);
    EXPECT_EQ(InStr(5, text, QStringLiteral("abc")), 0);
    EXPECT_EQ(InStr(1, text, QStringLiteral("ABC")), 0);
}

TEST(Text, TheEmptyTextIsFoundWhereTheSearchStarts)
{
    EXPECT_EQ(InStr(3, QStringLiteral("abc"), QString()), 3);
    EXPECT_EQ(InStr(4, QStringLiteral("abc"), QString()), 0);
    EXPECT_EQ(InStr(1, QString(), QString()), 0);
}

TEST(Text, ACutBeyondTheEndGivesWhatThereIs)
{
    EXPECT_EQ(Mid(QStringLiteral("abc"), 2, 1), QStringLiteral("b"));
    EXPECT_EQ(Mid(QStringLiteral("abc"), 2, 9), QStringLiteral("bc"));
    EXPECT_EQ(Mid(QStringLiteral("abc"), 9, 1), QString());
    EXPECT_EQ(Mid(QStringLiteral("abc"), 1, 0), QString());
}

TEST(Text, PositionsBelowOneAndNegativeLengthsFail)
{
    EXPECT_THROW(InStr(0, QStringLiteral("a"), QStringLiteral("a")), Failure);
    EXPECT_THROW(Mid(QStringLiteral("a"), 0, 1), Failure);
    EXPECT_THROW(Mid(QStringLiteral("a"), 1, -1), Failure);
}

namespace {
QString Replaced(QString text, QStringView wanted, QStringView replacement)
{
    ReplaceText(text, wanted, replacement);
    return text;
}
} // namespace

TEST(Text, ReplacesEveryOccurrenceInOnePass)
{
    EXPECT_EQ(Replaced(QStringLiteral("a   b  c"), u"  ", u" "), QStringLiteral("a  b c"));
    EXPECT_EQ(Replaced(QStringLiteral("<a<b<"), u"<", {}), QStringLiteral("ab"));
    EXPECT_EQ(Replaced(QStringLiteral("aab"), u"ab", u"b"), QStringLiteral("ab"));
    EXPECT_EQ(Replaced(QStringLiteral("axbx"), u"x", u"y"), QStringLiteral("ayby"));
    EXPECT_EQ(Replaced(QStringLiteral("xxx"), u"x", {}), QString());
    EXPECT_EQ(Replaced(QStringLiteral("abc"), u"B", u"x"), QStringLiteral("abc"));
}

TEST(Text, AReplacementLeavesCopiesOfTheTextAlone)
{
    QString text = QStringLiteral("a-b");
    const QString copy = text;
    ReplaceText(text, u"-", {});
    EXPECT_EQ(text, QStringLiteral("ab"));
    EXPECT_EQ(copy, QStringLiteral("a-b"));
}

TEST(Text, TheEmptyTextIsReplacedNowhere)
{
    EXPECT_EQ(Replaced(QStringLiteral("ab"), {}, {}), QStringLiteral("ab"));
}
