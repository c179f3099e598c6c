#pragma once

#include "station/session/StationSettings.h"
#include <optional>

namespace vantrel {

class Session;

/// The settings file class: one file, keys in sections.
class ESet2
{
public:
    virtual ~ESet2() = default;

    /// @return the value, at most 255 characters; `absent` (or no text where none is given) where
    /// the key is missing. Fails with `IniFilenameNotSet` without a file name.
    virtual std::optional<QString> ReadSetting(const QString& section, const QString& key,
                                               const std::optional<QString>& absent = {}) const;
    /// Writes a value; line feeds become blanks, carriage returns stay. Fails with
    /// `IniFilenameNotSet` without a file name; a file that cannot be written is passed over.
    virtual void WriteSetting(const QString& section, const QString& key, const QString& value);
    virtual const QString& INI_Filename() const { return m_filename; }
    virtual void SetINI_Filename(const QString& filename) { m_filename = filename; }

private:
    QString m_filename;
};

/// The numbers by which a key is saved.
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

/// "Session " and the number.
QString SessionSection(std::uint8_t number);
QString SessionSection(const Session& session);
/// Path of "Vantrel 6.ini" in the program folder.
QString SettingsPath(const QString& programFolder);
/// Path of the "SessionStatus.ini" that a launcher writes and the station reads.
QString SessionStatusPath(const QString& programFolder);

/// A key of the section "Station" of the settings file, which all sessions share; empty where it is
/// missing. These are options that are off until somebody writes them there.
QString StationOption(const QString& programFolder, const QString& key);

/// Reads the session's keys into memory. A bad value leaves its variable as it was; nothing fails.
void LoadSettings(Session& session);
/// Empties what a load must not inherit.
void ClearSettings(StationSettings& settings);
/// Writes one key at once. A number outside the table writes nothing. Fails with nothing.
void SaveSetting(Session& session, std::int32_t number, const QString& value);
void SaveSetting(Session& session, SettingNumber number, const QString& value);

} // namespace vantrel
