#pragma once

#include "ports/Framing.h"
#include "station/session/StationFace.h"
#include <QString>
#include <cstdint>

namespace vantrel {

/// The session's settings in memory, named like their keys (`MainVisible` is the key `Visible`).
/// They are read at the start and changed by dialogs and commands.
struct StationSettings
{
    bool DynamicLayouts = false;
    bool DynamicFields = false;
    QString LastLayout;
    /// Position and size of the main window in twips.
    std::int32_t MWidth = 0;
    std::int32_t MHeight = 0;
    std::int32_t MTop = 0;
    std::int32_t MLeft = 0;
    Delimiters Framing;
    std::int32_t Port = 0;
    bool CaptureEnabled = false;
    bool MainVisible = false;
    BackgroundSetting Background;
    /// Serial port number, COM1 is 1.
    std::uint8_t SPort = 0;
    QString SSettings;
    /// 0 none, 1 Xon / Xoff, 2 hardware.
    std::int16_t SFlowCtrl = 0;
    bool UseIP = false;
    bool UseSerial = false;
    bool UseParallel = false;
    vantrel::Filters Filters;
    bool BufferData = false;
    QString ActiveMacro;
};

} // namespace vantrel
