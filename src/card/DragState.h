#pragma once

#include "card/CRect.h"

namespace vantrel {

enum class DragMode { None = 0, Moving = 1, Resizing = 2 };

/// What the designer's drag is doing. A drag runs in screen pixels, and the object changes only
/// when the mouse is released.
struct DragState
{
    DragMode Mode = DragMode::None;
    /// Grip in use, 0 to 7.
    std::int16_t Handle = 0;
    /// Pointer minus the rectangle's corner, in screen pixels.
    std::int32_t OffsetX = 0;
    std::int32_t OffsetY = 0;
    /// The box of the selected object in twips; in a drag the rubber band in screen pixels.
    CRect m_DragRect;
};

} // namespace vantrel
