#include "desktop/controls/LineIcon.h"
#include <QPainter>

namespace vantrel {

namespace {
constexpr double LineWidth = 1.4;
constexpr int Scales[] = {1, 2, 3, 4};
} // namespace

void AddLines(QIcon& icon, const std::vector<QPolygonF>& lines, const QColor& color,
              QIcon::Mode mode)
{
    for (const int scale : Scales) {
        QPixmap pixmap(LineIconGrid * scale, LineIconGrid * scale);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(scale, scale);
        painter.setPen(QPen(color, LineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        for (const QPolygonF& line : lines)
            painter.drawPolyline(line);
        painter.end();
        icon.addPixmap(pixmap, mode);
    }
}

QIcon LineIcon(const std::vector<QPolygonF>& lines, const QColor& color)
{
    QIcon icon;
    AddLines(icon, lines, color, QIcon::Normal);
    return icon;
}

} // namespace vantrel
