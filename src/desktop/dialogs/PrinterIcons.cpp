#include "desktop/dialogs/PrinterIcons.h"
#include "desktop/controls/LineIcon.h"

namespace vantrel {

QIcon PrinterIcon(bool acceptsJobs, const QPalette& palette)
{
    std::vector<QPolygonF> lines = {
        {{{4.5, 5.5}, {4.5, 1.8}, {11.5, 1.8}, {11.5, 5.5}}},
        {{{7, 11.5}, {1.8, 11.5}, {1.8, 5.5}, {14.2, 5.5}, {14.2, 8}}},
    };
    if (acceptsJobs) {
        lines.emplace_back(QList<QPointF>{{8.8, 12}, {10.8, 14}, {14.4, 9.8}});
    } else {
        lines.emplace_back(QList<QPointF>{{9.8, 10}, {14, 14.2}});
        lines.emplace_back(QList<QPointF>{{14, 10}, {9.8, 14.2}});
    }
    QIcon icon = LineIcon(lines, palette.color(QPalette::Text));
    AddLines(icon, lines, palette.color(QPalette::HighlightedText), QIcon::Selected);
    return icon;
}

} // namespace vantrel
