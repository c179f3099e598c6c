#pragma once

#include "drawing/PageCanvas.h"
#include <variant>
#include <vector>

namespace vantrel {

/// A page that keeps what is drawn until it is finished, because only then its fonts and pictures
/// are known. Lengths are points.
class ItemCanvas : public PageCanvas
{
public:
    using Item = std::variant<PlacedLine, PlacedPicture, PlacedBoxes>;

protected:
    ItemCanvas(double width, double height) : m_width(width), m_height(height) {}

    double Width() const override { return m_width; }
    double Height() const { return m_height; }
    /// In the order of drawing.
    const std::vector<Item>& Items() const { return m_items; }

private:
    void Set(const PlacedLine& placed) override { m_items.emplace_back(placed); }
    void Set(const PlacedPicture& placed) override { m_items.emplace_back(placed); }
    void Set(const PlacedBoxes& placed) override { m_items.emplace_back(placed); }

    double m_width;
    double m_height;
    std::vector<Item> m_items;
};

} // namespace vantrel
