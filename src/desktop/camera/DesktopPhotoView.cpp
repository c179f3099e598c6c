#include "desktop/camera/DesktopPhotoView.h"
#include "desktop/controls/DesktopAccess.h"
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QStyle>
#include <QStyleOptionFocusRect>
#include <QWheelEvent>
#include <array>
#include <cmath>

namespace vantrel {

namespace {

constexpr QSize Comfortable{560, 420};
constexpr QSize Least{320, 240};
/// How near to a corner the pointer takes hold of it, and the side of what is drawn there, in
/// pixels of the screen.
constexpr double Reach = 14;
constexpr double GripSide = 11;
constexpr int KeyStep = 8;
constexpr double SizeStep = 1.1;
constexpr QColor Dimmed(0, 0, 0, 140);

constexpr std::array Corners = {PhotoFrame::Corner::TopLeft, PhotoFrame::Corner::TopRight,
                                PhotoFrame::Corner::BottomLeft, PhotoFrame::Corner::BottomRight};

Qt::CursorShape PointerOf(std::optional<PhotoFrame::Corner> corner)
{
    if (!corner)
        return Qt::SizeAllCursor;
    const bool falls =
        *corner == PhotoFrame::Corner::TopLeft || *corner == PhotoFrame::Corner::BottomRight;
    return falls ? Qt::SizeFDiagCursor : Qt::SizeBDiagCursor;
}

int Percent(double part, double whole)
{
    return whole > 0 ? static_cast<int>(std::lround(100 * part / whole)) : 0;
}

} // namespace

DesktopPhotoView::DesktopPhotoView(QWidget* parent) : QWidget(parent)
{
    TellAs<DesktopPhotoView, QAccessible::Graphic>();
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    Tell();
}

void DesktopPhotoView::SetPicture(const QImage& picture, QSizeF box)
{
    m_picture = picture;
    m_box = box;
    m_scaled = {};
    m_hold.reset();
    m_frame = PhotoFrame(picture.size(), box);
    Tell();
}

void DesktopPhotoView::ScaleFrame(double factor)
{
    m_frame.ScaleBy(factor);
    Tell();
}

QSize DesktopPhotoView::sizeHint() const
{
    return Comfortable;
}

QSize DesktopPhotoView::minimumSizeHint() const
{
    return Least;
}

QRectF DesktopPhotoView::Shown() const
{
    const QSizeF size = QSizeF(m_picture.size()).scaled(QSizeF(this->size()), Qt::KeepAspectRatio);
    return {QPointF((width() - size.width()) / 2, (height() - size.height()) / 2), size};
}

QPointF DesktopPhotoView::OnView(QPointF place) const
{
    const QRectF shown = Shown();
    return {shown.left() + place.x() * shown.width() / m_picture.width(),
            shown.top() + place.y() * shown.height() / m_picture.height()};
}

QPointF DesktopPhotoView::InPicture(QPointF place) const
{
    const QRectF shown = Shown();
    if (shown.isEmpty())
        return {};
    return {(place.x() - shown.left()) * m_picture.width() / shown.width(),
            (place.y() - shown.top()) * m_picture.height() / shown.height()};
}

std::optional<PhotoFrame::Corner> DesktopPhotoView::CornerAt(QPointF place) const
{
    for (const PhotoFrame::Corner corner : Corners) {
        const QPointF off = OnView(m_frame.PlaceOf(corner)) - place;
        if (std::abs(off.x()) <= Reach && std::abs(off.y()) <= Reach)
            return corner;
    }
    return std::nullopt;
}

void DesktopPhotoView::Tell()
{
    const QRectF& frame = m_frame.Frame();
    setAccessibleDescription(
        m_frame.IsEmpty()
            ? QStringLiteral("There is no picture yet.")
            : QStringLiteral("The frame begins at %1 percent across and %2 percent down, and is "
                             "%3 percent of the picture wide. The arrow keys move it, plus and "
                             "minus size it, Enter takes the part.")
                  .arg(Percent(frame.left(), m_picture.width()))
                  .arg(Percent(frame.top(), m_picture.height()))
                  .arg(Percent(frame.width(), m_picture.width())));
    update();
    Q_EMIT FrameChanged();
}

void DesktopPhotoView::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Dark));
    if (!m_frame.IsEmpty()) {
        const QRectF shown = Shown();
        const QSize pixels = (shown.size() * devicePixelRatioF()).toSize();
        if (m_scaled.size() != pixels)
            m_scaled = QPixmap::fromImage(
                m_picture.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
        painter.drawPixmap(shown, m_scaled, QRectF(m_scaled.rect()));
        const QRectF frame(OnView(m_frame.Frame().topLeft()),
                           OnView(m_frame.Frame().bottomRight()));
        QPainterPath outside;
        outside.addRect(shown);
        outside.addRect(frame);
        painter.fillPath(outside, Dimmed);
        painter.setRenderHint(QPainter::Antialiasing);
        // A dark line beside a light one is seen on every picture.
        painter.setPen(QPen(Qt::black, 3));
        painter.drawRect(frame);
        painter.setPen(QPen(Qt::white, 1));
        painter.drawRect(frame);
        painter.setPen(QPen(Qt::black, 1));
        painter.setBrush(Qt::white);
        for (const PhotoFrame::Corner corner : Corners) {
            QRectF grip(0, 0, GripSide, GripSide);
            grip.moveCenter(OnView(m_frame.PlaceOf(corner)));
            painter.drawRect(grip.intersected(QRectF(rect()).adjusted(1, 1, -1, -1)));
        }
    }
    if (!hasFocus())
        return;
    QStyleOptionFocusRect focus;
    focus.initFrom(this);
    focus.backgroundColor = palette().color(QPalette::Dark);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, this);
}

void DesktopPhotoView::ShowPointer(QPointF place)
{
    if (m_frame.IsEmpty())
        unsetCursor();
    else
        setCursor(PointerOf(CornerAt(place)));
}

void DesktopPhotoView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || m_frame.IsEmpty())
        return;
    const QPointF at = InPicture(event->position());
    const auto corner = CornerAt(event->position());
    if (!corner && !m_frame.Frame().contains(at)) {
        m_frame.MoveMiddleTo(at);
        Tell();
    }
    const QPointF held = corner ? m_frame.PlaceOf(*corner) : m_frame.Frame().center();
    m_hold = Hold{corner, held - at};
}

void DesktopPhotoView::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_hold) {
        ShowPointer(event->position());
        return;
    }
    const QPointF to = InPicture(event->position()) + m_hold->Offset;
    if (m_hold->Corner)
        m_frame.DrawCorner(*m_hold->Corner, to);
    else
        m_frame.MoveMiddleTo(to);
    Tell();
}

void DesktopPhotoView::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        m_hold.reset();
}

void DesktopPhotoView::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && !m_frame.IsEmpty())
        Q_EMIT Taken();
}

void DesktopPhotoView::wheelEvent(QWheelEvent* event)
{
    constexpr double notch = 120;
    const int turned = event->angleDelta().y();
    if (turned != 0)
        ScaleFrame(std::pow(SizeStep, turned / notch));
    event->accept();
}

void DesktopPhotoView::MoveFrame(QPointF pixels)
{
    const QRectF shown = Shown();
    if (shown.isEmpty())
        return;
    m_frame.MoveBy(pixels * (m_picture.width() / shown.width()));
    Tell();
}

void DesktopPhotoView::keyPressEvent(QKeyEvent* event)
{
    const int step = event->modifiers().testFlag(Qt::ShiftModifier) ? 1 : KeyStep;
    switch (event->key()) {
    case Qt::Key_Left:
        MoveFrame(QPointF(-step, 0));
        return;
    case Qt::Key_Right:
        MoveFrame(QPointF(step, 0));
        return;
    case Qt::Key_Up:
        MoveFrame(QPointF(0, -step));
        return;
    case Qt::Key_Down:
        MoveFrame(QPointF(0, step));
        return;
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        ScaleFrame(SizeStep);
        return;
    case Qt::Key_Minus:
        ScaleFrame(1 / SizeStep);
        return;
    case Qt::Key_Home:
        m_frame = PhotoFrame(m_picture.size(), m_box);
        Tell();
        return;
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (!m_frame.IsEmpty())
            Q_EMIT Taken();
        return;
    default:
        QWidget::keyPressEvent(event);
    }
}

} // namespace vantrel
