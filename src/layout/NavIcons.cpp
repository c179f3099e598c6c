#include "layout/NavIcons.h"
#include <QPainter>
#include <vector>

namespace vantrel {

namespace {

/// The pictures are lines on a square grid.
constexpr int Grid = 16;
constexpr double LineWidth = 1.4;
constexpr int Scales[] = {1, 2, 3, 4};

using Line = std::vector<QPointF>;

std::vector<Line> LinesOf(NavPicture picture)
{
    switch (picture) {
    case NavPicture::Previous:
        return {{{10, 3.5}, {5.5, 8}, {10, 12.5}}};
    case NavPicture::Next:
        return {{{6, 3.5}, {10.5, 8}, {6, 12.5}}};
    case NavPicture::Open:
        return {{{2, 12.5}, {2, 3.5}, {6.2, 3.5}, {7.7, 5.5}, {14, 5.5}, {14, 12.5}, {2, 12.5}},
                {{2, 8}, {14, 8}}};
    case NavPicture::Save:
        return {{{2.5, 2.5}, {11, 2.5}, {13.5, 5}, {13.5, 13.5}, {2.5, 13.5}, {2.5, 2.5}},
                {{5, 2.5}, {5, 5.5}, {10, 5.5}, {10, 2.5}},
                {{4.8, 13.5}, {4.8, 9}, {11.2, 9}, {11.2, 13.5}}};
    }
    return {};
}

} // namespace

QIcon NavIcon(NavPicture picture, const QColor& color)
{
    QIcon icon;
    for (const int scale : Scales) {
        QPixmap pixmap(Grid * scale, Grid * scale);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(scale, scale);
        painter.setPen(QPen(color, LineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        for (const Line& line : LinesOf(picture))
            painter.drawPolyline(line.data(), static_cast<int>(line.size()));
        painter.end();
        icon.addPixmap(pixmap);
    }
    return icon;
}

} // namespace vantrel
