#pragma once

namespace vantrel {

/// A rectangle that is filled with one colour, on a page from its top left corner. Its corners are
/// quarters of an ellipse with these radii; with half the sides as radii the whole is an ellipse.
struct FilledBox
{
    double X = 0;
    double Y = 0;
    double Width = 0;
    double Height = 0;
    double RadiusX = 0;
    double RadiusY = 0;

    bool IsRounded() const { return RadiusX > 0 && RadiusY > 0; }

    friend bool operator==(const FilledBox&, const FilledBox&) = default;
};

} // namespace vantrel
