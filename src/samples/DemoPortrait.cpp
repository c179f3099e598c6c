#include "drawing/Sketch.h"
#include "samples/DemoArt.h"

namespace vantrel {

namespace {
// The portrait is drawn in an area of 300 by 400 units; the face is centred at x = 150.
constexpr Sketch::Ink Skin{0xEFC3A0};
constexpr Sketch::Ink SkinShade{0xDCA680};
constexpr Sketch::Ink NeckShade{0xCB9470};
constexpr Sketch::Ink Hair{0x4B3327};
constexpr Sketch::Ink HairLight{0x6A4A38};
constexpr Sketch::Ink HairDark{0x36241B};
constexpr Sketch::Ink Line{0x6B4433};

void DrawBackground(const Sketch& s)
{
    s.Rectangle(0, 0, s.Width(), s.Height());
    s.FillDown(0, {0xE6EDF1}, s.Height(), {0xAEBFCB});
    s.Rectangle(0, 0, s.Width(), s.Height());
    s.FillRound(120, 130, 210, {0xFFFFFF, 0.55}, {0xFFFFFF, 0.0});
}

void DrawBackHair(const Sketch& s)
{
    s.MoveTo(150, 52);
    s.CurveTo(90, 50, 66, 100, 68, 160);
    s.CurveTo(69, 205, 58, 235, 74, 268);
    s.CurveTo(100, 292, 200, 292, 226, 268);
    s.CurveTo(242, 235, 231, 205, 232, 160);
    s.CurveTo(234, 100, 210, 50, 150, 52);
    s.ClosePath();
    s.FillDown(60, Hair, 280, HairDark);
}

void DrawShoulders(const Sketch& s)
{
    s.MoveTo(8, 400); // The jacket.
    s.CurveTo(10, 335, 40, 316, 108, 294);
    s.LineTo(192, 294);
    s.CurveTo(260, 316, 290, 335, 292, 400);
    s.ClosePath();
    s.FillDown(290, {0x2C4C6E}, 400, {0x1B3350});

    s.MoveTo(112, 292); // The shirt.
    s.LineTo(150, 388);
    s.LineTo(188, 292);
    s.ClosePath();
    s.FillDown(290, {0xFBFAF6}, 390, {0xE4E3DC});

    s.MoveTo(120, 235); // The neck.
    s.LineTo(120, 284);
    s.CurveTo(124, 306, 140, 322, 150, 326);
    s.CurveTo(160, 322, 176, 306, 180, 284);
    s.LineTo(180, 235);
    s.ClosePath();
    s.FillDown(236, NeckShade, 310, Skin);

    for (const double side : {-1.0, 1.0}) { // Collar and lapels.
        s.MoveTo(150 + side * 30, 276);
        s.LineTo(150 + side * 46, 290);
        s.LineTo(150 + side * 26, 344);
        s.LineTo(150, 326);
        s.ClosePath();
        s.Fill({0xFFFFFF});
        s.MoveTo(150 + side * 44, 288);
        s.LineTo(150 + side * 70, 304);
        s.LineTo(150 + side * 58, 342);
        s.LineTo(150, 400);
        s.LineTo(150 + side * 26, 344);
        s.ClosePath();
        s.Fill(side < 0 ? Sketch::Ink{0x345A81} : Sketch::Ink{0x274565});
    }
}

void DrawHead(const Sketch& s)
{
    for (const double x : {83.0, 217.0}) {
        s.Ellipse(x, 178, 11, 20);
        s.Fill(SkinShade);
    }
    s.MoveTo(150, 78);
    s.CurveTo(104, 78, 82, 112, 84, 164);
    s.CurveTo(86, 210, 112, 258, 150, 260);
    s.CurveTo(188, 258, 214, 210, 216, 164);
    s.CurveTo(218, 112, 196, 78, 150, 78);
    s.ClosePath();
    s.FillRound(138, 160, 128, {0xF6D2B4}, SkinShade);
    for (const double x : {110.0, 190.0}) {
        s.Ellipse(x, 205, 22, 16);
        s.FillRound(x, 205, 22, {0xE58F78, 0.32}, {0xE58F78, 0.0});
    }
}

void DrawEye(const Sketch& s, double x)
{
    const auto lid = [&s, x](double lift) {
        s.MoveTo(x - 17, 172);
        s.CurveTo(x - 9, 172 - lift, x + 9, 172 - lift, x + 17, 172);
    };
    s.Save();
    lid(13);
    s.CurveTo(x + 9, 182, x - 9, 182, x - 17, 172);
    s.ClosePath();
    s.ClipPreserve();
    s.Fill({0xFDFBF8});
    s.Ellipse(x, 171, 8, 8.6);
    s.FillRound(x, 172, 8.6, {0x6F8EA3}, {0x3C5669});
    s.Ellipse(x, 171, 3.8, 4);
    s.Fill({0x16191C});
    s.Ellipse(x + 2.6, 167.8, 2, 2);
    s.Fill({0xFFFFFF});
    s.Restore();
    s.NewPath();
    lid(13);
    s.Line(2.8, HairDark);
    s.MoveTo(x - 20, 151);
    s.CurveTo(x - 10, 143, x + 8, 143, x + 20, 150);
    s.Line(4.6, {Hair.Color, 0.9});
}

void DrawFeatures(const Sketch& s)
{
    DrawEye(s, 120);
    DrawEye(s, 180);
    s.MoveTo(155, 172); // The nose, by its shade.
    s.CurveTo(158, 190, 166, 202, 162, 208);
    s.CurveTo(157, 213, 147, 213, 141, 208);
    s.Line(2.6, {Line.Color, 0.45});

    s.MoveTo(120, 224); // A smile.
    s.CurveTo(133, 226, 143, 224, 150, 227);
    s.CurveTo(157, 224, 167, 226, 180, 224);
    s.CurveTo(170, 245, 130, 245, 120, 224);
    s.ClosePath();
    s.Fill({0xB9605A});
    s.MoveTo(117, 222);
    s.CurveTo(134, 236, 166, 236, 183, 222);
    s.Line(2.2, {0x8A403D, 0.9});
}

void DrawFringe(const Sketch& s)
{
    s.MoveTo(172, 78); // Parted on the right, swept across the forehead.
    s.CurveTo(150, 118, 106, 128, 90, 160);
    s.CurveTo(84, 186, 84, 214, 80, 238);
    s.CurveTo(62, 210, 62, 140, 78, 104);
    s.CurveTo(96, 62, 140, 46, 172, 58);
    s.ClosePath();
    s.FillDown(50, HairLight, 230, Hair);
    s.MoveTo(168, 66);
    s.CurveTo(186, 104, 206, 122, 212, 160);
    s.CurveTo(216, 186, 216, 214, 220, 238);
    s.CurveTo(238, 210, 238, 140, 224, 104);
    s.CurveTo(210, 66, 186, 50, 160, 56);
    s.ClosePath();
    s.FillDown(50, HairLight, 230, Hair);
    for (const double shift : {0.0, 14.0, 28.0}) {
        s.MoveTo(160 - shift, 66 + shift / 3);
        s.CurveTo(132 - shift / 2, 92 + shift / 2, 100 - shift / 4, 106 + shift / 2, 86 - shift / 6,
                  146 + shift / 2);
        s.Line(2.2, {0x8A654E, 0.35});
    }
}
} // namespace

QImage DrawPortrait()
{
    const Sketch portrait(360, 480, 300);
    DrawBackground(portrait);
    DrawBackHair(portrait);
    DrawShoulders(portrait);
    DrawHead(portrait);
    DrawFeatures(portrait);
    DrawFringe(portrait);
    return portrait.Image();
}

} // namespace vantrel
