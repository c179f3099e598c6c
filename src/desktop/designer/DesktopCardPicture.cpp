#include "desktop/designer/DesktopCardPicture.h"
#include "base/Skip.h"
#include "desktop/controls/ScreenUnits.h"
#include "drawing/PartCanvas.h"

namespace vantrel {

namespace {

/// A card of at most so many dots is kept whole: a card at four times its size on a dense screen.
constexpr double MostDotsKept = 5e6;

QRect PartToKeep(const KeptCardPicture::View& view, const QRect& wanted, const QRect& visible)
{
    const QRect whole(QPoint(0, 0), view.Card);
    const double dots = static_cast<double>(view.Card.width()) * view.Card.height() *
                        view.DotsPerPixel * view.DotsPerPixel;
    if (dots <= MostDotsKept)
        return whole;
    return whole.intersected(wanted.united(visible));
}

} // namespace

void KeptCardPicture::Draw(const std::function<void(PageCanvas& canvas)>& paint, const View& view,
                           const QRect& wanted, const QRect& visible)
{
    const QRect whole(QPoint(0, 0), view.Card);
    const QRect shown = whole.intersected(wanted);
    if (shown.isEmpty() || (!m_stale && m_view == view && m_part.contains(shown)))
        return;
    m_stale = false;
    m_view = view;
    m_part = PartToKeep(view, wanted, visible);
    const double dots = view.DotsPerPixel;
    const QSize size = m_part.size() * dots;
    if (m_image.size() != size)
        m_image = QImage(size, QImage::Format_RGB32);
    m_image.setDevicePixelRatio(1.0);
    m_image.fill(Qt::white);
    Skip("paint the document", [&] {
        const auto canvas =
            CanvasOnPart(m_image, dots * view.Zoom * ScreenPixelsPerInch / TwipsPerInch,
                         m_part.topLeft() * dots);
        paint(*canvas);
        canvas->Finish();
    });
    m_image.setDevicePixelRatio(dots);
}

} // namespace vantrel
