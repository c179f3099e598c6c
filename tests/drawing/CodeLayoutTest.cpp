#include "drawing/CodeLayout.h"
#include "base/Twips.h"
#include "drawing/CodePattern.h"
#include "support/CodeSamples.h"
#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

// Where the modules of a code stand in its place.

namespace vantrel::test {
namespace {

constexpr double Tiny = 1e-6;

/// The rectangle around all boxes.
FilledBox Around(const std::vector<FilledBox>& boxes)
{
    double right = 0;
    double bottom = 0;
    FilledBox all = boxes.front();
    for (const FilledBox& box : boxes) {
        all.X = std::min(all.X, box.X);
        all.Y = std::min(all.Y, box.Y);
        right = std::max(right, box.X + box.Width);
        bottom = std::max(bottom, box.Y + box.Height);
    }
    all.Width = right - all.X;
    all.Height = bottom - all.Y;
    return all;
}

bool IsWhole(double number)
{
    return std::abs(number - std::round(number)) < Tiny;
}

class EachKind : public ::testing::TestWithParam<int>
{
protected:
    CodeKind Kind = static_cast<CodeKind>(GetParam());
    const CodeKindRow& Row = RowOf(Kind);
    std::shared_ptr<const CodePattern> Pattern = CodePatternOf(Kind, SampleTextOf(Kind), 1.5);
    int Columns = Row.QuietLeft + Pattern->Width + Row.QuietRight;
    int Rows = Pattern->Height + 2 * Row.QuietAboveAndBelow;
};

INSTANTIATE_TEST_SUITE_P(CodeLayout, EachKind, ::testing::Range(0, CodeKindCount));

TEST_P(EachKind, FillsItsPlaceWithItsQuietZone)
{
    for (const double module : {SmallestModule, 14.4, 48.0}) {
        const FilledBox place{.X = 110.4,
                              .Y = 76.8,
                              .Width = Columns * module,
                              .Height = Row.IsLinear ? 480 : Rows * module};
        const CodeLayout layout = LayOutCode(*Pattern, place, 0);
        EXPECT_NEAR(layout.Module, module, Tiny);
        ASSERT_FALSE(layout.Boxes.empty());
        const FilledBox ink = Around(layout.Boxes);
        EXPECT_NEAR(ink.X, place.X + Row.QuietLeft * module, Tiny);
        EXPECT_NEAR(ink.Width, Pattern->Width * module, Tiny);
        EXPECT_NEAR(ink.Y, place.Y + Row.QuietAboveAndBelow * module, Tiny);
        EXPECT_NEAR(ink.Height, Row.IsLinear ? 480 : Pattern->Height * module, Tiny);
    }
}

TEST_P(EachKind, StandsInTheMiddleOfAPlaceThatIsTooLarge)
{
    const double module = 19.2;
    // Less than another dot in each module.
    const FilledBox place{.X = 48,
                          .Y = 57.6,
                          .Width = Columns * module * 1.2,
                          .Height = Row.IsLinear ? 480 : Rows * module * 1.2};
    const CodeLayout layout = LayOutCode(*Pattern, place, 300);
    EXPECT_NEAR(layout.Module, module, Tiny);
    const FilledBox ink = Around(layout.Boxes);
    const auto expectMiddle = [](double before, double behind) {
        EXPECT_GT(before, 0);
        EXPECT_NEAR(before, behind, 9.6 + Tiny);
    };
    expectMiddle(ink.X - Row.QuietLeft * module - place.X,
                 place.X + place.Width - (ink.X + ink.Width + Row.QuietRight * module));
    if (!Row.IsLinear)
        expectMiddle(ink.Y - Row.QuietAboveAndBelow * module - place.Y,
                     place.Y + place.Height -
                         (ink.Y + ink.Height + Row.QuietAboveAndBelow * module));
}

TEST_P(EachKind, APrinterThatTellsNoDotsHasThoseOfCardPrinters)
{
    const FilledBox place{.X = 101, .Y = 99, .Width = 4000, .Height = 2900};
    EXPECT_EQ(LayOutCode(*Pattern, place, 0).Boxes, LayOutCode(*Pattern, place, 300).Boxes);
    EXPECT_NE(LayOutCode(*Pattern, place, 0).Boxes, LayOutCode(*Pattern, place, 203).Boxes);
}

TEST_P(EachKind, ModulesAreWholeDotsWhereThePrinterTellsThem)
{
    for (const int dotsPerInch : {203, 300, 600, 1200}) {
        const double dot = TwipsPerInch / dotsPerInch;
        for (const double size : {17.9, 23.3, 31.0}) {
            const FilledBox place{.X = 123.4,
                                  .Y = 98.7,
                                  .Width = Columns * size,
                                  .Height = Row.IsLinear ? 301 : Rows * size};
            const CodeLayout layout = LayOutCode(*Pattern, place, dotsPerInch);
            ASSERT_FALSE(layout.Boxes.empty()) << dotsPerInch << ", " << size;
            EXPECT_TRUE(IsWhole(layout.Module / dot));
            // No more than the dots at both edges and a part of a dot in each module are lost.
            EXPECT_GT(layout.Module, size - dot - 2 * dot / std::min(Columns, Rows + Columns));
            for (const FilledBox& box : layout.Boxes) {
                for (const double length : {box.X, box.Y, box.Width, box.Height})
                    ASSERT_TRUE(IsWhole(length / dot)) << length;
            }
            const FilledBox ink = Around(layout.Boxes);
            EXPECT_GE(ink.X - Row.QuietLeft * layout.Module, place.X - Tiny);
            EXPECT_GE(ink.Y - Row.QuietAboveAndBelow * layout.Module, place.Y - Tiny);
            EXPECT_LE(ink.X + ink.Width + Row.QuietRight * layout.Module,
                      place.X + place.Width + Tiny);
            EXPECT_LE(ink.Y + ink.Height + Row.QuietAboveAndBelow * layout.Module,
                      place.Y + place.Height + Tiny);
        }
    }
}

TEST_P(EachKind, ACodeWhoseModulesWouldBeTooSmallDoesNotFit)
{
    const auto fits = [&](double width, double height, int dotsPerInch) {
        const FilledBox place{.X = 0, .Y = 0, .Width = width, .Height = height};
        return LayOutCode(*Pattern, place, dotsPerInch).Module > 0;
    };
    for (const int dotsPerInch : {0, 300, 600}) {
        const double module = SmallestModule;
        const double width = Columns * module;
        const double height = Row.IsLinear ? LowestBars : Rows * module;
        EXPECT_TRUE(fits(width, height, dotsPerInch)) << dotsPerInch;
        EXPECT_FALSE(fits(width * 0.99, height, dotsPerInch)) << dotsPerInch;
        EXPECT_FALSE(fits(width, height * 0.99, dotsPerInch)) << dotsPerInch;
        EXPECT_FALSE(fits(0, 0, dotsPerInch));
        EXPECT_FALSE(fits(-width, -height, dotsPerInch));
    }
}

} // namespace
} // namespace vantrel::test
