#include "desktop/camera/DesktopViewportImage.h"
#include "desktop/controls/DesktopAccess.h"
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>
#include <algorithm>

namespace vantrel {

namespace {
constexpr int AimStep = 8;
} // namespace

DesktopViewportImage::DesktopViewportImage(QWidget* parent) : QWidget(parent)
{
    TellAs<DesktopViewportImage, QAccessible::Graphic>();
    setFocusPolicy(Qt::StrongFocus);
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
    // While an operator aims, nothing may cover the picture, since the pixels are taken from the
    // screen.
    if (!hasFocus() || m_aim)
        return;
    QStyleOptionFocusRect frame;
    frame.initFrom(this);
    frame.backgroundColor = palette().color(QPalette::Dark);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &frame, &painter, this);
}

void DesktopViewportImage::mouseMoveEvent(QMouseEvent* event)
{
    m_aim = event->position().toPoint();
    Q_EMIT Moved(event->globalPosition().toPoint(), event->position());
}

void DesktopViewportImage::mousePressEvent(QMouseEvent* event)
{
    Q_EMIT Pressed(event->button());
}

void DesktopViewportImage::AimBy(QPoint step)
{
    const bool framed = hasFocus() && !m_aim;
    const QPoint aim = m_aim.value_or(rect().center()) + step;
    m_aim = QPoint(std::clamp(aim.x(), 0, width() - 1), std::clamp(aim.y(), 0, height() - 1));
    if (framed)
        repaint();
    Q_EMIT Moved(mapToGlobal(*m_aim), *m_aim);
}

void DesktopViewportImage::keyPressEvent(QKeyEvent* event)
{
    const int step = event->modifiers().testFlag(Qt::ShiftModifier) ? 1 : AimStep;
    switch (event->key()) {
    case Qt::Key_Left:
        AimBy({-step, 0});
        return;
    case Qt::Key_Right:
        AimBy({step, 0});
        return;
    case Qt::Key_Up:
        AimBy({0, -step});
        return;
    case Qt::Key_Down:
        AimBy({0, step});
        return;
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (!m_aim)
            AimBy({0, 0});
        Q_EMIT Pressed(Qt::LeftButton);
        return;
    default:
        QWidget::keyPressEvent(event);
    }
}

} // namespace vantrel
