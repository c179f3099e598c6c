#pragma once

#include <QImage>
#include <QWidget>
#include <optional>

namespace vantrel {

/// Shows a picture at an offset, in pixels from its own corner, and signals what the mouse does.
/// The keyboard can do the same: the arrow keys aim, with Shift by one pixel, and the space bar or
/// Enter acts as a press of the left button.
class DesktopViewportImage : public QWidget
{
    Q_OBJECT

public:
    explicit DesktopViewportImage(QWidget* parent = nullptr);

    void SetPicture(const QImage& picture);
    const QImage& ShownPicture() const { return m_picture; }
    void SetOffset(QPoint offset);

Q_SIGNALS:
    void Moved(QPoint global, QPointF local);
    void Pressed(Qt::MouseButton button);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    /// Moves the aim within the control and signals its place.
    void AimBy(QPoint step);

    QImage m_picture;
    QPoint m_offset;
    /// The point that the keyboard or the mouse aims at; none until one of them is used.
    std::optional<QPoint> m_aim;
};

} // namespace vantrel
