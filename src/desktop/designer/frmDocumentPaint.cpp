// What the designer paints over the card.

#include "card/CardDocument.h"
#include "desktop/designer/frmDocument.h"
#include "station/session/Session.h"
#include <QPainter>
#include <algorithm>

namespace vantrel {

namespace {

constexpr QColor BorderColor(0, 0, 0, 70);
/// Seen on photos, and on light and dark cards.
constexpr QColor GuideColor(0xE0, 0x20, 0x90);
constexpr int BandWidth = 2;

/// The outlines of texts, and of pictures that are not there yet, are shown on the screen only.
void PaintOutline(QPainter& painter, const CardObject& object, const QRect& box)
{
    const bool isText = object.IsLabel() && object.BorderStyle != 0;
    const bool isEmptyPicture = object.IsImage() && !object.Picture.HasHandle();
    if (!isText && !isEmptyPicture)
        return;
    painter.setPen(QPen(BorderColor, 1, isText ? Qt::SolidLine : Qt::DashLine));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(box.adjusted(0, 0, -1, -1));
}

} // namespace

void frmDocument::PaintSelected(QPainter& painter) const
{
    const CardDocument& document = m_session.Document;
    if (document.SelectedObject == nullptr || document.AlsoSelected.empty())
        return;
    painter.setPen(QPen(palette().color(QPalette::Highlight), BandWidth));
    painter.setBrush(Qt::NoBrush);
    const QPoint way = HasTools() && document.Drag.Mode == DragMode::Moving ? Dragged() : QPoint();
    for (const CardObject* object : document.AlsoSelected)
        painter.drawRect(BoxOf(*object).translated(way).adjusted(0, 0, -1, -1));
}

void frmDocument::PaintGrips(QPainter& painter) const
{
    const CardDocument& document = m_session.Document;
    const bool isLarge = HasTools();
    if (isLarge && document.HandlesShown && document.SelectedObject != nullptr && !IsDragging()) {
        const CRect& box = document.Drag.m_DragRect;
        painter.setPen(QPen(palette().color(QPalette::Highlight), 1));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(
            BoxInWindow(box.Left, box.Top, box.Width(), box.Height()).adjusted(0, 0, -1, -1));
    }
    painter.setPen(QPen(isLarge ? palette().color(QPalette::Highlight)
                                : palette().color(QPalette::HighlightedText),
                        1));
    painter.setBrush(isLarge ? QColor(Qt::white) : palette().color(QPalette::Highlight));
    for (int grip = 0; grip <= document.HighestIndex(Family::picHandle); ++grip) {
        const CardObject* handle = document.Find(Family::picHandle, grip);
        const QRect box = handle == nullptr ? QRect() : GripBox(*handle);
        if (!box.isEmpty())
            painter.drawRect(box.adjusted(0, 0, -1, -1));
    }
}

void frmDocument::PaintGuides(QPainter& painter) const
{
    if (!m_snap || !IsDragging())
        return;
    const std::optional<QRectF> dragged = Extent();
    if (!dragged)
        return;
    painter.setPen(QPen(GuideColor, 1));
    if (const auto& hit = m_snap->Upright()) {
        const double from = std::min(hit->Line.From, dragged->top());
        const double to = std::max(hit->Line.To, dragged->bottom());
        const QRect line = BoxInWindow(hit->Line.Place, from, 0, to - from);
        painter.drawLine(line.left(), line.top(), line.left(), line.top() + line.height());
    }
    if (const auto& hit = m_snap->Level()) {
        const double from = std::min(hit->Line.From, dragged->left());
        const double to = std::max(hit->Line.To, dragged->right());
        const QRect line = BoxInWindow(from, hit->Line.Place, to - from, 0);
        painter.drawLine(line.left(), line.top(), line.left() + line.width(), line.top());
    }
}

void frmDocument::PaintBand(QPainter& painter) const
{
    if (!m_band)
        return;
    painter.setCompositionMode(QPainter::CompositionMode_Difference);
    painter.setPen(QPen(Qt::white, BandWidth));
    painter.setBrush(Qt::NoBrush);
    const QPoint origin = mapToGlobal(QPoint(0, 0));
    painter.drawRect(
        QRect(m_band->Left, m_band->Top, m_band->Width(), m_band->Height()).translated(-origin));
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
}

void frmDocument::PaintDesign(QPainter& painter, const QRect& dirty) const
{
    painter.setClipRect(CardRect(), Qt::IntersectClip);
    for (const auto& object : m_session.Document.Objects()) {
        if (object->Index() == 0 || !object->Visible)
            continue;
        if (const QRect box = BoxOf(*object); box.intersects(dirty))
            PaintOutline(painter, *object, box);
    }
    if (HasTools()) {
        // Grips and lines of a drag reach over the edge of the card.
        painter.setClipRect(dirty);
        PaintSelected(painter);
        PaintGrips(painter);
        PaintBand(painter);
        PaintGuides(painter);
        return;
    }
    PaintGrips(painter);
    PaintSelected(painter);
    PaintBand(painter);
}

} // namespace vantrel
