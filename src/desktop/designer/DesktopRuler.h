#pragma once

#include "base/LengthUnit.h"
#include <QWidget>
#include <optional>
#include <utility>

namespace vantrel {

/// What a ruler shows.
struct RulerView
{
    /// Where the card begins along the ruler, in its pixels.
    double Origin = 0;
    double PixelsPerTwip = 1;
    /// Length of the card in twips.
    double Card = 0;
    LengthUnit Unit = LengthUnit::Millimetres;
    /// Begin and end of what is selected or dragged, in twips.
    std::optional<std::pair<double, double>> Extent;
    /// The pointer, in twips.
    std::optional<double> Pointer;

    friend bool operator==(const RulerView&, const RulerView&) = default;
};

/// A ruler along the card, above it or at its left: lines and numbers in the unit of the station,
/// 0 where the card begins; where the card lies, what is selected and where the pointer is.
class DesktopRuler : public QWidget
{
    Q_OBJECT

public:
    /// How broad a ruler is, in pixels.
    static constexpr int Breadth = 20;

    DesktopRuler(Qt::Orientation orientation, QWidget* parent);

    void Show(const RulerView& view);
    const RulerView& View() const { return m_view; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int Length() const;
    void PaintSpan(QPainter& painter, double from, double to, const QColor& color) const;
    void PaintScale(QPainter& painter) const;
    void PaintNumber(QPainter& painter, int at, const QString& number) const;

    Qt::Orientation m_orientation;
    RulerView m_view;
};

} // namespace vantrel
