// The view of the card at a station with design tools: its zoom and its place on the workspace.

#include "desktop/controls/ScreenUnits.h"
#include "desktop/designer/frmDocument.h"
#include "station/session/Session.h"
#include <QKeyEvent>
#include <QMdiArea>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>
#include <array>
#include <cmath>

namespace vantrel {

namespace {

/// What surrounds the card in its window, in pixels.
int SurroundOf(const frmDocument& form)
{
    return form.CardRect().left();
}

constexpr int FitMargin = 16;
constexpr int RevealMargin = 16;
constexpr int KeyScroll = 40;
/// A page key leaves this share of what was seen in view.
constexpr int PageOverlap = 10;
constexpr int WheelStep = 120;

void Scroll(QScrollBar& bar, int pixels)
{
    bar.setValue(bar.value() + pixels);
}

/// How far a length must be moved to lie within a view, or at least its beginning.
int WayInto(int begin, int end, int viewBegin, int viewEnd)
{
    if (begin < viewBegin || end - begin > viewEnd - viewBegin)
        return begin - viewBegin;
    return std::max(0, end - viewEnd);
}

} // namespace

bool frmDocument::HasTools() const
{
    return m_session.Options.DesignTools;
}

QRect frmDocument::BoxInWindow(double left, double top, double width, double height) const
{
    return ScreenRect(left * m_zoom, top * m_zoom, width * m_zoom, height * m_zoom)
        .translated(CardRect().topLeft());
}

QSize frmDocument::ZoomedSize() const
{
    const CardDocument& document = m_session.Document;
    const int surround = 2 * SurroundOf(*this);
    return BoxInWindow(0, 0, document.Width, document.Height).size() + QSize(surround, surround);
}

void frmDocument::TakePlace()
{
    const CardDocument& document = m_session.Document;
    const int surround = SurroundOf(*this);
    const QRect home = ScreenRect(document.Left, document.Top, document.Width, document.Height)
                           .adjusted(-surround, -surround, surround, surround);
    if (!HasTools()) {
        if (geometry() != home)
            setGeometry(home);
        return;
    }
    // A view that was scrolled or zoomed stays for the pages of one size.
    if (home != m_home) {
        m_home = home;
        PlaceAt(home.topLeft());
    } else if (size() != ZoomedSize()) {
        PlaceAt(pos());
    }
}

void frmDocument::PlaceAt(const QPoint& corner)
{
    if (QMdiArea* area = mdiArea()) {
        // The workspace makes the ranges of its scroll bars anew from where its windows are. From 0
        // on, which every range has, they leave the window where it is put.
        area->horizontalScrollBar()->setValue(0);
        area->verticalScrollBar()->setValue(0);
    }
    setGeometry(QRect(corner, ZoomedSize()));
}

QRect frmDocument::WorkspaceView() const
{
    return parentWidget() == nullptr ? QRect(mapToParent(QPoint(0, 0)), size())
                                     : parentWidget()->rect();
}

QRect frmDocument::VisiblePart() const
{
    return rect().intersected(WorkspaceView().translated(-pos()));
}

QRect frmDocument::ScreenView() const
{
    const QRect visible = VisiblePart();
    return {mapToGlobal(visible.topLeft()), visible.size()};
}

void frmDocument::ZoomTo(double zoom, const QPointF& around)
{
    const double allowed = CardZoom::Allowed(zoom);
    if (!HasTools() || IsDragging() || m_bandFrom || allowed == m_zoom)
        return;
    const QPointF surround(SurroundOf(*this), SurroundOf(*this));
    const QPointF onCard = (around - surround) / m_zoom;
    const QPointF inView = QPointF(pos()) + around;
    m_zoom = allowed;
    PlaceAt((inView - onCard * m_zoom - surround).toPoint());
    PlaceText();
    TellChanges();
    update();
    Q_EMIT ViewChanged();
}

void frmDocument::ZoomInPlace(double zoom)
{
    const QRect visible = VisiblePart();
    QPointF around = QRectF(visible.isEmpty() ? rect() : visible).center();
    if (const CardObject* selected = m_session.Document.SelectedObject) {
        if (const QRect box = BoxOf(*selected); visible.contains(box.center()))
            around = QRectF(box).center();
    }
    ZoomTo(zoom, around);
}

void frmDocument::ZoomStep(int direction)
{
    ZoomInPlace(CardZoom::Next(m_zoom, direction));
}

void frmDocument::ZoomToActual()
{
    ZoomInPlace(CardZoom::Actual);
    if (m_zoom != CardZoom::Actual || IsDragging() || !HasTools())
        return;
    // A card that the workspace holds is seen whole.
    if (WorkspaceView().contains(QRect(m_home.topLeft(), size())))
        PlaceAt(m_home.topLeft());
}

void frmDocument::ZoomToFit()
{
    const CardDocument& document = m_session.Document;
    if (!HasTools() || IsDragging() || !(document.Width > 0) || !(document.Height > 0))
        return;
    const QRect view = WorkspaceView();
    const double across =
        (view.width() - 2 * FitMargin) / PixelsOfTwips(document.Width, ScreenPixelsPerInch);
    const double down =
        (view.height() - 2 * FitMargin) / PixelsOfTwips(document.Height, ScreenPixelsPerInch);
    // Whole percents, and never more than what fits.
    constexpr double percent = 100;
    ZoomInPlace(std::floor(std::min(across, down) * percent) / percent);
    if (m_bandFrom)
        return;
    const QSize beside = (view.size() - size()) / 2;
    PlaceAt({std::max(0, beside.width()), std::max(0, beside.height())});
    Q_EMIT ViewChanged();
}

void frmDocument::ScrollBy(const QPoint& pixels)
{
    if (QMdiArea* area = mdiArea()) {
        Scroll(*area->horizontalScrollBar(), pixels.x());
        Scroll(*area->verticalScrollBar(), pixels.y());
    }
}

void frmDocument::Reveal(const CardObject& object)
{
    if (!HasTools())
        return;
    const QRect box = BoxOf(object)
                          .adjusted(-RevealMargin, -RevealMargin, RevealMargin, RevealMargin)
                          .intersected(rect())
                          .translated(pos());
    const QRect view = WorkspaceView();
    if (!view.contains(box))
        ScrollBy({WayInto(box.left(), box.right(), view.left(), view.right()),
                  WayInto(box.top(), box.bottom(), view.top(), view.bottom())});
}

bool frmDocument::ScrollByKey(int key, Qt::KeyboardModifiers held)
{
    struct KeyRow
    {
        int Key;
        QPoint Pixels;
    };
    const QSize seen = WorkspaceView().size() * (PageOverlap - 1) / PageOverlap;
    const std::array<KeyRow, 8> rows = {{{Qt::Key_Left, {-KeyScroll, 0}},
                                         {Qt::Key_Right, {KeyScroll, 0}},
                                         {Qt::Key_Up, {0, -KeyScroll}},
                                         {Qt::Key_Down, {0, KeyScroll}},
                                         {Qt::Key_PageUp, {0, -seen.height()}},
                                         {Qt::Key_PageDown, {0, seen.height()}},
                                         {Qt::Key_Home, {-width(), -height()}},
                                         {Qt::Key_End, {width(), height()}}}};
    const auto* const row = std::ranges::find(rows, key, &KeyRow::Key);
    if (row == rows.end() || (held != Qt::NoModifier && held != Qt::ShiftModifier))
        return false;
    const bool isPage = key == Qt::Key_PageUp || key == Qt::Key_PageDown;
    const bool goesAcross = isPage && held == Qt::ShiftModifier;
    ScrollBy(goesAcross ? QPoint(row->Pixels.y() < 0 ? -seen.width() : seen.width(), 0)
                        : row->Pixels);
    return true;
}

void frmDocument::wheelEvent(QWheelEvent* event)
{
    if (!HasTools() || event->modifiers() != Qt::ControlModifier) {
        QMdiSubWindow::wheelEvent(event);
        return;
    }
    event->accept();
    m_wheel += event->angleDelta().y();
    for (; std::abs(m_wheel) >= WheelStep; m_wheel -= m_wheel > 0 ? WheelStep : -WheelStep)
        ZoomTo(CardZoom::Next(m_zoom, m_wheel), event->position());
}

void frmDocument::moveEvent(QMoveEvent* event)
{
    QMdiSubWindow::moveEvent(event);
    if (!HasTools())
        return;
    // The workspace was scrolled. What is dragged belongs to the card, and the card has moved.
    const QPoint moved = event->pos() - event->oldPos();
    const auto shift = [&](CRect& band) {
        band.Left += moved.x();
        band.Right += moved.x();
        band.Top += moved.y();
        band.Bottom += moved.y();
    };
    if (IsDragging())
        shift(m_session.Document.Drag.m_DragRect);
    if (m_band)
        shift(*m_band);
    if (m_bandFrom)
        m_bandFrom = {m_bandFrom->X + moved.x(), m_bandFrom->Y + moved.y()};
    TellChanges();
    Q_EMIT ViewChanged();
}

void frmDocument::hideEvent(QHideEvent* event)
{
    QMdiSubWindow::hideEvent(event);
    if (HasTools())
        Q_EMIT ViewChanged();
}

void frmDocument::focusInEvent(QFocusEvent* event)
{
    QMdiSubWindow::focusInEvent(event);
    if (HasTools())
        TellChanges();
}

void frmDocument::focusOutEvent(QFocusEvent* event)
{
    QMdiSubWindow::focusOutEvent(event);
    if (HasTools())
        TellChanges();
}

QPointF frmDocument::TwipsAt(const QPointF& position) const
{
    const QPointF onCard = position - QPointF(CardRect().topLeft());
    return {TwipsOfPixels(onCard.x() / m_zoom, ScreenPixelsPerInch),
            TwipsOfPixels(onCard.y() / m_zoom, ScreenPixelsPerInch)};
}

std::optional<QRectF> frmDocument::Extent() const
{
    const CardDocument& document = m_session.Document;
    const CardObject* const selected = document.SelectedObject;
    if (selected == nullptr)
        return std::nullopt;
    if (IsDragging()) {
        const CRect& band = document.Drag.m_DragRect;
        const auto twips = [this](std::int32_t x, std::int32_t y) {
            return TwipsAt(mapFromGlobal(QPointF(x, y)));
        };
        return QRectF(twips(band.Left, band.Top), twips(band.Right, band.Bottom)).normalized();
    }
    QRectF extent(selected->Left, selected->Top, selected->Width, selected->Height);
    for (const CardObject* object : document.AlsoSelected)
        extent |= QRectF(object->Left, object->Top, object->Width, object->Height);
    return extent;
}

} // namespace vantrel
