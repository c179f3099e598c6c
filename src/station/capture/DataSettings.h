#pragma once

#include "ports/Framing.h"
#include "station/session/Settings.h"
#include <array>

namespace vantrel {

class Session;

/// @file The operator's settings for input. Delimiters and buffering are applied by a save; each
/// filter takes effect at once.

/// One row of the list of filters.
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

/// Turns a filter on or off from the next record on, and stores it.
void StoreFilter(Session& session, const FilterRow& row, bool on);

/// The settings that a save applies.
struct DataSettings
{
    Delimiters Framing;
    bool BufferData = false;
};

/// The present settings of the session.
DataSettings PresentDataSettings(const StationSettings& settings);
/// The settings of a session without stored keys.
DataSettings DefaultDataSettings();
/// Applies the settings and stores them. Never fails.
void SaveDataSettings(Session& session, const DataSettings& settings);

/// Tooltips of a delimiter: as written, and with its codes decoded.
QString WrittenToolTip(const QString& delimiter);
QString DecodedToolTip(const QString& delimiter);

} // namespace vantrel
