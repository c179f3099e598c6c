#include "card/Grounds.h"
#include "base/Skip.h"
#include "drawing/PageCanvas.h"
#include <algorithm>
#include <cmath>

namespace vantrel {

namespace {

/// Cells along the card's longer side: about as many as a card has points of 2 mm and less.
constexpr double MostCells = 96;

QSize CellsOf(const QSizeF& card, double scale)
{
    const QSizeF cells(std::ceil(card.width() * scale), std::ceil(card.height() * scale));
    return cells.boundedTo({MostCells, MostCells}).expandedTo({1, 1}).toSize();
}

} // namespace

Grounds::Grounds(const QSizeF& card)
    : m_scale(MostCells / std::max({card.width(), card.height(), MostCells})),
      m_image(CellsOf(card, m_scale), QImage::Format_RGB32)
{
    m_image.fill(Qt::white);
    m_canvas = PageCanvas::OnImage(m_image, m_scale);
}

Grounds::~Grounds() = default;

void Grounds::Paint(const std::function<void(PageCanvas& canvas)>& paint)
{
    Skip("paint ground", [&] { paint(*m_canvas); });
}

std::optional<ColorValue> Grounds::Mean(const QRectF& part) const
{
    const QRectF scaled(part.topLeft() * m_scale, part.size() * m_scale);
    const QRectF seen = scaled.intersected(QRectF(m_image.rect()));
    if (seen.isEmpty())
        return std::nullopt;
    const QRect cells = seen.toAlignedRect().intersected(m_image.rect());
    ColorParts sum;
    for (int y = cells.top(); y <= cells.bottom(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(m_image.constScanLine(y));
        for (int x = cells.left(); x <= cells.right(); ++x) {
            sum.Red += qRed(line[x]);
            sum.Green += qGreen(line[x]);
            sum.Blue += qBlue(line[x]);
        }
    }
    const int count = cells.width() * cells.height();
    return ColorOfParts({sum.Red / count, sum.Green / count, sum.Blue / count});
}

} // namespace vantrel
