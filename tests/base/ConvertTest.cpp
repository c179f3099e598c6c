#include "base/Convert.h"
#include "support/FailureOf.h"
#include "support/Print.h"
#include <gtest/gtest.h>
#include <limits>

using namespace vantrel;
using test::FailureOf;

TEST(Convert, TextsThatAreNumbersAreRecognised)
{
    for (const char* text : {"1", "-1", "+1", " 12 ", "1.5", ".5", "5.", "1E3", "1e-3", "007"})
        EXPECT_TRUE(IsNumeric(QString::fromLatin1(text))) << text;
}

TEST(Convert, TextsThatAreNoNumbersAreRecognised)
{
    for (const char* text : {"", " ", "-", ".", "abc", "1a", "1 2", "--1", "1E", "1E+", "nan",
                             "inf", "0x10", "1,5", "\t1", "1E999"})
        EXPECT_FALSE(IsNumeric(QString::fromLatin1(text))) << text;
    EXPECT_FALSE(IsNumeric(QStringLiteral("\u0663"))); // a digit, but not one of the ten
}

TEST(Convert, DecimalsRoundHalfToEven)
{
    EXPECT_EQ(ToLong(QStringLiteral("0.5")), 0);
    EXPECT_EQ(ToLong(QStringLiteral("1.5")), 2);
    EXPECT_EQ(ToLong(QStringLiteral("2.5")), 2);
    EXPECT_EQ(ToLong(QStringLiteral("-2.5")), -2);
    EXPECT_EQ(ToLong(QStringLiteral("2.51")), 3);
    EXPECT_EQ(RoundHalfToEven(3.5), 4.0);
    EXPECT_EQ(RoundToLong(-0.5), 0);
}

TEST(Convert, RangesEndWhereTheirTypesEnd)
{
    EXPECT_EQ(ToLong(QStringLiteral("2147483647")), 2147483647);
    EXPECT_EQ(ToLong(QStringLiteral("-2147483648")), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(ToInteger(QStringLiteral("32767")), 32767);
    EXPECT_EQ(ToInteger(QStringLiteral("-32768.5")), -32768);
    EXPECT_EQ(ToByte(QStringLiteral("255.4")), 255);
    EXPECT_EQ(ToByte(QStringLiteral("-0.5")), 0);

    EXPECT_EQ(FailureOf([] { ToLong(QStringLiteral("2147483648")); }), FailureNumber::Overflow);
    EXPECT_EQ(FailureOf([] { ToInteger(QStringLiteral("32768")); }), FailureNumber::Overflow);
    EXPECT_EQ(FailureOf([] { ToByte(QStringLiteral("256")); }), FailureNumber::Overflow);
    EXPECT_EQ(FailureOf([] { ToByte(QStringLiteral("-1")); }), FailureNumber::Overflow);
    EXPECT_EQ(FailureOf([] { ToDouble(QStringLiteral("1E999")); }), FailureNumber::Overflow);
    EXPECT_EQ(FailureOf([] { RoundToLong(std::numeric_limits<double>::quiet_NaN()); }),
              FailureNumber::Overflow);
}

TEST(Convert, TextThatIsNoNumberIsAMismatch)
{
    EXPECT_EQ(FailureOf([] { ToLong(QString()); }), FailureNumber::TypeMismatch);
    EXPECT_EQ(FailureOf([] { ToByte(QStringLiteral("12A")); }), FailureNumber::TypeMismatch);
    EXPECT_EQ(FailureOf([] { ToBoolean(QStringLiteral("yes")); }), FailureNumber::TypeMismatch);
    EXPECT_EQ(FailureOf([] { ToBoolean(QString()); }), FailureNumber::TypeMismatch);
}

TEST(Convert, BooleansAreWordsInAnyCaseOrNumbers)
{
    for (const char* text : {"True", "true", " TRUE ", "-1", "1", "0.1"})
        EXPECT_TRUE(ToBoolean(QString::fromLatin1(text))) << text;
    for (const char* text : {"False", "fALSE", "0", "-0", " 0.0 "})
        EXPECT_FALSE(ToBoolean(QString::fromLatin1(text))) << text;
    EXPECT_EQ(BooleanText(true), QStringLiteral("True"));
    EXPECT_EQ(BooleanText(false), QStringLiteral("False"));
}

TEST(Convert, StoreValuesConvertByWhatTheyHold)
{
    EXPECT_EQ(ToLong(QVariant(2.5)), 2);
    EXPECT_EQ(ToLong(QVariant(QStringLiteral(" 7 "))), 7);
    EXPECT_EQ(ToLong(QVariant(QByteArray("7"))), 7);
    EXPECT_EQ(ToLong(QVariant(true)), -1);
    EXPECT_EQ(ToInteger(QVariant(qlonglong{-5})), -5);
    EXPECT_EQ(ToDouble(QVariant(QStringLiteral("1.25"))), 1.25);
    EXPECT_TRUE(ToBoolean(QVariant(5)));
    EXPECT_TRUE(ToBoolean(QVariant(QStringLiteral("True"))));
    EXPECT_FALSE(ToBoolean(QVariant(0)));
    EXPECT_EQ(ToText(QVariant(true)), QStringLiteral("True"));
    EXPECT_EQ(ToText(QVariant(1.5)), QStringLiteral("1.5"));
    EXPECT_EQ(ToText(QVariant(12)), QStringLiteral("12"));
    EXPECT_EQ(ToText(QVariant(QString())), QString());

    EXPECT_EQ(FailureOf([] { ToInteger(QVariant(32768)); }), FailureNumber::Overflow);
    EXPECT_EQ(FailureOf([] { ToLong(QVariant(QStringList())); }), FailureNumber::TypeMismatch);
}

TEST(Convert, ANullFailsUnlessItIsJoinedToTheEmptyText)
{
    const QVariant null;
    EXPECT_EQ(FailureOf([&] { ToLong(null); }), FailureNumber::InvalidUseOfNull);
    EXPECT_EQ(FailureOf([&] { ToInteger(null); }), FailureNumber::InvalidUseOfNull);
    EXPECT_EQ(FailureOf([&] { ToDouble(null); }), FailureNumber::InvalidUseOfNull);
    EXPECT_EQ(FailureOf([&] { ToBoolean(null); }), FailureNumber::InvalidUseOfNull);
    EXPECT_EQ(FailureOf([&] { ToText(null); }), FailureNumber::InvalidUseOfNull);
    EXPECT_EQ(JoinedText(null), QString());
    EXPECT_EQ(JoinedText(QVariant(3)), QStringLiteral("3"));
}

TEST(Convert, ValReadsAsFarAsTheNumberGoes)
{
    struct Row
    {
        const char* Text;
        double Value;
    };
    for (const Row& row : {Row{"", 0}, Row{"abc", 0}, Row{" 12abc", 12}, Row{"1.5.5", 1.5},
                           Row{"-3-", -3}, Row{"1E2x", 100}, Row{"1E", 1}, Row{"&HfFg", 255},
                           Row{"&o178", 15}, Row{"&H", 0}, Row{"12A45", 12}, Row{".", 0}})
        EXPECT_EQ(Val(QString::fromLatin1(row.Text)), row.Value) << row.Text;
}

TEST(Convert, NumbersBecomeTextWithoutExponentUpToFifteenDigits)
{
    struct Row
    {
        double Value;
        const char* Text;
    };
    for (const Row& row :
         {Row{0, "0"}, Row{-0.0, "0"}, Row{1, "1"}, Row{-1.5, "-1.5"}, Row{100, "100"},
          Row{0.1, "0.1"}, Row{1234567.25, "1234567.25"}, Row{999999999999999.0, "999999999999999"},
          Row{100000000000000.0, "100000000000000"}, Row{1E15, "1E+15"}, Row{1.5E20, "1.5E+20"},
          Row{0.000012345, "0.000012345"}, Row{1E-15, "0.000000000000001"}, Row{1E-16, "1E-16"},
          Row{1.0 / 3.0, "0.333333333333333"}})
        EXPECT_EQ(NumberText(row.Value), QString::fromLatin1(row.Text));
}

TEST(Convert, WholeNumbersAreDigitsWithASignAndBlanksAround)
{
    EXPECT_EQ(ToWholeLong(QStringLiteral(" +007 ")), 7);
    EXPECT_EQ(ToWholeLong(QStringLiteral("-2147483648")), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(ToWholeInteger(QStringLiteral("-32768")), -32768);
    for (const char* text : {"", " ", "+", "1.0", "1.", "1E1", "--1", "- 1", "1 2", "&H1", "\t1"}) {
        EXPECT_EQ(FailureOf([&] { ToWholeLong(QString::fromLatin1(text)); }),
                  FailureNumber::TypeMismatch)
            << text;
    }
    EXPECT_EQ(FailureOf([] { ToWholeLong(QStringLiteral("2147483648")); }),
              FailureNumber::Overflow);
    EXPECT_EQ(FailureOf([] { ToWholeInteger(QStringLiteral("32768")); }), FailureNumber::Overflow);
    EXPECT_EQ(FailureOf([] { ToWholeLong(QString(1000, QLatin1Char('9'))); }),
              FailureNumber::Overflow);
}
