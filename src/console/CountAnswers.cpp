#include "console/CountAnswers.h"
#include "console/ConsoleStore.h"
#include "console/Query.h"
#include "ledger/LedgerCounts.h"
#include "ledger/LedgerJson.h"
#include "station/layout/Navigation.h"

namespace vantrel::console {

Answer ListCounts(ConsoleStore& store, const Request& request, const PathNumbers& /*numbers*/)
{
    const LedgerFilter filter = FilterOf(request.To.Query);
    QByteArray json;
    LedgerJsonList list("counts", [&json](const QByteArray& part) { json += part; });
    CountCards(store.Database(), filter.Since, filter.Until,
               [&](const LedgerCount& count) { list.Add(LedgerCountJson(count)); });
    list.End();
    return JsonAnswer(json);
}

Answer ListLayouts(ConsoleStore& store, const Request& /*request*/, const PathNumbers& /*numbers*/)
{
    QByteArray json;
    LedgerJsonList list("layouts", [&json](const QByteArray& part) { json += part; });
    for (const QString& name : LayoutNames(store.Store()))
        list.Add(JsonText(name));
    list.End();
    return JsonAnswer(json);
}

} // namespace vantrel::console
