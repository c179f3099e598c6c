#pragma once

#include "base/Color.h"
#include <QImage>
#include <QRectF>
#include <functional>
#include <memory>
#include <optional>

namespace vantrel {

class PageCanvas;

/// The colours of a card in a coarse grid, to tell what lies behind a text: white, with everything
/// that is painted on it. Its size is bounded, so a question takes a bounded time.
class Grounds
{
public:
    /// @param card  the card's size in twips
    explicit Grounds(const QSizeF& card);
    Grounds(const Grounds&) = delete;
    Grounds& operator=(const Grounds&) = delete;
    ~Grounds();

    /// Paints something on top, in twips. A failure leaves out what it paints.
    void Paint(const std::function<void(PageCanvas& canvas)>& paint);
    /// The mean colour within a part of the card, in twips; nothing if that lies beside the card.
    std::optional<ColorValue> Mean(const QRectF& part) const;

private:
    double m_scale = 1;
    QImage m_image;
    std::unique_ptr<PageCanvas> m_canvas;
};

} // namespace vantrel
