#pragma once

#include "station/session/StationFace.h"
#include <cstdint>

namespace vantrel {

struct StationSettings;

/// @file The state of the notification icon: its image, its tooltip, and flashing after a record.

/// Number of ticks that show the flash; the next tick ends it.
inline constexpr std::int16_t FlashTicks = 25;

/// State of the flash between ticks.
struct Flash
{
    bool FlashState = false;
    std::int16_t FlashCount = 0;
};

/// One 100 ms tick after a record has started: the icon alternates between two images and finally
/// shows the waiting image, even if capture is off. @return whether another tick follows
bool TickFlash(StationFace& face, Flash& flash);

/// Shows the icon with the disabled image.
void AddTrayIcon(StationFace& face);
/// Sets image and tooltip. A long tooltip is cut; an empty one becomes that of a waiting station.
/// `TrayImage::NoHandle` keeps the image. Has no effect if the session has not added the icon.
void SetTrayIcon(StationFace& face, TrayImage image, const QString& tip);
/// Removes the icon if it is shown.
void RemoveTrayIcon(StationFace& face);

/// Sets the image and tooltip according to the ports in use.
void UpdateTrayState(StationFace& face, const StationSettings& settings);

} // namespace vantrel
