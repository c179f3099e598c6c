#pragma once

#include <QImage>
#include <memory>

namespace vantrel {

/// Draws pictures by code: cairo paths on an image, in coordinates that the caller chooses.
class Sketch
{
public:
    /// A colour, 0xRRGGBB.
    struct Ink
    {
        unsigned Color = 0;
        double Opacity = 1.0;
    };

    /// @param width,height  size of the image in pixels
    /// @param unitsWide  width of the image in drawing units
    Sketch(int width, int height, double unitsWide);

    Sketch(const Sketch&) = delete;
    Sketch& operator=(const Sketch&) = delete;
    ~Sketch();

    /// Size of the image in drawing units.
    double Width() const { return m_width; }
    double Height() const { return m_height; }

    /// Start a new subpath at a point, or extend the path by a line or by a cubic curve with two
    /// control points.
    void MoveTo(double x, double y) const;
    void LineTo(double x, double y) const;
    void CurveTo(double x1, double y1, double x2, double y2, double x, double y) const;
    void ClosePath() const;
    void NewPath() const;

    /// Save the coordinate system and the clipping, and restore the last saved ones.
    void Save() const;
    void Restore() const;
    void Translate(double x, double y) const;
    void Scale(double x, double y) const;
    /// Restricts drawing to the inside of the current path and keeps the path.
    void ClipPreserve() const;

    /// Sets the colour of what is drawn next.
    void Use(Ink ink) const;
    /// Fill or stroke the current path and clear it.
    void Fill(Ink ink) const;
    void FillDown(double top, Ink above, double bottom, Ink below) const;
    void FillRound(double x, double y, double radius, Ink centre, Ink rim) const;
    void Line(double width, Ink ink) const;

    /// Add a closed shape to the path, in drawing units.
    void Rectangle(double x, double y, double width, double height) const;
    void RoundedRectangle(double x, double y, double width, double height, double radius) const;
    void Ellipse(double x, double y, double radiusX, double radiusY) const;

    /// The image, with a resolution of 300 dots to the inch.
    QImage Image() const;

private:
    struct Pen;

    QImage m_image;
    std::unique_ptr<Pen> m_pen;
    double m_width;
    double m_height;
};

} // namespace vantrel
