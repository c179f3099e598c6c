#pragma once

#include "station/session/StationFace.h"
#include <cstdint>

namespace vantrel {

struct StationSettings;

/// @file The notification icon as the station's data: what it shows, and its flash after a record.

/// Ticks that show the flash; the next one ends it.
inline constexpr std::int16_t FlashTicks = 25;

/// What the flash keeps between its ticks.
struct Flash
{
    bool FlashState = false;
    std::int16_t FlashCount = 0;
};

/// One tick of 100 ms after a record began: the icon goes to and fro between two images, and in the
/// end waits again, whether capture is on or not. @return whether there is a next tick
bool TickFlash(StationFace& face, Flash& flash);

/// Shows the icon, disabled.
void AddTrayIcon(StationFace& face);
/// Changes image and tip. A tip is cut to what the icon can hold; an empty one is that of a waiting
/// station. `TrayImage::NoHandle` leaves the image that is there. Nothing shows in a session that
/// has not added the icon.
void SetTrayIcon(StationFace& face, TrayImage image, const QString& tip);
/// Takes the icon away, where there is one.
void RemoveTrayIcon(StationFace& face);

/// The icon by the ports in use.
void UpdateTrayState(StationFace& face, const StationSettings& settings);

} // namespace vantrel
