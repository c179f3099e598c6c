#include "station/session/Settings.h"
#include "base/Profile.h"
#include "base/Skip.h"
#include "station/session/Session.h"
#include "station/session/SettingsTable.h"
#include <QFileInfo>

namespace vantrel {

namespace {

/// For reading it is appended to the folder's path with a slash, for writing without one. The file
/// that is read belongs to the launcher, so a station's own writes never control it.
constexpr QLatin1StringView statusFileName("SessionStatus.ini");

void FailWithoutFilename(const QString& filename)
{
    // Writes deliberately report the same source as reads.
    if (filename.isEmpty())
        throw Failure(FailureNumber::IniFilenameNotSet, QStringLiteral("INI filename not set!"),
                      QStringLiteral("ReadSetting"));
}

void ReadRow(Session& session, const ESet2& file, const SettingRow& row)
{
    Skip(row.Key, [&] {
        const auto absent =
            row.Default != nullptr ? std::optional(QString::fromLatin1(row.Default)) : std::nullopt;
        const std::optional<QString> text =
            file.ReadSetting(SessionSection(session), QString::fromLatin1(row.Key), absent);
        if (text)
            row.Read(session.Settings, *text);
    });
    if (row.Number == SettingNumber::LastLayout)
        session.CurrentLayoutName = session.Settings.LastLayout;
}

} // namespace

void SettingReaders::Take(const QString& text, BackgroundSetting& variable)
{
    if (QFileInfo(text).isFile())
        variable = LoadPicture(text);
    else if (IsNumeric(text))
        variable = ToDouble(text);
}

std::optional<QString> ESet2::ReadSetting(const QString& section, const QString& key,
                                          const std::optional<QString>& absent) const
{
    FailWithoutFilename(m_filename);
    const std::optional<QString> found = FindProfileValue(m_filename, section, key);
    return found ? found : absent;
}

void ESet2::WriteSetting(const QString& section, const QString& key, const QString& value)
{
    FailWithoutFilename(m_filename);
    QString oneLine = value;
    oneLine.replace(QLatin1Char('\n'), QLatin1Char(' '));
    WriteProfileValue(m_filename, section, key, oneLine);
}

QString SessionSection(std::uint8_t number)
{
    return QStringLiteral("Session %1").arg(number);
}

QString SessionSection(const Session& session)
{
    return SessionSection(session.SessionNumber);
}

QString SettingsPath(const QString& programFolder)
{
    return PathIn(programFolder, SettingsFileName);
}

QString StationOption(const QString& programFolder, const QString& key)
{
    return ReadProfileValue(SettingsPath(programFolder), QStringLiteral("Station"), key, QString());
}

QString SessionStatusPath(const QString& programFolder)
{
    return PathIn(programFolder, statusFileName);
}

void LoadSettings(Session& session)
{
    ESet2 settingsFile;
    settingsFile.SetINI_Filename(SettingsPath(session.ProgramFolder));
    ESet2 statusFile;
    statusFile.SetINI_Filename(SessionStatusPath(session.ProgramFolder));

    ClearSettings(session.Settings);
    for (const SettingNumber number : SettingsReadOrder) {
        ReadRow(session, number == SettingNumber::Visible ? statusFile : settingsFile,
                *FindSettingRow(static_cast<std::int32_t>(number)));
    }
}

void ClearSettings(StationSettings& settings)
{
    settings.Background = {};
    settings.CaptureEnabled = false;
    settings.Framing = {};
    settings.DynamicFields = false;
    settings.DynamicLayouts = false;
    settings.LastLayout.clear();
    settings.BufferData = false;
}

void SaveSetting(Session& session, std::int32_t number, const QString& value)
{
    const SettingRow* const row = FindSettingRow(number);
    if (row == nullptr)
        return;
    ESet2 file;
    file.SetINI_Filename(row->Number == SettingNumber::Visible
                             ? session.ProgramFolder + statusFileName
                             : SettingsPath(session.ProgramFolder));
    file.WriteSetting(SessionSection(session), QString::fromLatin1(row->Key), value);
}

void SaveSetting(Session& session, SettingNumber number, const QString& value)
{
    SaveSetting(session, static_cast<std::int32_t>(number), value);
}

} // namespace vantrel
