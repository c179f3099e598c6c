#include "card/PrinterType.h"
#include "support/Print.h"
#include <gtest/gtest.h>
#include <set>

namespace vantrel::test {
namespace {

FieldValues Values(const QStringList& texts)
{
    FieldValues values;
    for (const QString& text : texts)
        values.Add(text);
    return values;
}

/// A type, and what the formula "DAT1~SEP~DAT2" puts onto track 2 as its line.
struct LineCase
{
    std::int32_t Code;
    QString Line;
};

TEST(PrinterTypes, EveryCodeHasOneRow)
{
    std::set<std::int32_t> codes;
    for (const PrinterTypeRow& row : PrinterTypes()) {
        EXPECT_TRUE(codes.insert(row.Code).second) << row.Code;
        EXPECT_EQ(&PrinterTypeOf(row.Code), &row);
    }
    EXPECT_EQ(codes, (std::set<std::int32_t>{1, 2, 3, 4, 5, 9, 10, 11}));
}

TEST(PrinterTypes, CodesWithoutARowPrintNothingAndChangeNothing)
{
    for (const std::int32_t code : {-1, 0, 6, 7, 8, 12}) {
        const PrinterTypeRow& row = PrinterTypeOf(code);
        EXPECT_EQ(row.Size, SizeSource::Unchanged) << code;
        EXPECT_EQ(row.OnLoad, SetUp::NotHere) << code;
        EXPECT_EQ(row.Copy, CopyKind::Nothing) << code;
        EXPECT_EQ(row.Stripe, nullptr) << code;
    }
}

TEST(PrinterTypes, OnlyAFixedSizeHasLengths)
{
    for (const PrinterTypeRow& row : PrinterTypes()) {
        const bool isFixed = row.Size == SizeSource::Fixed;
        EXPECT_EQ(row.FixedWidth > 0 && row.FixedHeight > 0, isFixed) << row.Code;
    }
}

TEST(PrinterTypes, TypesWithAStripeWriteTheLineOfTheirDrivers)
{
    const LineCase cases[] = {{PrinterTypeCode::Fargo, QStringLiteral("~2;1234=5678?")},
                              {PrinterTypeCode::Eltron, QStringLiteral("${21234=5678}$")},
                              {PrinterTypeCode::FontLongNames, QStringLiteral("1234=5678")},
                              {PrinterTypeCode::FontShortNames, QStringLiteral("1234=5678")},
                              {PrinterTypeCode::Nisca, QStringLiteral("~@1,2,9,1234=5678")}};
    const FieldValues values = Values({QStringLiteral("1234"), QStringLiteral("5678")});
    for (const LineCase& expected : cases) {
        const StripeFamily* const family = PrinterTypeOf(expected.Code).Stripe;
        ASSERT_NE(family, nullptr) << expected.Code;
        const StripeTrack track(*family, 2);
        const QString body = track.Body(QStringLiteral("DAT1~SEP~DAT2"), values, u'.');
        EXPECT_EQ(track.Line(body), expected.Line);
    }
}

TEST(StripeBody, OfATypeWithoutAStripeIsThatOfTheFirstFamily)
{
    const FieldValues values = Values({QStringLiteral("a"), QStringLiteral("b")});
    EXPECT_EQ(StripeBody(PrinterTypeCode::Plain, QStringLiteral("DAT1~SEP~DAT2"), values, u'.', 1),
              QStringLiteral("A^B"));
}

} // namespace
} // namespace vantrel::test
