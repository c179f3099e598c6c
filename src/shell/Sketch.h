#pragma once

#include <QImage>
#include <cairo.h>
#include <memory>

namespace vantrel {

/// A drawing by code: cairo paths on a picture of so many pixels, in a system of coordinates of its
/// own choice.
class Sketch
{
public:
    /// Colours are 0xRRGGBB.
    struct Ink
    {
        unsigned Color = 0;
        double Opacity = 1.0;
    };

    /// @param unitsWide  how many units of the drawing the width of the picture is
    Sketch(int width, int height, double unitsWide);

    cairo_t* Pen() const { return m_pen.get(); }
    double Width() const { return m_width; }
    double Height() const { return m_height; }

    void Use(Ink ink) const;
    /// Fill or line the present path, which is then gone.
    void Fill(Ink ink) const;
    void FillDown(double top, Ink above, double bottom, Ink below) const;
    void FillRound(double x, double y, double radius, Ink centre, Ink rim) const;
    void Line(double width, Ink ink) const;

    void Rectangle(double x, double y, double width, double height) const;
    void RoundedRectangle(double x, double y, double width, double height, double radius) const;
    void Ellipse(double x, double y, double radiusX, double radiusY) const;

    /// The finished picture, at 300 dots to the inch.
    QImage Image() const;

private:
    struct Destroy
    {
        void operator()(cairo_t* pen) const { cairo_destroy(pen); }
    };

    QImage m_image;
    std::unique_ptr<cairo_t, Destroy> m_pen;
    double m_width;
    double m_height;
};

} // namespace vantrel
