#pragma once

#include "base/Convert.h"
#include "station/session/Settings.h"
#include <array>

namespace vantrel {

/// One key of the settings files, and how its text is converted into its variable; the variable's
/// type decides the conversion.
struct SettingRow
{
    /// Converts the text into its variable. Fails like the conversions in `Convert.h` and then
    /// leaves the variable unchanged.
    using Reader = void (*)(StationSettings& settings, const QString& text);

    SettingNumber Number;
    const char* Key;
    /// Null if a missing key leaves its variable unchanged.
    const char* Default;
    /// Null for a key that is only written.
    Reader Read;
    /// Description for administrators, printed in the settings guide.
    const char* Meaning;
};

namespace SettingReaders {

/// Convert a text into a variable of any type of setting. Fail like the conversions in `Convert.h`.
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
/// The path of an existing file gives a picture, a number gives a colour, anything else no
/// background.
void Take(const QString& text, BackgroundSetting& variable);

/// Converts the text into the member at the end of a path of member pointers.
template <auto... Path>
void Into(StationSettings& settings, const QString& text)
{
    Take(text, (settings.*....*Path));
}

} // namespace SettingReaders

/// All keys in the order of their numbers; 31 and 33 are not used.
inline constexpr std::array SettingsTable = [] {
    using enum SettingNumber;
    using S = StationSettings;
    using SettingReaders::Into;
    constexpr const char* none = nullptr;
    // clang-format off
    return std::to_array<SettingRow>({
        {DynamicLayouts, "DynamicLayouts", "False", Into<&S::DynamicLayouts>, "the tick \"Dynamically Load Layouts\"; has no effect"},
        {DynamicFields, "DynamicFields", "False", Into<&S::DynamicFields>, "the next record makes data fields on the open layout, once"},
        {LastLayout, "LastLayout", "", Into<&S::LastLayout>, "layout that a start opens"},
        {MWidth, "MWidth", "10425", Into<&S::MWidth>, "width of the main window, twips"},
        {MHeight, "MHeight", "8895", Into<&S::MHeight>, "height of the main window, twips"},
        {MTop, "MTop", "200", Into<&S::MTop>, "top of the main window, twips"},
        {MLeft, "MLeft", "200", Into<&S::MLeft>, "left of the main window, twips"},
        {DataStart, "DataStart", "<", Into<&S::Framing, &Delimiters::DataStart>, "text that begins a record"},
        {DataSeperator, "DataSeperator", "+", Into<&S::Framing, &Delimiters::DataSeperator>, "characters that separate values, each on its own"},
        {DataEnd, "DataEnd", ">", Into<&S::Framing, &Delimiters::DataEnd>, "text that ends a record"},
        {Port, "Port", "10001", Into<&S::Port>, "TCP port to listen on, 1 to 65535; with any other number none is opened"},
        {CaptureEnabled, "CaptureEnabled", "False", Into<&S::CaptureEnabled>, "whether a start opens the ports"},
        {Visible, "Visible", "True", Into<&S::MainVisible>, "whether the window is shown; read from `SessionStatus.ini`"},
        {hwnd, "hwnd", none, nullptr, "reserved; neither read nor written"},
        {Background, "Background", none, Into<&S::Background>, "background of the main window: path of a picture, or a colour number"},
        {SPort, "SPort", none, Into<&S::SPort>, "serial port, 1 for COM1"},
        {SSettings, "SSettings", none, Into<&S::SSettings>, "speed, parity, data bits and stop bits, such as `9600,n,8,1`"},
        {SFlowCtrl, "SFlowCtrl", none, Into<&S::SFlowCtrl>, "flow control: 0 none, 1 Xon / Xoff, 2 hardware"},
        {UseIP, "UseIP", "True", Into<&S::UseIP>, "whether TCP/IP is in use"},
        {UseSerial, "UseSerial", "False", Into<&S::UseSerial>, "whether the serial port is in use"},
        {UseParallel, "UseParallel", "False", Into<&S::UseParallel>, "kept; nothing reads a parallel port"},
        {PPort, "PPort", none, nullptr, "reserved; nothing reads it"},
        {Filter_Cr, "Filter_Cr", none, Into<&S::Filters, &Filters::Cr>, "takes carriage returns out of values"},
        {Filter_Lf, "Filter_Lf", none, Into<&S::Filters, &Filters::Lf>, "takes line feeds out of values"},
        {Filter_Tab, "Filter_Tab", none, Into<&S::Filters, &Filters::Tab>, "makes a tab in a value a blank"},
        {Filter_Esc, "Filter_Esc", none, Into<&S::Filters, &Filters::Esc>, "takes escape characters out of values"},
        {Filter_Null, "Filter_Null", none, Into<&S::Filters, &Filters::Null>, "kept and shown; has no effect"},
        {Filter_Space, "Filter_Space", none, Into<&S::Filters, &Filters::Space>, "makes each pair of blanks one blank, in one pass"},
        {Filter_CtrlC, "Filter_CtrlC", none, Into<&S::Filters, &Filters::CtrlC>, "kept and shown; has no effect"},
        {Filter_CtrlBreak, "Filter_CtrlBreak", none, Into<&S::Filters, &Filters::CtrlBreak>, "kept and shown; has no effect"},
        {Filter_NewPage, "Filter_NewPage", none, Into<&S::Filters, &Filters::NewPage>, "takes form feeds out of values"},
        {BufferData, "BufferData", none, Into<&S::BufferData>, "keeps records for the document generator"},
        {ActiveMacro, "ActiveMacro", "", Into<&S::ActiveMacro>, "macro that each record runs; none where empty"},
    });
    // clang-format on
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

/// @return the row of a number, or null if there is none
constexpr const SettingRow* FindSettingRow(std::int32_t number)
{
    for (const SettingRow& row : SettingsTable) {
        if (static_cast<std::int32_t>(row.Number) == number)
            return &row;
    }
    return nullptr;
}

} // namespace vantrel
