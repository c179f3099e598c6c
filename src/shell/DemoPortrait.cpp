#include "shell/DemoArt.h"
#include "shell/Sketch.h"

namespace vantrel {

namespace {
// The portrait is drawn on a field of 300 by 400; the face is centred on x = 150.
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
    cairo_t* pen = s.Pen();
    cairo_move_to(pen, 150, 52);
    cairo_curve_to(pen, 90, 50, 66, 100, 68, 160);
    cairo_curve_to(pen, 69, 205, 58, 235, 74, 268);
    cairo_curve_to(pen, 100, 292, 200, 292, 226, 268);
    cairo_curve_to(pen, 242, 235, 231, 205, 232, 160);
    cairo_curve_to(pen, 234, 100, 210, 50, 150, 52);
    cairo_close_path(pen);
    s.FillDown(60, Hair, 280, HairDark);
}

void DrawShoulders(const Sketch& s)
{
    cairo_t* pen = s.Pen();
    cairo_move_to(pen, 8, 400); // The jacket.
    cairo_curve_to(pen, 10, 335, 40, 316, 108, 294);
    cairo_line_to(pen, 192, 294);
    cairo_curve_to(pen, 260, 316, 290, 335, 292, 400);
    cairo_close_path(pen);
    s.FillDown(290, {0x2C4C6E}, 400, {0x1B3350});

    cairo_move_to(pen, 112, 292); // The shirt.
    cairo_line_to(pen, 150, 388);
    cairo_line_to(pen, 188, 292);
    cairo_close_path(pen);
    s.FillDown(290, {0xFBFAF6}, 390, {0xE4E3DC});

    cairo_move_to(pen, 120, 235); // The neck.
    cairo_line_to(pen, 120, 284);
    cairo_curve_to(pen, 124, 306, 140, 322, 150, 326);
    cairo_curve_to(pen, 160, 322, 176, 306, 180, 284);
    cairo_line_to(pen, 180, 235);
    cairo_close_path(pen);
    s.FillDown(236, NeckShade, 310, Skin);

    for (const double side : {-1.0, 1.0}) { // Collar and lapels.
        cairo_move_to(pen, 150 + side * 30, 276);
        cairo_line_to(pen, 150 + side * 46, 290);
        cairo_line_to(pen, 150 + side * 26, 344);
        cairo_line_to(pen, 150, 326);
        cairo_close_path(pen);
        s.Fill({0xFFFFFF});
        cairo_move_to(pen, 150 + side * 44, 288);
        cairo_line_to(pen, 150 + side * 70, 304);
        cairo_line_to(pen, 150 + side * 58, 342);
        cairo_line_to(pen, 150, 400);
        cairo_line_to(pen, 150 + side * 26, 344);
        cairo_close_path(pen);
        s.Fill(side < 0 ? Sketch::Ink{0x345A81} : Sketch::Ink{0x274565});
    }
}

void DrawHead(const Sketch& s)
{
    cairo_t* pen = s.Pen();
    for (const double x : {83.0, 217.0}) {
        s.Ellipse(x, 178, 11, 20);
        s.Fill(SkinShade);
    }
    cairo_move_to(pen, 150, 78);
    cairo_curve_to(pen, 104, 78, 82, 112, 84, 164);
    cairo_curve_to(pen, 86, 210, 112, 258, 150, 260);
    cairo_curve_to(pen, 188, 258, 214, 210, 216, 164);
    cairo_curve_to(pen, 218, 112, 196, 78, 150, 78);
    cairo_close_path(pen);
    s.FillRound(138, 160, 128, {0xF6D2B4}, SkinShade);
    for (const double x : {110.0, 190.0}) {
        s.Ellipse(x, 205, 22, 16);
        s.FillRound(x, 205, 22, {0xE58F78, 0.32}, {0xE58F78, 0.0});
    }
}

void DrawEye(const Sketch& s, double x)
{
    cairo_t* pen = s.Pen();
    const auto lid = [pen, x](double lift) {
        cairo_move_to(pen, x - 17, 172);
        cairo_curve_to(pen, x - 9, 172 - lift, x + 9, 172 - lift, x + 17, 172);
    };
    cairo_save(pen);
    lid(13);
    cairo_curve_to(pen, x + 9, 182, x - 9, 182, x - 17, 172);
    cairo_close_path(pen);
    cairo_clip_preserve(pen);
    s.Fill({0xFDFBF8});
    s.Ellipse(x, 171, 8, 8.6);
    s.FillRound(x, 172, 8.6, {0x6F8EA3}, {0x3C5669});
    s.Ellipse(x, 171, 3.8, 4);
    s.Fill({0x16191C});
    s.Ellipse(x + 2.6, 167.8, 2, 2);
    s.Fill({0xFFFFFF});
    cairo_restore(pen);
    cairo_new_path(pen);
    lid(13);
    s.Line(2.8, HairDark);
    cairo_move_to(pen, x - 20, 151);
    cairo_curve_to(pen, x - 10, 143, x + 8, 143, x + 20, 150);
    s.Line(4.6, {Hair.Color, 0.9});
}

void DrawFeatures(const Sketch& s)
{
    cairo_t* pen = s.Pen();
    DrawEye(s, 120);
    DrawEye(s, 180);
    cairo_move_to(pen, 155, 172); // The nose, by its shade.
    cairo_curve_to(pen, 158, 190, 166, 202, 162, 208);
    cairo_curve_to(pen, 157, 213, 147, 213, 141, 208);
    s.Line(2.6, {Line.Color, 0.45});

    cairo_move_to(pen, 120, 224); // A smile.
    cairo_curve_to(pen, 133, 226, 143, 224, 150, 227);
    cairo_curve_to(pen, 157, 224, 167, 226, 180, 224);
    cairo_curve_to(pen, 170, 245, 130, 245, 120, 224);
    cairo_close_path(pen);
    s.Fill({0xB9605A});
    cairo_move_to(pen, 117, 222);
    cairo_curve_to(pen, 134, 236, 166, 236, 183, 222);
    s.Line(2.2, {0x8A403D, 0.9});
}

void DrawFringe(const Sketch& s)
{
    cairo_t* pen = s.Pen();
    cairo_move_to(pen, 172, 78); // Parted on the right, swept across the forehead.
    cairo_curve_to(pen, 150, 118, 106, 128, 90, 160);
    cairo_curve_to(pen, 84, 186, 84, 214, 80, 238);
    cairo_curve_to(pen, 62, 210, 62, 140, 78, 104);
    cairo_curve_to(pen, 96, 62, 140, 46, 172, 58);
    cairo_close_path(pen);
    s.FillDown(50, HairLight, 230, Hair);
    cairo_move_to(pen, 168, 66);
    cairo_curve_to(pen, 186, 104, 206, 122, 212, 160);
    cairo_curve_to(pen, 216, 186, 216, 214, 220, 238);
    cairo_curve_to(pen, 238, 210, 238, 140, 224, 104);
    cairo_curve_to(pen, 210, 66, 186, 50, 160, 56);
    cairo_close_path(pen);
    s.FillDown(50, HairLight, 230, Hair);
    for (const double shift : {0.0, 14.0, 28.0}) {
        cairo_move_to(pen, 160 - shift, 66 + shift / 3);
        cairo_curve_to(pen, 132 - shift / 2, 92 + shift / 2, 100 - shift / 4, 106 + shift / 2,
                       86 - shift / 6, 146 + shift / 2);
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
