#pragma once

#include "station/session/StationSettings.h"
#include <optional>

namespace vantrel {

class Session;

/// One settings file with keys in sections.
class ESet2
{
public:
    virtual ~ESet2() = default;

    /// @return the value, at most 255 characters, or `absent` if the key is missing. Fails with
    /// `IniFilenameNotSet` if no file name is set.
    virtual std::optional<QString> ReadSetting(const QString& section, const QString& key,
                                               const std::optional<QString>& absent = {}) const;
    /// Writes a value; line feeds become blanks, carriage returns stay. Fails with
    /// `IniFilenameNotSet` if no file name is set; a file that cannot be written is ignored.
    virtual void WriteSetting(const QString& section, const QString& key, const QString& value);
    virtual const QString& INI_Filename() const { return m_filename; }
    virtual void SetINI_Filename(const QString& filename) { m_filename = filename; }

private:
    QString m_filename;
};

/// The numbers that identify keys in `SaveSetting`.
enum class SettingNumber : std::int32_t {
    DynamicLayouts = 0,
    DynamicFields = 1,
    LastLayout = 2,
    MWidth = 3,
    MHeight = 4,
    MTop = 5,
    MLeft = 6,
    DataStart = 7,
    DataSeperator = 8,
    DataEnd = 9,
    Port = 10,
    CaptureEnabled = 11,
    Visible = 12,
    hwnd = 13,
    Background = 14,
    SPort = 15,
    SSettings = 16,
    SFlowCtrl = 17,
    UseIP = 18,
    UseSerial = 19,
    UseParallel = 20,
    PPort = 21,
    Filter_Cr = 22,
    Filter_Lf = 23,
    Filter_Tab = 24,
    Filter_Esc = 25,
    Filter_Null = 26,
    Filter_Space = 27,
    Filter_CtrlC = 28,
    Filter_CtrlBreak = 29,
    Filter_NewPage = 30,
    BufferData = 32,
    ActiveMacro = 34
};

/// Name of a session's section: "Session " and the number.
QString SessionSection(std::uint8_t number);
QString SessionSection(const Session& session);
/// Path of "Vantrel 6.ini" in the program folder.
QString SettingsPath(const QString& programFolder);
/// Path of the "SessionStatus.ini" that a launcher writes and the station reads.
QString SessionStatusPath(const QString& programFolder);

/// The value of a key in the section "Station" of the settings file, which all sessions share;
/// empty if it is missing. These options are off unless set there. Never fails.
QString StationOption(const QString& programFolder, const QString& key);

/// Reads the session's keys into memory. An invalid value leaves its variable unchanged. Never
/// fails.
void LoadSettings(Session& session);
/// Clears the variables that a load must not inherit.
void ClearSettings(StationSettings& settings);
/// Writes one key to the file at once. An unknown number writes nothing. Never fails.
void SaveSetting(Session& session, std::int32_t number, const QString& value);
void SaveSetting(Session& session, SettingNumber number, const QString& value);

} // namespace vantrel
