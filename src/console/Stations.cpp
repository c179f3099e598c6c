#include "console/Stations.h"
#include "base/Convert.h"
#include "base/Profile.h"
#include "base/Skip.h"
#include "console/Answer.h"
#include "console/ConsoleStore.h"
#include "ledger/LedgerJson.h"
#include "station/ledger/StationHeartbeat.h"
#include "station/session/Settings.h"
#include <QDateTime>
#include <QMap>
#include <limits>

namespace vantrel::console {

namespace {

/// The sessions that the status file names, and whether each is to run.
QMap<int, bool> WantedSessions(const QString& programFolder)
{
    const QString path = SessionStatusPath(programFolder);
    QMap<int, bool> wanted;
    for (const QString& section : ProfileSections(path)) {
        const QString name = QStringLiteral("Session ");
        bool isNumber = false;
        const uint number = section.mid(name.size()).toUInt(&isNumber);
        if (!section.startsWith(name, Qt::CaseInsensitive) || !isNumber ||
            number > std::numeric_limits<std::uint8_t>::max())
            continue;
        bool active = true;
        Skip("status of session", [&] {
            active = ToBoolean(
                ReadProfileValue(path, section, QStringLiteral("Active"), QStringLiteral("True")));
        });
        wanted.insert(static_cast<int>(number), active);
    }
    return wanted;
}

StationState StateOf(const LedgerStation& station, qint64 now)
{
    if (station.Ended)
        return StationState::Ended;
    return now - station.Seen > SilentMilliseconds ? StationState::Silent : StationState::Alive;
}

QByteArray NameOf(StationState state)
{
    switch (state) {
    case StationState::Alive:
        return "alive";
    case StationState::Silent:
        return "silent";
    case StationState::Ended:
        return "ended";
    case StationState::Missing:
        break;
    }
    return "missing";
}

} // namespace

std::vector<StationSeen> JudgeStations(const QString& programFolder,
                                       const std::vector<LedgerStation>& noted,
                                       const QString& machine, qint64 now)
{
    QMap<int, bool> wanted = WantedSessions(programFolder);
    std::vector<StationSeen> stations;
    for (const LedgerStation& station : noted) {
        StationSeen seen{station, StateOf(station, now), !station.Ended};
        if (station.Machine == machine && wanted.contains(station.Session))
            seen.IsWanted = wanted.take(station.Session);
        stations.push_back(seen);
    }
    for (auto session = wanted.cbegin(); session != wanted.cend(); ++session) {
        if (!session.value())
            continue;
        LedgerStation station;
        station.Machine = machine;
        station.Session = session.key();
        stations.push_back({station, StationState::Missing, true});
    }
    return stations;
}

std::vector<StationSeen> StationsNow(ConsoleStore& store)
{
    return JudgeStations(store.ProgramFolder(), ReadStations(store.Database()),
                         MachineName(store.ProgramFolder()), QDateTime::currentMSecsSinceEpoch());
}

QByteArray StationJson(const StationSeen& seen)
{
    const LedgerStation& station = seen.Station;
    const auto time = [](qint64 at) {
        return at == 0 ? QByteArray("null") : JsonText(LedgerTimeText(at));
    };
    return "{\"session\": " + QByteArray::number(station.Session) +
           ", \"machine\": " + JsonText(station.Machine) + ", \"state\": \"" + NameOf(seen.State) +
           "\", \"wanted\": " + (seen.IsWanted ? "true" : "false") +
           ", \"started\": " + time(station.Started) + ", \"seen\": " + time(station.Seen) +
           ", \"layout\": " + JsonText(station.Layout) +
           ", \"printer\": " + JsonText(station.Printer) + '}';
}

} // namespace vantrel::console
