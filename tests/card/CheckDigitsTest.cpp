#include "card/CheckDigits.h"
#include "base/Failure.h"
#include "support/FailureOf.h"
#include "support/Print.h"
#include <gtest/gtest.h>
#include <random>

using namespace vantrel;
using vantrel::test::FailureOf;

namespace {

QString Codabar(const char* text)
{
    QString value = QString::fromLatin1(text);
    return CodabarCheckDigit(value);
}

/// On a machine whose decimal separator is the point.
std::int16_t Ebt(const QString& text)
{
    return EbtCheckDigit(text, QLatin1Char('.'));
}

/// Calls `check` with many digit texts of up to `longest` digits.
template <typename Check>
void ForRandomDigits(int longest, Check&& check)
{
    std::mt19937 random(20240607U);
    std::uniform_int_distribution<int> anyLength(0, longest);
    std::uniform_int_distribution<int> anyDigit('0', '9');
    for (int round = 0; round < 5000; ++round) {
        std::string digits(static_cast<std::size_t>(anyLength(random)), '0');
        for (char& digit : digits)
            digit = static_cast<char>(anyDigit(random));
        check(digits);
    }
}

/// The textbook method: from the right, double every second digit, add the digits of the products.
int LuhnDigit(const std::string& payload)
{
    int sum = 0;
    bool doubles = true;
    for (auto digit = payload.rbegin(); digit != payload.rend(); ++digit) {
        const int product = (*digit - '0') * (doubles ? 2 : 1);
        sum += product / 10 + product % 10;
        doubles = !doubles;
    }
    return (10 - sum % 10) % 10;
}

/// The digit that brings a weighted sum up to a multiple of ten.
int ThreeOneDigit(const std::string& digits)
{
    int sum = 0;
    int weight = 3;
    for (const char digit : digits) {
        sum += weight * (digit - '0');
        weight = 4 - weight;
    }
    int digit = 0;
    while ((sum + digit) % 10 != 0)
        ++digit;
    return digit;
}

int DoublingDigit(const std::string& digits)
{
    static constexpr int doubled[] = {0, 2, 4, 6, 8, 1, 3, 5, 7, 9};
    int sum = 0;
    for (std::size_t i = 0; i < digits.size(); ++i)
        sum += i % 2 == 0 ? doubled[digits[i] - '0'] : digits[i] - '0';
    return 10 - sum % 10;
}

} // namespace

TEST(Mod10, WeighsFromTheLeft)
{
    EXPECT_EQ(Mod10CheckDigit(QString()), 0);
    EXPECT_EQ(Mod10CheckDigit(QStringLiteral("1")), 7);
    EXPECT_EQ(Mod10CheckDigit(QStringLiteral("12345")), 7);
    EXPECT_EQ(Mod10CheckDigit(QStringLiteral("01")), 9);
}

TEST(Mod10, TrimsBlanksAtBothEndsOnly)
{
    EXPECT_EQ(Mod10CheckDigit(QStringLiteral(" 123 ")), Mod10CheckDigit(QStringLiteral("123")));
    EXPECT_EQ(Mod10CheckDigit(QStringLiteral("   ")), 0);
    for (const char* text : {"1 2", "12A", "-12", "1.2", "\t12", "12\r"})
        EXPECT_EQ(FailureOf([&] { Mod10CheckDigit(QString::fromLatin1(text)); }),
                  FailureNumber::TypeMismatch)
            << text;
}

TEST(Mod10, AgreesWithAPlainWeightedSum)
{
    ForRandomDigits(40, [](const std::string& digits) {
        ASSERT_EQ(Mod10CheckDigit(QString::fromStdString(digits)), ThreeOneDigit(digits)) << digits;
    });
}

TEST(CodabarDigit, IsTheTextbookOne)
{
    EXPECT_EQ(Codabar("7992739871"), QStringLiteral("3"));
    EXPECT_EQ(Codabar(""), QStringLiteral("0"));
    EXPECT_EQ(Codabar("0"), QStringLiteral("0"));
    EXPECT_EQ(Codabar("5"), QStringLiteral("9"));
}

TEST(CodabarDigit, TakesEveryBlankOutOfTheCallersText)
{
    QString text = QStringLiteral(" 7992 7398 71 ");
    EXPECT_EQ(CodabarCheckDigit(text), QStringLiteral("3"));
    EXPECT_EQ(text, QStringLiteral("7992739871"));
}

TEST(CodabarDigit, ANonDigitNeverFails)
{
    // 1 and A are doubled: the reading stops at A, and 2 is not doubled.
    EXPECT_EQ(Codabar("12A"), QStringLiteral("6"));
    // 1, A and 5 are doubled: the reading stops at A, and 2 and 4 are not doubled.
    EXPECT_EQ(Codabar("12A45"), QStringLiteral("2"));
    // A letter among the digits that are not doubled counts as 0.
    EXPECT_EQ(Codabar("1A3"), QString::number(LuhnDigit("103")));
    for (const char* text : {"ABC", "-", "...", "1-2-3", "-5", "&H1F", "1E5", "\xE9\xFF"})
        EXPECT_EQ(Codabar(text).size(), 1) << text;
}

TEST(CodabarDigit, IsExactUpToThirtyDigits)
{
    ForRandomDigits(30, [](const std::string& digits) {
        ASSERT_EQ(Codabar(digits.c_str()), QString::number(LuhnDigit(digits))) << digits;
    });
    EXPECT_EQ(Codabar("999999999999999999999999999999"),
              QString::number(LuhnDigit("999999999999999999999999999999")));
}

TEST(CodabarDigit, LosesDigitsOfAnEvenLongerNumber)
{
    // Sixteen nines doubled are written "2E+16": 2 + 1 + 6 and fifteen nines that are not doubled.
    const QByteArray nines(31, '9');
    EXPECT_EQ(Codabar(nines.constData()), QString::number(10 - (2 + 1 + 6 + 15 * 9) % 10));
    EXPECT_EQ(Codabar(QByteArray(2000, '9').constData()).size(), 1);
}

TEST(EbtDigit, DoublesFromTheLeft)
{
    EXPECT_EQ(Ebt(QString()), 10);
    EXPECT_EQ(Ebt(QStringLiteral("5")), 9);
    EXPECT_EQ(Ebt(QStringLiteral("1234")), 6);
    EXPECT_EQ(Ebt(QStringLiteral("55")), 4);
    EXPECT_EQ(Ebt(QStringLiteral("91")), 10);
}

TEST(EbtDigit, ANonDigitOrABlankFails)
{
    for (const char* text : {" 123 ", "12A", "1 2", "-1", "1.0"})
        EXPECT_EQ(FailureOf([&] { Ebt(QString::fromLatin1(text)); }), FailureNumber::TypeMismatch)
            << text;
}

TEST(EbtDigit, AnotherDecimalSeparatorGivesTheFirstDigitsComplement)
{
    const QChar comma = QLatin1Char(',');
    EXPECT_EQ(EbtCheckDigit(QStringLiteral("1234"), comma), 9);        // "1,4"
    EXPECT_EQ(EbtCheckDigit(QStringLiteral("55"), comma), 10);         // "0,6"
    EXPECT_EQ(EbtCheckDigit(QString(26, QLatin1Char('9')), comma), 8); // "23,4"
}

TEST(EbtDigit, ASumBeyondItsCounterOverflows)
{
    EXPECT_EQ(Ebt(QString(3640, QLatin1Char('9'))), 10);
    EXPECT_EQ(FailureOf([] { Ebt(QString(3641, QLatin1Char('9'))); }), FailureNumber::Overflow);
}

TEST(EbtDigit, AgreesWithAPlainSum)
{
    ForRandomDigits(40, [](const std::string& digits) {
        ASSERT_EQ(Ebt(QString::fromStdString(digits)), DoublingDigit(digits)) << digits;
    });
}

TEST(CheckDigits, DifferOnAMultipleOfTen)
{
    const QString zero = QStringLiteral("0");
    EXPECT_EQ(Mod10CheckDigit(zero), 0);
    EXPECT_EQ(Codabar("0"), zero);
    EXPECT_EQ(Ebt(zero), 10);
}
