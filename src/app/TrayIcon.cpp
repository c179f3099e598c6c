#include "app/TrayIcon.h"
#include "app/Session.h"

namespace vantrel {

namespace {

/// Characters of a tip, the code 0 behind them not counted.
constexpr qsizetype LongestTip = 63;

} // namespace

bool TickFlash(Session& session, Flash& flash)
{
    flash.FlashState = !flash.FlashState;
    if (flash.FlashCount < FlashTicks) {
        SetTrayIcon(session, flash.FlashState ? TrayImage::Waiting : TrayImage::Flash,
                    TrayTip::Receiving);
        ++flash.FlashCount;
        return true;
    }
    SetTrayIcon(session, TrayImage::Waiting, TrayTip::Waiting);
    flash.FlashCount = 0;
    return false;
}

void AddTrayIcon(Session& session)
{
    session.Face.SetTray(TrayImage::Disabled, TrayTip::Added);
    session.Face.SetTrayShown(true);
}

void SetTrayIcon(Session& session, TrayImage image, const QString& tip)
{
    const TrayImage shown = image == TrayImage::NoHandle ? session.Face.TrayPicture() : image;
    session.Face.SetTray(shown, tip.isEmpty() ? QString(TrayTip::Waiting) : tip.left(LongestTip));
}

void RemoveTrayIcon(Session& session)
{
    session.Face.SetTrayShown(false);
}

void UpdateTrayState(Session& session)
{
    const StationSettings& settings = session.Settings;
    const bool anyPort = settings.UseSerial || settings.UseParallel || settings.UseIP;
    if (settings.CaptureEnabled && anyPort)
        SetTrayIcon(session, TrayImage::Waiting, TrayTip::Waiting);
    else
        SetTrayIcon(session, TrayImage::Disabled, TrayTip::Disabled);
}

} // namespace vantrel
