#pragma once

#include <QImage>
#include <QRectF>
#include <QSize>

namespace vantrel {

/// The part of a picture that is taken for a box of the card: a rectangle within the picture that
/// has the box's proportions. Lengths are pixels of the picture.
class PhotoFrame
{
public:
    /// The corners, by their place in the frame.
    enum class Corner { TopLeft, TopRight, BottomLeft, BottomRight };

    PhotoFrame() = default;
    /// Begins with the largest frame, in the middle of the picture.
    /// @param box  the box of the card, in any unit; without a side the frame has the picture's
    /// proportions
    PhotoFrame(QSize picture, QSizeF box);

    /// Whether there is no picture.
    bool IsEmpty() const { return m_frame.isEmpty(); }
    const QRectF& Frame() const { return m_frame; }
    QPointF PlaceOf(Corner corner) const;

    /// Moves the frame, as far as the picture reaches.
    void MoveBy(QPointF step);
    /// Puts the middle of the frame there, as far as the picture reaches.
    void MoveMiddleTo(QPointF place);
    /// Makes the frame larger or smaller about its middle. It never leaves the picture, and keeps a
    /// width and a height that a mouse can take hold of.
    void ScaleBy(double factor);
    /// Draws a corner to a place, as near as the proportions and the picture allow; the corner
    /// across stays where it is.
    void DrawCorner(Corner corner, QPointF place);

    /// The part of the picture within the frame; null if there is none. A part that is finer than
    /// any card printer prints is made smaller.
    /// @param image  the picture
    /// @param box  the box of the card in twips; empty for no limit
    QImage PartOf(const QImage& image, QSizeF box) const;

private:
    double LeastWidth() const;
    void KeepInside();

    QSizeF m_picture;
    /// Width by height of the frame.
    double m_proportions = 1;
    QRectF m_frame;
};

} // namespace vantrel
