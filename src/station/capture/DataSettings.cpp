#include "station/capture/DataSettings.h"
#include "base/Convert.h"
#include "base/HexCodes.h"
#include "station/session/Session.h"
#include "station/session/SettingsTable.h"

namespace vantrel {

void StoreFilter(Session& session, const FilterRow& row, bool on)
{
    SaveSetting(session, row.Number, BooleanText(on));
    session.Settings.Filters.*row.Flag = on;
}

DataSettings PresentDataSettings(const StationSettings& settings)
{
    return {settings.Framing, settings.BufferData};
}

DataSettings DefaultDataSettings()
{
    // The defaults are those of the settings table; a key without a default is cleared.
    StationSettings fresh;
    for (const SettingNumber number :
         {SettingNumber::DataStart, SettingNumber::DataSeperator, SettingNumber::DataEnd}) {
        const SettingRow* row = FindSettingRow(static_cast<std::int32_t>(number));
        row->Read(fresh, QLatin1StringView(row->Default));
    }
    return {fresh.Framing, fresh.BufferData};
}

void SaveDataSettings(Session& session, const DataSettings& settings)
{
    session.Settings.Framing = settings.Framing;
    SaveSetting(session, SettingNumber::DataStart, settings.Framing.DataStart);
    SaveSetting(session, SettingNumber::DataSeperator, settings.Framing.DataSeperator);
    SaveSetting(session, SettingNumber::DataEnd, settings.Framing.DataEnd);
    session.Settings.BufferData = settings.BufferData;
    SaveSetting(session, SettingNumber::BufferData, BooleanText(settings.BufferData));
}

QString WrittenToolTip(const QString& delimiter)
{
    return QStringLiteral("Value is ") + delimiter + QStringLiteral("  ");
}

QString DecodedToolTip(const QString& delimiter)
{
    return WrittenToolTip(DecodeHexCodes(delimiter));
}

} // namespace vantrel
