#pragma once

#include "ports/Framing.h"
#include "station/session/Settings.h"
#include <array>

namespace vantrel {

class Session;

/// @file What an operator sets about the input. Delimiters and buffering wait for a save; each
/// filter acts at once.

/// One filter as the list of filters shows it.
struct FilterRow
{
    const char* Caption;
    SettingNumber Number;
    bool Filters::*Flag;
};

/// All filters, in the order of the list.
inline constexpr std::array FilterTable = std::to_array<FilterRow>({
    {"Filter (Cr)", SettingNumber::Filter_Cr, &Filters::Cr},
    {"Filter (Lf)", SettingNumber::Filter_Lf, &Filters::Lf},
    {"Filter (Tab)", SettingNumber::Filter_Tab, &Filters::Tab},
    {"Filter (Esc)", SettingNumber::Filter_Esc, &Filters::Esc},
    {"Filter (Null)", SettingNumber::Filter_Null, &Filters::Null},
    {"Filter (Space)", SettingNumber::Filter_Space, &Filters::Space},
    {"Filter (^C)", SettingNumber::Filter_CtrlC, &Filters::CtrlC},
    {"Filter (^Break)", SettingNumber::Filter_CtrlBreak, &Filters::CtrlBreak},
    {"Filter (New Page)", SettingNumber::Filter_NewPage, &Filters::NewPage},
});

/// Stores a filter and lets it act from the next record on.
void StoreFilter(Session& session, const FilterRow& row, bool on);

/// What waits for a save.
struct DataSettings
{
    Delimiters Framing;
    bool BufferData = false;
};

/// What the session has now.
DataSettings PresentDataSettings(const StationSettings& settings);
/// What a session has whose keys are absent.
DataSettings DefaultDataSettings();
/// Takes the settings over and stores each.
void SaveDataSettings(Session& session, const DataSettings& settings);

/// Tooltip of a delimiter: as it is written, and with its codes turned into their characters.
QString WrittenToolTip(const QString& delimiter);
QString DecodedToolTip(const QString& delimiter);

} // namespace vantrel
