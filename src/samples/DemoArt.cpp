#include "samples/DemoArt.h"
#include "drawing/Sketch.h"
#include <cmath>
#include <numbers>

namespace vantrel {

namespace {
constexpr int PixelsWide = 1016;
constexpr int PixelsHigh = 640;
/// The cards are drawn in twips, like their objects.
constexpr double CardWidth = 4860;

constexpr Sketch::Ink Navy{0x16324F};
constexpr Sketch::Ink NavyDeep{0x0E2238};
constexpr Sketch::Ink Brass{0xC4A35A};
constexpr Sketch::Ink Paper{0xFBFAF6};
constexpr Sketch::Ink PaperShade{0xEFEDE5};

/// Long, quiet waves across the paper, each line a little out of step with the one above.
void DrawWaves(const Sketch& card, double top, int lines, double gap, Sketch::Ink ink)
{
    constexpr double Step = 60;
    const int steps = static_cast<int>(card.Width() / Step) + 2;
    for (int line = 0; line < lines; ++line) {
        const double phase = line * 0.55;
        const double swell = 46 + 5.0 * line;
        for (int i = -1; i <= steps; ++i) {
            const double x = i * Step;
            const double turn = 2 * std::numbers::pi * x / 3100 + phase;
            const double y =
                top + line * gap + swell * (std::sin(turn) + 0.35 * std::sin(2.1 * turn));
            card.LineTo(x, y);
        }
        card.Line(9, ink);
    }
}

/// A boat under sail in a ring, centred on a point.
void DrawEmblem(const Sketch& card, double x, double y, double radius, Sketch::Ink ink)
{
    card.Save();
    card.Translate(x, y);
    card.Scale(radius / 100, radius / 100);
    card.Ellipse(0, 0, 96, 96);
    card.Line(5, ink);

    card.MoveTo(2, -66); // The mainsail.
    card.CurveTo(38, -30, 50, 0, 52, 26);
    card.LineTo(2, 26);
    card.ClosePath();
    card.Fill(ink);
    card.MoveTo(-8, -46); // The jib.
    card.CurveTo(-20, -16, -34, 8, -50, 26);
    card.LineTo(-8, 26);
    card.ClosePath();
    card.Fill({ink.Color, ink.Opacity * 0.72});

    for (const double row : {44.0, 61.0}) { // The water below.
        const double half = row < 50 ? 66 : 46;
        card.MoveTo(-half, row);
        card.CurveTo(-half / 2, row - 12, -half / 3, row + 12, 0, row);
        card.CurveTo(half / 3, row - 12, half / 2, row + 12, half, row);
        card.Line(5, ink);
    }
    card.Restore();
}

void DrawPaper(const Sketch& card)
{
    card.Rectangle(0, 0, card.Width(), card.Height());
    card.FillDown(0, Paper, card.Height(), PaperShade);
}

void DrawBand(const Sketch& card, double top, double height)
{
    card.Rectangle(0, top, card.Width(), height);
    card.FillDown(top, Navy, top + height, NavyDeep);
}
} // namespace

QImage DrawCardFront()
{
    constexpr double BandHeight = 820;
    const Sketch card(PixelsWide, PixelsHigh, CardWidth);
    DrawPaper(card);
    DrawWaves(card, 2300, 9, 105, {Navy.Color, 0.075});
    DrawBand(card, 0, BandHeight);
    card.Rectangle(0, BandHeight, card.Width(), 26);
    card.Fill(Brass);
    DrawEmblem(card, 486, BandHeight / 2, 275, Brass);

    for (int i = 6; i >= 1; --i) { // A soft shadow around the photo.
        card.RoundedRectangle(220 - 6 * i, 1142 - 4 * i, 1240 + 12 * i, 1630 + 12 * i, 20 + 6 * i);
        card.Fill({NavyDeep.Color, 0.022});
    }
    card.RoundedRectangle(220, 1130, 1240, 1630, 20);
    card.Fill({0xFFFFFF});
    return card.Image();
}

QImage DrawCardBack()
{
    const Sketch card(PixelsWide, PixelsHigh, CardWidth);
    DrawPaper(card);
    card.Rectangle(0, 300, card.Width(), 560);
    card.FillDown(300, {0x26292E}, 860, {0x17191C});
    DrawEmblem(card, 4030, 1550, 470, {Navy.Color, 0.10});

    card.RoundedRectangle(220, 2070, 2700, 370, 24); // The signature panel.
    card.Fill({0xFFFFFF});
    for (int line = 1; line < 6; ++line) {
        card.MoveTo(250, 2070 + 61.7 * line);
        card.LineTo(2890, 2070 + 61.7 * line);
        card.Line(6, {Brass.Color, 0.30});
    }
    card.RoundedRectangle(220, 2070, 2700, 370, 24);
    card.Line(8, {Navy.Color, 0.35});

    DrawBand(card, 2770, card.Height() - 2770);
    card.Rectangle(0, 2744, card.Width(), 26);
    card.Fill(Brass);
    return card.Image();
}

} // namespace vantrel
