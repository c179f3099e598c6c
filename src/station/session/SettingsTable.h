#pragma once

#include "base/Convert.h"
#include "station/session/Settings.h"
#include <array>

namespace vantrel {

/// One key of the settings files: how it is saved, and how its text is read into memory. The type
/// of its variable is the conversion of the text.
struct SettingRow
{
    /// Takes the text into its variable; fails as the conversions do, and leaves the variable then.
    using Reader = void (*)(StationSettings& settings, const QString& text);

    SettingNumber Number;
    const char* Key;
    /// Null where an absent key leaves its variable as it was.
    const char* Default;
    /// Null for a key that is written only.
    Reader Read;
};

namespace SettingReaders {

inline void Take(const QString& text, QString& variable)
{
    variable = text;
}
inline void Take(const QString& text, bool& variable)
{
    variable = ToBoolean(text);
}
inline void Take(const QString& text, std::int32_t& variable)
{
    variable = ToLong(text);
}
inline void Take(const QString& text, std::int16_t& variable)
{
    variable = ToInteger(text);
}
inline void Take(const QString& text, std::uint8_t& variable)
{
    variable = ToByte(text);
}
/// An existing file is a picture, a number is a colour, anything else is no background.
void Take(const QString& text, BackgroundSetting& variable);

/// Reads into the member that a path of member pointers leads to.
template <auto... Path>
void Into(StationSettings& settings, const QString& text)
{
    Take(text, (settings.*....*Path));
}

} // namespace SettingReaders

/// All keys, in the order of their numbers; none stands at 31 and 33.
inline constexpr std::array SettingsTable = [] {
    using enum SettingNumber;
    using S = StationSettings;
    using SettingReaders::Into;
    constexpr const char* none = nullptr;
    return std::to_array<SettingRow>({
        {DynamicLayouts, "DynamicLayouts", "False", Into<&S::DynamicLayouts>},
        {DynamicFields, "DynamicFields", "False", Into<&S::DynamicFields>},
        {LastLayout, "LastLayout", "", Into<&S::LastLayout>},
        {MWidth, "MWidth", "10425", Into<&S::MWidth>},
        {MHeight, "MHeight", "8895", Into<&S::MHeight>},
        {MTop, "MTop", "200", Into<&S::MTop>},
        {MLeft, "MLeft", "200", Into<&S::MLeft>},
        {DataStart, "DataStart", "<", Into<&S::Framing, &Delimiters::DataStart>},
        {DataSeperator, "DataSeperator", "+", Into<&S::Framing, &Delimiters::DataSeperator>},
        {DataEnd, "DataEnd", ">", Into<&S::Framing, &Delimiters::DataEnd>},
        {Port, "Port", "10001", Into<&S::Port>},
        {CaptureEnabled, "CaptureEnabled", "False", Into<&S::CaptureEnabled>},
        {Visible, "Visible", "True", Into<&S::MainVisible>},
        {hwnd, "hwnd", none, nullptr},
        {Background, "Background", none, Into<&S::Background>},
        {SPort, "SPort", none, Into<&S::SPort>},
        {SSettings, "SSettings", none, Into<&S::SSettings>},
        {SFlowCtrl, "SFlowCtrl", none, Into<&S::SFlowCtrl>},
        {UseIP, "UseIP", "True", Into<&S::UseIP>},
        {UseSerial, "UseSerial", "False", Into<&S::UseSerial>},
        {UseParallel, "UseParallel", "False", Into<&S::UseParallel>},
        {PPort, "PPort", none, nullptr},
        {Filter_Cr, "Filter_Cr", none, Into<&S::Filters, &Filters::Cr>},
        {Filter_Lf, "Filter_Lf", none, Into<&S::Filters, &Filters::Lf>},
        {Filter_Tab, "Filter_Tab", none, Into<&S::Filters, &Filters::Tab>},
        {Filter_Esc, "Filter_Esc", none, Into<&S::Filters, &Filters::Esc>},
        {Filter_Null, "Filter_Null", none, Into<&S::Filters, &Filters::Null>},
        {Filter_Space, "Filter_Space", none, Into<&S::Filters, &Filters::Space>},
        {Filter_CtrlC, "Filter_CtrlC", none, Into<&S::Filters, &Filters::CtrlC>},
        {Filter_CtrlBreak, "Filter_CtrlBreak", none, Into<&S::Filters, &Filters::CtrlBreak>},
        {Filter_NewPage, "Filter_NewPage", none, Into<&S::Filters, &Filters::NewPage>},
        {BufferData, "BufferData", none, Into<&S::BufferData>},
        {ActiveMacro, "ActiveMacro", "", Into<&S::ActiveMacro>},
    });
}();

/// The order in which a session reads its keys.
inline constexpr std::array SettingsReadOrder = [] {
    using enum SettingNumber;
    return std::to_array<SettingNumber>(
        {DynamicLayouts, DynamicFields, MHeight,       MLeft,       MTop,         MWidth,
         LastLayout,     DataStart,     DataSeperator, DataEnd,     SPort,        SSettings,
         SFlowCtrl,      UseIP,         UseParallel,   UseSerial,   Port,         CaptureEnabled,
         Visible,        ActiveMacro,   Background,    BufferData,  Filter_Cr,    Filter_CtrlBreak,
         Filter_CtrlC,   Filter_Esc,    Filter_Lf,     Filter_Null, Filter_Space, Filter_Tab,
         Filter_NewPage});
}();

/// @return the row of a number, null where the table has none
constexpr const SettingRow* FindSettingRow(std::int32_t number)
{
    for (const SettingRow& row : SettingsTable) {
        if (static_cast<std::int32_t>(row.Number) == number)
            return &row;
    }
    return nullptr;
}

} // namespace vantrel
