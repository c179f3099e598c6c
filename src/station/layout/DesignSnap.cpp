#include "station/layout/DesignSnap.h"
#include "base/Convert.h"
#include "card/CardDocument.h"
#include <cmath>

namespace vantrel {

namespace {

constexpr double TheSide[] = {0};

/// Takes the pointer along one axis to where the drag lies on a line.
/// @param grabbed  from the corner of the dragged box to the pointer, in pixels; 0 for a side
std::int32_t AimAlong(std::optional<SnapHit>& hit, const std::vector<SnapLine>& lines,
                      std::int32_t cursor, std::int32_t grabbed, double length,
                      std::span<const double> shares, std::int32_t origin, double twipsPerPixel)
{
    const double begin = (static_cast<double>(cursor) - grabbed - origin) * twipsPerPixel;
    hit = NearestLine(lines, begin, length, shares, DesignSnap::Reach * twipsPerPixel);
    if (!hit)
        return cursor;
    const double snapped = hit->Line.Place - hit->Share * length;
    return static_cast<std::int32_t>(std::lround(snapped / twipsPerPixel)) + origin + grabbed;
}

} // namespace

DesignSnap::DesignSnap(const CardDocument& document) : m_lines(LinesToSnapTo(document))
{
    if (const CardObject* object = document.SelectedObject) {
        m_width = object->Width;
        m_height = object->Height;
    }
}

DesignScreen::Point DesignSnap::Aim(const CardDocument& document, const FormOnScreen& form,
                                    DesignScreen::Point cursor)
{
    const DragState& drag = document.Drag;
    const double scale = form.TwipsPerPixelX;
    DesignScreen::Point aim = cursor;
    LetGo();
    if (drag.Mode == DragMode::Moving) {
        aim.X = AimAlong(m_upright, m_lines.Upright, cursor.X, drag.OffsetX, m_width, SnapShares,
                         form.OriginX, scale);
        aim.Y = AimAlong(m_level, m_lines.Level, cursor.Y, drag.OffsetY, m_height, SnapShares,
                         form.OriginY, scale);
    } else if (drag.Mode == DragMode::Resizing) {
        const GripSides sides = SidesOfGrip(drag.Handle);
        if (sides.Across != 0)
            aim.X =
                AimAlong(m_upright, m_lines.Upright, cursor.X, 0, 0, TheSide, form.OriginX, scale);
        if (sides.Down != 0)
            aim.Y = AimAlong(m_level, m_lines.Level, cursor.Y, 0, 0, TheSide, form.OriginY, scale);
    }
    return aim;
}

void DesignSnap::LetGo()
{
    m_upright.reset();
    m_level.reset();
}

} // namespace vantrel
