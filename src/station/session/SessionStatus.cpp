#include "base/Convert.h"
#include "station/session/MainRuntime.h"
#include "station/session/Session.h"
#include "station/session/Settings.h"
#include "station/session/TrayIcon.h"

namespace vantrel {

namespace {

/// A missing key reads as True, because no launcher may have written the file.
bool ReadFlag(const ESet2& file, const QString& section, const QString& key)
{
    return ToBoolean(file.ReadSetting(section, key, QStringLiteral("True")).value_or(QString()));
}

} // namespace

StatusVerdict ReadSessionStatus(Session& session)
{
    ESet2 file;
    file.SetINI_Filename(SessionStatusPath(session.ProgramFolder));
    const QString section = SessionSection(session);
    const bool visible = ReadFlag(file, section, QStringLiteral("Visible"));
    const bool active = ReadFlag(file, section, QStringLiteral("Active"));
    if (!active)
        return StatusVerdict::Unload;
    if (visible != session.Settings.MainVisible) {
        session.Settings.MainVisible = visible;
        session.Face.NotifyVisibility(visible);
        SaveSetting(session, SettingNumber::Visible, BooleanText(visible));
    }
    return StatusVerdict::Stay;
}

void UnloadMain(Session& session, const Geometry* geometry)
{
    if (session.Inputs)
        session.Inputs->Stop();
    if (geometry != nullptr) {
        SaveSetting(session, SettingNumber::MTop, QString::number(geometry->Top));
        SaveSetting(session, SettingNumber::MLeft, QString::number(geometry->Left));
        SaveSetting(session, SettingNumber::MHeight, QString::number(geometry->Height));
        SaveSetting(session, SettingNumber::MWidth, QString::number(geometry->Width));
    }
    SaveSetting(session, SettingNumber::LastLayout, session.CurrentLayoutName);
    SaveSetting(session, SettingNumber::DynamicFields, BooleanText(session.Settings.DynamicFields));
    SaveSetting(session, SettingNumber::Visible, BooleanText(session.Settings.MainVisible));
    RemoveTrayIcon(session.Face);
}

} // namespace vantrel
