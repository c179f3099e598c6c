#pragma once

#include <QImage>
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

    Sketch(const Sketch&) = delete;
    Sketch& operator=(const Sketch&) = delete;
    ~Sketch();

    double Width() const { return m_width; }
    double Height() const { return m_height; }

    /// The path so far ends here, or goes on to here; a curve goes by two control points.
    void MoveTo(double x, double y) const;
    void LineTo(double x, double y) const;
    void CurveTo(double x1, double y1, double x2, double y2, double x, double y) const;
    void ClosePath() const;
    void NewPath() const;

    /// Keeps coordinates and clipping, and brings back what was kept last.
    void Save() const;
    void Restore() const;
    void Translate(double x, double y) const;
    void Scale(double x, double y) const;
    /// From now on only what lies in the present path is drawn; the path stays.
    void ClipPreserve() const;

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
    struct Pen;

    QImage m_image;
    std::unique_ptr<Pen> m_pen;
    double m_width;
    double m_height;
};

} // namespace vantrel
