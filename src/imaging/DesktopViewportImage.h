#pragma once

#include <QImage>
#include <QWidget>

namespace vantrel {

/// Shows a picture at an offset, in pixels from its own corner, and tells what the mouse does.
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

private:
    QImage m_picture;
    QPoint m_offset;
};

} // namespace vantrel
