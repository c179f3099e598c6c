#pragma once

#include <QImage>
#include <QRect>
#include <functional>

namespace vantrel {

class PageCanvas;

/// The card as it prints, drawn once and kept until it changes, so that a drag over it costs no
/// drawing. Of a card that is shown very large only a part is kept.
class KeptCardPicture
{
public:
    /// What is shown: the size of the whole card in pixels of the window, how large it is shown,
    /// and how many dots of the screen a pixel is.
    struct View
    {
        QSize Card;
        double Zoom = 1;
        double DotsPerPixel = 1;

        friend bool operator==(const View&, const View&) = default;
    };

    /// The card has changed.
    void Spoil() { m_stale = true; }
    /// Draws what is missing.
    /// @param paint  paints the page; may fail, then the rest of the card stays white
    /// @param wanted  what is to be painted now
    /// @param visible  what can be seen, in which the next paintings will be
    void Draw(const std::function<void(PageCanvas& canvas)>& paint, const View& view,
              const QRect& wanted, const QRect& visible);
    /// The drawn part of the card, and where it lies on the card in pixels of the window.
    const QImage& Image() const { return m_image; }
    const QRect& Part() const { return m_part; }

private:
    bool m_stale = true;
    View m_view;
    QRect m_part;
    QImage m_image;
};

} // namespace vantrel
