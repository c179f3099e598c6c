#pragma once

#include "card/CRect.h"

namespace vantrel {

enum class DragMode { None = 0, Moving = 1, Resizing = 2 };

/// State of a drag in the designer. A drag works in screen pixels; the object changes only when the
/// mouse button is released.
struct DragState
{
    DragMode Mode = DragMode::None;
    /// The dragged grip, 0 to 7.
    std::int16_t Handle = 0;
    /// Pointer minus the rectangle's corner, in screen pixels.
    std::int32_t OffsetX = 0;
    std::int32_t OffsetY = 0;
    /// The box of the selected object in twips; during a drag the rubber band in screen pixels.
    CRect m_DragRect;
};

} // namespace vantrel
