#include "station/imaging/PhotoFrame.h"
#include "base/Twips.h"
#include <algorithm>
#include <cmath>

namespace vantrel {

namespace {

/// The shorter side of the smallest frame.
constexpr double LeastSide = 16;
/// Dots to the inch beyond which no card printer shows more.
constexpr double FinestDots = 600;

bool IsLeft(PhotoFrame::Corner corner)
{
    return corner == PhotoFrame::Corner::TopLeft || corner == PhotoFrame::Corner::BottomLeft;
}

bool IsTop(PhotoFrame::Corner corner)
{
    return corner == PhotoFrame::Corner::TopLeft || corner == PhotoFrame::Corner::TopRight;
}

} // namespace

PhotoFrame::PhotoFrame(QSize picture, QSizeF box) : m_picture(picture)
{
    if (picture.isEmpty())
        return;
    const QSizeF like = box.isEmpty() ? m_picture : box;
    m_proportions = like.width() / like.height();
    const QSizeF size = QSizeF(m_proportions, 1).scaled(m_picture, Qt::KeepAspectRatio);
    m_frame = QRectF(
        QPointF((m_picture.width() - size.width()) / 2, (m_picture.height() - size.height()) / 2),
        size);
}

QPointF PhotoFrame::PlaceOf(Corner corner) const
{
    return {IsLeft(corner) ? m_frame.left() : m_frame.right(),
            IsTop(corner) ? m_frame.top() : m_frame.bottom()};
}

double PhotoFrame::LeastWidth() const
{
    const QSizeF largest = QSizeF(m_proportions, 1).scaled(m_picture, Qt::KeepAspectRatio);
    return std::min(largest.width(), std::max(LeastSide, LeastSide * m_proportions));
}

void PhotoFrame::KeepInside()
{
    m_frame.moveLeft(
        std::clamp(m_frame.left(), 0.0, std::max(0.0, m_picture.width() - m_frame.width())));
    m_frame.moveTop(
        std::clamp(m_frame.top(), 0.0, std::max(0.0, m_picture.height() - m_frame.height())));
}

void PhotoFrame::MoveBy(QPointF step)
{
    if (IsEmpty())
        return;
    m_frame.translate(step);
    KeepInside();
}

void PhotoFrame::MoveMiddleTo(QPointF place)
{
    MoveBy(place - m_frame.center());
}

void PhotoFrame::ScaleBy(double factor)
{
    if (IsEmpty() || !(factor > 0))
        return;
    const QPointF middle = m_frame.center();
    const double most = QSizeF(m_proportions, 1).scaled(m_picture, Qt::KeepAspectRatio).width();
    const double width = std::clamp(m_frame.width() * factor, LeastWidth(), most);
    m_frame.setSize({width, width / m_proportions});
    m_frame.moveCenter(middle);
    KeepInside();
}

void PhotoFrame::DrawCorner(Corner corner, QPointF place)
{
    if (IsEmpty())
        return;
    const QPointF across(IsLeft(corner) ? m_frame.right() : m_frame.left(),
                         IsTop(corner) ? m_frame.bottom() : m_frame.top());
    const double wide = IsLeft(corner) ? across.x() - place.x() : place.x() - across.x();
    const double high = IsTop(corner) ? across.y() - place.y() : place.y() - across.y();
    const double roomAcross = IsLeft(corner) ? across.x() : m_picture.width() - across.x();
    const double roomDown = IsTop(corner) ? across.y() : m_picture.height() - across.y();
    const double most = std::min(roomAcross, roomDown * m_proportions);
    const double width = std::min(std::max({wide, high * m_proportions, LeastWidth()}), most);
    const QSizeF size(width, width / m_proportions);
    m_frame = QRectF(QPointF(IsLeft(corner) ? across.x() - size.width() : across.x(),
                             IsTop(corner) ? across.y() - size.height() : across.y()),
                     size);
}

QImage PhotoFrame::PartOf(const QImage& image, QSizeF box) const
{
    if (IsEmpty() || image.isNull())
        return {};
    const QPoint from(static_cast<int>(std::floor(m_frame.left() + 0.5)),
                      static_cast<int>(std::floor(m_frame.top() + 0.5)));
    const QSize size(std::max(1, static_cast<int>(std::lround(m_frame.width()))),
                     std::max(1, static_cast<int>(std::lround(m_frame.height()))));
    QImage part = image.copy(QRect(from, size).intersected(image.rect()));
    if (box.isEmpty())
        return part;
    const QSize finest(static_cast<int>(std::lround(PixelsOfTwips(box.width(), FinestDots))),
                       static_cast<int>(std::lround(PixelsOfTwips(box.height(), FinestDots))));
    if (finest.isEmpty() || part.width() <= finest.width())
        return part;
    return part.scaled(finest, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

} // namespace vantrel
