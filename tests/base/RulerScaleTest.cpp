#include "base/RulerScale.h"
#include <cmath>
#include <gtest/gtest.h>

namespace vantrel::test {
namespace {

constexpr double Actual = 96.0 / 1440.0;
constexpr double TwipsPerMillimetre = 1440 / 25.4;

TEST(RulerScale, IsDividedAsRulersAreKnown)
{
    // 20 mm are 76 pixels, 10 mm only 38.
    EXPECT_EQ(ScaleOf(LengthUnit::Millimetres, Actual),
              (RulerScale{20 * TwipsPerMillimetre, 10, 5}));
    // At 800 % a millimetre is 30 pixels.
    EXPECT_EQ(ScaleOf(LengthUnit::Millimetres, Actual * 8),
              (RulerScale{2 * TwipsPerMillimetre, 10, 5}));
    EXPECT_EQ(ScaleOf(LengthUnit::Inches, Actual), (RulerScale{720, 8, 4}));
    EXPECT_EQ(ScaleOf(LengthUnit::Inches, Actual * 8), (RulerScale{180, 8, 4}));
    EXPECT_EQ(ScaleOf(LengthUnit::Twips, Actual), (RulerScale{1000, 10, 5}));
}

TEST(RulerScale, NumbersAndLinesHaveRoomAtEachZoom)
{
    for (const LengthUnit unit : {LengthUnit::Millimetres, LengthUnit::Inches, LengthUnit::Twips}) {
        double before = 1e9;
        // From 25 % to 800 % in steps of 5 %.
        for (int step = 0; step <= 71; ++step) {
            const double zoom = 0.25 * std::pow(1.05, step);
            const RulerScale scale = ScaleOf(unit, Actual * zoom);
            const double pixels = scale.Step * Actual * zoom;
            EXPECT_GE(pixels, 45) << zoom;
            EXPECT_LE(pixels, 45 * 2.5) << zoom;
            EXPECT_GE(pixels / scale.Parts, 4) << zoom;
            EXPECT_LE(scale.Step, before) << zoom;
            before = scale.Step;
        }
    }
}

TEST(RulerScale, EndsForAScaleThatIsNone)
{
    EXPECT_GT(ScaleOf(LengthUnit::Millimetres, 0).Step, 0);
    EXPECT_GT(ScaleOf(LengthUnit::Inches, std::nan("")).Step, 0);
    EXPECT_GT(ScaleOf(LengthUnit::Twips, 1e-300).Step, 0);
}

} // namespace
} // namespace vantrel::test
