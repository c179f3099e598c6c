#include "station/session/TrayIcon.h"
#include "station/session/Session.h"

namespace vantrel {

namespace {

/// The most characters of a tooltip.
constexpr qsizetype LongestTip = 63;

} // namespace

bool TickFlash(StationFace& face, Flash& flash)
{
    flash.FlashState = !flash.FlashState;
    if (flash.FlashCount < FlashTicks) {
        SetTrayIcon(face, flash.FlashState ? TrayImage::Waiting : TrayImage::Flash,
                    TrayTip::Receiving);
        ++flash.FlashCount;
        return true;
    }
    SetTrayIcon(face, TrayImage::Waiting, TrayTip::Waiting);
    flash.FlashCount = 0;
    return false;
}

void AddTrayIcon(StationFace& face)
{
    face.SetTray(TrayImage::Disabled, TrayTip::Added);
    face.SetTrayShown(true);
}

void SetTrayIcon(StationFace& face, TrayImage image, const QString& tip)
{
    const TrayImage shown = image == TrayImage::NoHandle ? face.TrayPicture() : image;
    face.SetTray(shown, tip.isEmpty() ? QString(TrayTip::Waiting) : tip.left(LongestTip));
}

void RemoveTrayIcon(StationFace& face)
{
    face.SetTrayShown(false);
}

void UpdateTrayState(StationFace& face, const StationSettings& settings)
{
    const bool anyPort = settings.UseSerial || settings.UseParallel || settings.UseIP;
    if (settings.CaptureEnabled && anyPort)
        SetTrayIcon(face, TrayImage::Waiting, TrayTip::Waiting);
    else
        SetTrayIcon(face, TrayImage::Disabled, TrayTip::Disabled);
}

} // namespace vantrel
