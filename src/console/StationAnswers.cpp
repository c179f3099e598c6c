#include "console/StationAnswers.h"
#include "base/Skip.h"
#include "console/ConsoleStore.h"
#include "console/Stations.h"
#include "ledger/LedgerJson.h"

namespace vantrel::console {

Answer ListStations(ConsoleStore& store, const Request& /*request*/, const PathNumbers& /*numbers*/)
{
    QByteArray json;
    LedgerJsonList list("stations", [&json](const QByteArray& part) { json += part; });
    for (const StationSeen& station : StationsNow(store))
        list.Add(StationJson(station));
    list.End();
    return JsonAnswer(json);
}

Answer ShowMetrics(ConsoleStore& store, const Request& /*request*/, const PathNumbers& /*numbers*/)
{
    store.Metrics().Look(store.Database());
    Answer answer;
    answer.Type = "application/openmetrics-text; version=1.0.0; charset=utf-8";
    answer.Body = store.Metrics().Text(store.Database(), StationsNow(store));
    return answer;
}

Answer ShowHealth(ConsoleStore& store, const Request& /*request*/, const PathNumbers& /*numbers*/)
{
    Answer answer;
    answer.Type = "text/plain; charset=utf-8";
    const bool isKnown = Skip("health of stations", [&] {
        for (const StationSeen& seen : StationsNow(store)) {
            if (seen.IsWanted && seen.State != StationState::Alive)
                answer.Body +=
                    "session " + QByteArray::number(seen.Station.Session) + " does not run\n";
        }
    });
    // Anybody may ask this, so it is not told where the store is.
    if (!isKnown)
        answer.Body = store.Database().Trouble().isEmpty() ? "the store cannot be read\n"
                                                           : "the store is away\n";
    answer.Status = answer.Body.isEmpty() ? 200 : 503;
    if (answer.Body.isEmpty())
        answer.Body = "ok\n";
    return answer;
}

} // namespace vantrel::console
