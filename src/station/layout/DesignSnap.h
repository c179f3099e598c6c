#pragma once

#include "card/SnapLines.h"
#include "station/layout/DesignSurface.h"

namespace vantrel {

/// Snapping while an object is dragged, for a station with design tools: the pointer is taken to
/// where the dragged sides lie on a line of the page, and the release puts them exactly there. To
/// be kept for one drag. Nothing here fails.
class DesignSnap
{
public:
    /// How near a side must come to a line, in pixels of the screen.
    static constexpr double Reach = 4;

    /// Begins with the page as it is at the start of the drag.
    explicit DesignSnap(const CardDocument& document);

    /// @param cursor  the pointer in screen pixels, before `MoveMouse`
    /// @return where the pointer is to be taken instead; the same place where nothing is near
    DesignScreen::Point Aim(const CardDocument& document, const FormOnScreen& form,
                            DesignScreen::Point cursor);
    /// Lets go of the lines, such as while a key forbids snapping.
    void LetGo();

    /// The upright and the level line on which the dragged object lies now.
    const std::optional<SnapHit>& Upright() const { return m_upright; }
    const std::optional<SnapHit>& Level() const { return m_level; }

private:
    SnapLines m_lines;
    /// Length of the dragged object across and down, in twips.
    double m_width = 0;
    double m_height = 0;
    std::optional<SnapHit> m_upright;
    std::optional<SnapHit> m_level;
};

} // namespace vantrel
