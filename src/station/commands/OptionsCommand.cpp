#include "station/commands/OptionsCommand.h"
#include "station/session/Operator.h"
#include "station/session/Session.h"
#include "station/session/Settings.h"

namespace vantrel {

bool SaveOptions(Session& session, const StationOptions& before, const StationOptions& after)
{
    if (!WriteStationOptions(session.ProgramFolder, before, after)) {
        session.Operator.MessageBox(
            QStringLiteral("The settings file cannot be written:\n%1\n\nNothing that you have "
                           "entered here is lost. Save again when the file can be written.")
                .arg(SettingsPath(session.ProgramFolder)),
            QStringLiteral("Station Options"), BoxIcon::Critical);
        return false;
    }
    for (const StationOptionRow* row : ChangedOptions(before, after)) {
        if (row->Effect == OptionEffect::AtOnce)
            row->Read(session.Options, row->Text(after));
    }
    return true;
}

QString ToldOfChanges(const StationOptions& before, const StationOptions& after)
{
    QStringList atOnce;
    QStringList atStart;
    for (const StationOptionRow* row : ChangedOptions(before, after))
        (row->Effect == OptionEffect::AtOnce ? atOnce : atStart)
            .append(QString(QLatin1StringView(row->Caption)));
    QStringList told;
    if (!atOnce.isEmpty())
        told += QStringLiteral("At once: %1.").arg(atOnce.join(QStringLiteral(", ")));
    if (!atStart.isEmpty())
        told += QStringLiteral("At the next start of the station: %1.")
                    .arg(atStart.join(QStringLiteral(", ")));
    return told.join(u' ');
}

} // namespace vantrel
