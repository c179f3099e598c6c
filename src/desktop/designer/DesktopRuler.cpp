#include "desktop/designer/DesktopRuler.h"
#include "base/RulerScale.h"
#include "desktop/controls/Contrast.h"
#include "desktop/controls/DesktopAccess.h"
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace vantrel {

namespace {

constexpr double NumberSize = 0.75;
constexpr int NumberGap = 3;
/// Lengths of the lines: at a number, in the middle of a step, at a part.
constexpr int NumberLine = DesktopRuler::Breadth - 7;
constexpr int MiddleLine = 7;
constexpr int PartLine = 4;
/// Shares of the text's colour in the ground beside the card, in the lines, and of the highlight
/// in what is selected.
constexpr double BesideCard = 0.12;
constexpr double LineInk = 0.65;
constexpr double SelectedShare = 0.45;

QString WordOf(LengthUnit unit)
{
    switch (unit) {
    case LengthUnit::Millimetres:
        return QStringLiteral("millimetres");
    case LengthUnit::Inches:
        return QStringLiteral("inches");
    case LengthUnit::Twips:
        break;
    }
    return QStringLiteral("twips");
}

} // namespace

DesktopRuler::DesktopRuler(Qt::Orientation orientation, QWidget* parent)
    : QWidget(parent), m_orientation(orientation)
{
    TellAs<DesktopRuler, QAccessible::Indicator>();
    const bool isLevel = orientation == Qt::Horizontal;
    setObjectName(isLevel ? QStringLiteral("RulerAcross") : QStringLiteral("RulerDown"));
    setAccessibleName(isLevel ? QStringLiteral("Ruler Across") : QStringLiteral("Ruler Down"));
    QFont small = font();
    small.setPointSizeF(small.pointSizeF() * NumberSize);
    setFont(small);
}

int DesktopRuler::Length() const
{
    return m_orientation == Qt::Horizontal ? width() : height();
}

void DesktopRuler::Show(const RulerView& view)
{
    if (view == m_view)
        return;
    m_view = view;
    QString told = QStringLiteral("In ") + WordOf(view.Unit);
    if (view.Extent)
        told += QStringLiteral("; selected from %1 to %2")
                    .arg(LengthText(view.Extent->first, view.Unit),
                         LengthText(view.Extent->second, view.Unit));
    if (told != accessibleDescription())
        setAccessibleDescription(told);
    update();
}

void DesktopRuler::PaintSpan(QPainter& painter, double from, double to, const QColor& color) const
{
    const double scale = m_view.PixelsPerTwip;
    const double length = Length();
    const double begin = std::clamp(m_view.Origin + from * scale, 0.0, length);
    const double end = std::clamp(m_view.Origin + to * scale, 0.0, length);
    painter.fillRect(QRectF(begin, 0, std::max(1.0, end - begin), Breadth), color);
}

void DesktopRuler::PaintNumber(QPainter& painter, int at, const QString& number) const
{
    const QFontMetrics metrics = painter.fontMetrics();
    if (m_orientation == Qt::Horizontal) {
        painter.drawText(at + NumberGap, metrics.ascent(), number);
        return;
    }
    // Beside the line and reading upwards, on the paper's own axes.
    constexpr double quarter = -90;
    painter.save();
    painter.resetTransform();
    painter.translate(metrics.ascent(), at + NumberGap + metrics.horizontalAdvance(number));
    painter.rotate(quarter);
    painter.drawText(0, 0, number);
    painter.restore();
}

void DesktopRuler::PaintScale(QPainter& painter) const
{
    const RulerScale scale = ScaleOf(m_view.Unit, m_view.PixelsPerTwip);
    const double part = scale.Step * m_view.PixelsPerTwip / scale.Parts;
    const auto first = static_cast<qint64>(std::floor(-m_view.Origin / part));
    const auto last = static_cast<qint64>(std::ceil((Length() - m_view.Origin) / part));
    const QColor ink = palette().color(QPalette::WindowText);
    const QColor line = Between(ink, palette().color(QPalette::Window), LineInk);
    for (qint64 number = first; number <= last; ++number) {
        const int at =
            static_cast<int>(std::lround(m_view.Origin + static_cast<double>(number) * part));
        const qint64 within = ((number % scale.Parts) + scale.Parts) % scale.Parts;
        int length = PartLine;
        if (within == 0)
            length = NumberLine;
        else if (within == scale.Middle)
            length = MiddleLine;
        painter.fillRect(at, Breadth - length, 1, length, line);
        if (within != 0)
            continue;
        painter.setPen(ink);
        const qint64 steps = number / scale.Parts;
        const double twips = static_cast<double>(steps) * scale.Step;
        PaintNumber(painter, at, LengthText(twips, m_view.Unit));
    }
}

void DesktopRuler::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    if (m_orientation == Qt::Vertical) {
        // As the ruler across with its axes exchanged, so that its lines point at the card.
        painter.setTransform(QTransform(0, 1, 1, 0, 0, 0));
    }
    const QColor ground = palette().color(QPalette::Window);
    const QColor text = palette().color(QPalette::WindowText);
    const QColor highlight = palette().color(QPalette::Highlight);
    painter.fillRect(0, 0, Length(), Breadth, Between(text, ground, BesideCard));
    PaintSpan(painter, 0, m_view.Card, palette().color(QPalette::Base));
    if (m_view.Extent)
        PaintSpan(painter, m_view.Extent->first, m_view.Extent->second,
                  Between(highlight, palette().color(QPalette::Base), SelectedShare));
    if (m_view.PixelsPerTwip > 0)
        PaintScale(painter);
    if (m_view.Pointer)
        PaintSpan(painter, *m_view.Pointer, *m_view.Pointer, highlight);
    painter.fillRect(0, Breadth - 1, Length(), 1, Between(text, ground, SelectedShare));
}

} // namespace vantrel
