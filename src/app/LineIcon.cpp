#include "app/LineIcon.h"
#include <QPainter>

namespace vantrel {

namespace {
constexpr double LineWidth = 1.4;
constexpr int Scales[] = {1, 2, 3, 4};
} // namespace

QIcon LineIcon(const std::vector<QPolygonF>& lines, const QColor& color)
{
    QIcon icon;
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
        icon.addPixmap(pixmap);
    }
    return icon;
}

} // namespace vantrel
