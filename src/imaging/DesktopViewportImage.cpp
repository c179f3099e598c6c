#include "imaging/DesktopViewportImage.h"
#include <QMouseEvent>
#include <QPainter>

namespace vantrel {

DesktopViewportImage::DesktopViewportImage(QWidget* parent) : QWidget(parent)
{
    setMouseTracking(true);
    setCursor(Qt::CrossCursor);
}

void DesktopViewportImage::SetPicture(const QImage& picture)
{
    m_picture = picture;
    update();
}

void DesktopViewportImage::SetOffset(QPoint offset)
{
    m_offset = offset;
    update();
}

void DesktopViewportImage::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Dark));
    painter.drawImage(m_offset, m_picture);
}

void DesktopViewportImage::mouseMoveEvent(QMouseEvent* event)
{
    Q_EMIT Moved(event->globalPosition().toPoint(), event->position());
}

void DesktopViewportImage::mousePressEvent(QMouseEvent* event)
{
    Q_EMIT Pressed(event->button());
}

} // namespace vantrel
