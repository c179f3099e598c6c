#include "base/DecimalText.h"
#include "base/Convert.h"
#include "base/Failure.h"
#include "support/FailureOf.h"
#include "support/Print.h"
#include <gtest/gtest.h>
#include <limits>

namespace vantrel::test {
namespace {

QString Repeated(const char* text, qsizetype times)
{
    return QString::fromLatin1(text).repeated(times);
}

TEST(DecimalText, IsReadAtAnyLength)
{
    constexpr qsizetype many = 4 << 20;
    const struct
    {
        QString Text;
        double Number;
    } rows[] = {
        {Repeated("1", many), std::numeric_limits<double>::infinity()},
        {QStringLiteral("-") + Repeated("1", many), -std::numeric_limits<double>::infinity()},
        {Repeated("0", many), 0},
        {Repeated("0", many) + QStringLiteral("12.5"), 12.5},
        {QStringLiteral("+12.5") + Repeated("0", many), 12.5},
        {QStringLiteral("-.5") + Repeated("0", many), -0.5},
        {QStringLiteral("0.") + Repeated("0", many) + QStringLiteral("7"), 0},
        {QStringLiteral("0.") + Repeated("0", many) + QStringLiteral("7E%1").arg(many), 0.7},
        {QStringLiteral("3") + Repeated("0", many) + QStringLiteral("e-%1").arg(many), 3},
        {QStringLiteral("3E") + Repeated("0", many) + QStringLiteral("2"), 300},
        {QStringLiteral("3E") + Repeated("9", many), std::numeric_limits<double>::infinity()},
        {QStringLiteral("3E-") + Repeated("9", many), 0},
    };
    for (const auto& row : rows)
        EXPECT_EQ(DecimalNumber(row.Text), row.Number) << row.Text.left(10).toStdString();
}

TEST(DecimalText, ALongNumberIsTheOneThatQtReads)
{
    // Halfway between two numbers: any later digit but zero rounds it up.
    const QString halfway = QStringLiteral("9007199254740993");
    const QStringList texts = {
        halfway + QStringLiteral(".") + Repeated("0", 1500),
        halfway + QStringLiteral(".") + Repeated("0", 1500) + QStringLiteral("1"),
        Repeated("123456789", 30) + QStringLiteral(".") + Repeated("987654321", 100),
        QStringLiteral("0.") + Repeated("0", 300) + Repeated("37", 600),
        QStringLiteral("-") + Repeated("7", 1200) + QStringLiteral("E-1000")};
    for (const QString& text : texts)
        EXPECT_EQ(DecimalNumber(text), text.toDouble()) << text.left(30).toStdString();
}

TEST(DecimalText, AStoredNumberMayHaveMillionsOfDigits)
{
    constexpr qsizetype many = 4 << 20;
    EXPECT_EQ(ToLong(Repeated("0", many) + QStringLiteral("7")), 7);
    EXPECT_EQ(ToWholeLong(Repeated("0", many) + QStringLiteral("7")), 7);
    EXPECT_EQ(Val(Repeated("0", many) + QStringLiteral("7x")), 7);
    EXPECT_EQ(FailureOf([] { ToLong(Repeated("1", many)); }), FailureNumber::Overflow);
}

} // namespace
} // namespace vantrel::test
