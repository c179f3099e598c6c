#include "samples/GalleryArt.h"
#include "drawing/Sketch.h"

namespace vantrel {

namespace {
constexpr int LongPixels = 1016;
constexpr int ShortPixels = 640;
constexpr double LongSide = 4860;
constexpr double ShortSide = 3060;

constexpr Sketch::Ink White{0xFFFFFF};
constexpr Sketch::Ink Teal{0x0F6E70};
constexpr Sketch::Ink TealDeep{0x094648};
constexpr Sketch::Ink Plum{0x5B1F4B};
constexpr Sketch::Ink PlumDeep{0x2E0D2B};
constexpr Sketch::Ink Gold{0xE2B660};
constexpr Sketch::Ink Forest{0x23513A};
constexpr Sketch::Ink ForestDeep{0x163526};
constexpr Sketch::Ink Cream{0xF8F3E6};
constexpr Sketch::Ink Orange{0xE4572E};
constexpr Sketch::Ink OrangeDeep{0xB93A16};
constexpr Sketch::Ink Indigo{0x27348B};
constexpr Sketch::Ink IndigoDeep{0x151C54};
constexpr Sketch::Ink Sky{0x35C0CD};

Sketch Landscape()
{
    return {LongPixels, ShortPixels, LongSide};
}

void Cover(const Sketch& card, Sketch::Ink above, Sketch::Ink below)
{
    card.Rectangle(0, 0, card.Width(), card.Height());
    card.FillDown(0, above, card.Height(), below);
}

void Band(const Sketch& card, double top, double height, Sketch::Ink above, Sketch::Ink below)
{
    card.Rectangle(0, top, card.Width(), height);
    card.FillDown(top, above, top + height, below);
}

void Polygon(const Sketch& card, std::initializer_list<std::pair<double, double>> corners)
{
    for (const auto& [x, y] : corners)
        card.LineTo(x, y);
    card.ClosePath();
}

/// An open book; its fold is at (x, y).
void DrawBook(const Sketch& card, double x, double y, double size, Sketch::Ink ink)
{
    for (const double side : {-1.0, 1.0}) {
        card.MoveTo(x, y - 0.42 * size);
        card.CurveTo(x + side * 0.3 * size, y - 0.75 * size, x + side * 0.7 * size, y - 0.7 * size,
                     x + side * size, y - 0.55 * size);
        card.LineTo(x + side * size, y + 0.45 * size);
        card.CurveTo(x + side * 0.7 * size, y + 0.3 * size, x + side * 0.3 * size, y + 0.25 * size,
                     x, y + 0.58 * size);
        card.ClosePath();
        card.Fill({ink.Color, side < 0 ? ink.Opacity : ink.Opacity * 0.7});
    }
}

/// The lines of a network with its stops.
void DrawNetwork(const Sketch& card)
{
    struct Route
    {
        Sketch::Ink Ink;
        double Top;
        double Bend;
    };
    constexpr Route routes[] = {{Sky, 1230, 1800}, {Gold, 1460, 2500}, {Orange, 1690, 3200}};
    for (const Route& route : routes) {
        card.MoveTo(-100, route.Top);
        card.LineTo(route.Bend, route.Top);
        card.LineTo(route.Bend + 620, route.Top - 620);
        card.LineTo(card.Width() + 100, route.Top - 620);
        card.Line(70, route.Ink);
        for (const double x : {route.Bend - 420, route.Bend + 1250}) {
            const double y = x < route.Bend ? route.Top : route.Top - 620;
            card.Ellipse(x, y, 75, 75);
            card.Fill(White);
            card.Ellipse(x, y, 75, 75);
            card.Line(30, route.Ink);
        }
    }
}
} // namespace

QImage DrawBadge()
{
    constexpr double HeadHeight = 1500;
    const Sketch card(ShortPixels, LongPixels, ShortSide);
    Cover(card, White, {0xEEF3F3});
    Band(card, 0, HeadHeight, Teal, TealDeep);
    Polygon(card, {{0, HeadHeight - 420},
                   {card.Width(), HeadHeight - 60},
                   {card.Width(), HeadHeight + 4},
                   {0, HeadHeight + 4}});
    card.Fill({Sky.Color, 0.55});
    for (int i = 5; i >= 1; --i) { // A soft shadow around the photo.
        card.RoundedRectangle(730 - 6 * i, 812 - 4 * i, 1600 + 12 * i, 2096 + 12 * i, 40 + 6 * i);
        card.Fill({0x000000, 0.03});
    }
    card.RoundedRectangle(730, 800, 1600, 2096, 40);
    card.Fill(White);
    Band(card, card.Height() - 330, 330, Teal, TealDeep);
    card.RoundedRectangle(1330, 110, 400, 90, 45); // The slot for the clip.
    card.Fill(White);
    return card.Image();
}

QImage DrawGiftFront()
{
    const Sketch card = Landscape();
    Cover(card, Plum, PlumDeep);
    card.Ellipse(4200, 300, 2600, 2600);
    card.FillRound(4200, 300, 2600, {0xA9407F, 0.55}, {0xA9407F, 0});
    constexpr double KnotX = 3560;
    constexpr double KnotY = 1180;
    card.Rectangle(KnotX - 130, 0, 260, card.Height()); // The ribbon.
    card.FillDown(0, Gold, card.Height(), {0xB98938});
    card.Rectangle(0, KnotY - 130, card.Width(), 260);
    card.FillDown(KnotY - 130, {0xF2D79A}, KnotY + 130, {0xC4933F});
    for (const double side : {-1.0, 1.0}) { // The bow.
        card.MoveTo(KnotX, KnotY);
        card.CurveTo(KnotX + side * 300, KnotY - 900, KnotX + side * 1150, KnotY - 760,
                     KnotX + side * 980, KnotY - 240);
        card.CurveTo(KnotX + side * 880, KnotY + 80, KnotX + side * 350, KnotY + 110, KnotX, KnotY);
        card.FillDown(KnotY - 800, {0xF7E2B0}, KnotY + 100, {0xC79843});
    }
    card.Ellipse(KnotX, KnotY, 190, 190);
    card.FillDown(KnotY - 190, {0xF7E2B0}, KnotY + 190, {0xB98938});
    return card.Image();
}

QImage DrawGiftBack()
{
    const Sketch card = Landscape();
    Cover(card, {0xFBF7FA}, {0xF1E6EE});
    card.Rectangle(0, 0, card.Width(), 900);
    card.Fill({0x000000});
    Band(card, 2770, card.Height() - 2770, Plum, PlumDeep);
    card.Rectangle(0, 2744, card.Width(), 26);
    card.Fill(Gold);
    return card.Image();
}

QImage DrawLibrary()
{
    const Sketch card = Landscape();
    Cover(card, Cream, {0xEDE4CF});
    card.Rectangle(0, 0, 1240, card.Height());
    card.FillDown(0, Forest, card.Height(), ForestDeep);
    card.Rectangle(1240, 0, 36, card.Height());
    card.Fill(Gold);
    DrawBook(card, 620, 900, 380, Cream);
    constexpr double shelves[] = {2280, 2760};
    for (const double bottom : shelves) { // Books on their shelves.
        double left = 160;
        for (int book = 0; left < 990; ++book) {
            const double wide = 70 + (book * 37) % 60;
            const double high = 250 + (book * 53) % 130;
            card.Rectangle(left, bottom - high, wide, high);
            card.Fill({book % 3 == 0 ? Gold.Color : Cream.Color, 0.25 + 0.1 * (book % 4)});
            left += wide + 14;
        }
        card.Rectangle(130, bottom, 980, 26);
        card.Fill({Cream.Color, 0.5});
    }
    return card.Image();
}

QImage DrawPassFront()
{
    const Sketch card = Landscape();
    Cover(card, White, {0xFBEFEA});
    Polygon(card, {{0, 0}, {1900, 0}, {1080, card.Height()}, {0, card.Height()}});
    card.FillDown(0, Orange, card.Height(), OrangeDeep);
    Polygon(card, {{1990, 0}, {2130, 0}, {1310, card.Height()}, {1170, card.Height()}});
    card.Fill({Orange.Color, 0.35});
    return card.Image();
}

QImage DrawPassBack()
{
    const Sketch card = Landscape();
    Cover(card, White, {0xFBEFEA});
    Band(card, 0, 560, Orange, OrangeDeep);
    Band(card, 2800, card.Height() - 2800, Orange, OrangeDeep);
    return card.Image();
}

QImage DrawTransport()
{
    const Sketch card = Landscape();
    Cover(card, Indigo, IndigoDeep);
    DrawNetwork(card);
    card.RoundedRectangle(170, 2010, card.Width() - 340, 880, 80);
    card.Fill(White);
    return card.Image();
}

} // namespace vantrel
