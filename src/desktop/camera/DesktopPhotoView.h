#pragma once

#include "station/imaging/PhotoFrame.h"
#include <QPixmap>
#include <QWidget>
#include <optional>

namespace vantrel {

/// Shows a whole picture, and on it the frame of the part that is taken; what is outside of the
/// frame is dimmed. The mouse moves the frame and draws its corners, the wheel makes it larger and
/// smaller. The keyboard does the same: the arrow keys move it, with Shift by one pixel, plus and
/// minus size it, Home begins anew. A double click, Enter and the space bar take the part.
class DesktopPhotoView : public QWidget
{
    Q_OBJECT

public:
    explicit DesktopPhotoView(QWidget* parent = nullptr);

    /// Shows a picture with the largest frame for a box of these proportions.
    void SetPicture(const QImage& picture, QSizeF box);
    const PhotoFrame& Frame() const { return m_frame; }
    void ScaleFrame(double factor);
    /// A place of the picture, in its own pixels, in this control.
    QPointF OnView(QPointF place) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The frame has another place or size, or there is another picture.
    void FrameChanged();
    /// The part within the frame was taken.
    void Taken();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    /// What the pointer has taken hold of.
    struct Hold
    {
        /// The corner, or none where the frame as a whole is held.
        std::optional<PhotoFrame::Corner> Corner;
        /// From the pointer to the corner or to the middle of the frame, in pixels of the picture.
        QPointF Offset;
    };

    /// Where the picture is shown.
    QRectF Shown() const;
    QPointF InPicture(QPointF place) const;
    std::optional<PhotoFrame::Corner> CornerAt(QPointF place) const;
    void ShowPointer(QPointF place);
    void MoveFrame(QPointF pixels);
    void Tell();

    QImage m_picture;
    QSizeF m_box;
    QPixmap m_scaled;
    PhotoFrame m_frame;
    std::optional<Hold> m_hold;
};

} // namespace vantrel
