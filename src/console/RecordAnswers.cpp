#include "console/RecordAnswers.h"
#include "console/BriefEntry.h"
#include "console/ConsoleStore.h"
#include "console/Query.h"
#include "ledger/LedgerJson.h"
#include "ledger/LedgerReading.h"
#include "ledger/LedgerRecent.h"
#include "ledger/LedgerTending.h"
#include <QDateTime>

namespace vantrel::console {

namespace {

/// A list that is longer ends, in bytes. A record may be of any length, and the whole list is in
/// memory.
constexpr qsizetype LongestList = qsizetype{4} * 1024 * 1024;
/// How long somebody is asked to settle a record, and how many are told at once.
constexpr std::chrono::milliseconds UnsettledFor = std::chrono::hours(24 * 7);
constexpr qlonglong MostUnsettled = 50;

bool WantsBrief(const Request& request)
{
    return request.To.Query.value(QStringLiteral("brief")) == u"1";
}

/// An entry as a person reads it, and by which entry it was printed again.
QByteArray ForPage(StoreDatabase& database, LedgerEntry entry)
{
    const auto reprint = FindReprint(database, entry.Id);
    return JsonWithReprint(Brief(std::move(entry), BriefButReadable), reprint) + '\n';
}

} // namespace

Answer ListRecords(ConsoleStore& store, const Request& request, const PathNumbers& /*numbers*/)
{
    const LedgerFilter filter = FilterOf(request.To.Query);
    const bool isBrief = WantsBrief(request);
    QByteArray json;
    LedgerJsonList list("records", [&json](const QByteArray& part) { json += part; });
    for (const qlonglong number : EntryNumbers(store.Database(), filter)) {
        if (json.size() >= LongestList)
            break;
        // Another program may have removed it meanwhile.
        if (auto entry = FindEntry(store.Database(), number, LedgerBytes::Without))
            list.Add(isBrief ? BriefEntryJson(store.Database(), *std::move(entry))
                             : LedgerEntryJson(*entry));
    }
    list.End();
    return JsonAnswer(json);
}

Answer ListUnsettled(ConsoleStore& store, const Request& /*request*/,
                     const PathNumbers& /*numbers*/)
{
    const qint64 since = QDateTime::currentMSecsSinceEpoch() - UnsettledFor.count();
    QByteArray json;
    LedgerJsonList list("records", [&json](const QByteArray& part) { json += part; });
    for (const qlonglong number : UnsettledEntries(store.Database(), since, MostUnsettled)) {
        if (auto entry = FindEntry(store.Database(), number, LedgerBytes::Without))
            list.Add(BriefEntryJson(store.Database(), *std::move(entry)));
    }
    list.End();
    return JsonAnswer(json);
}

Answer ShowRecord(ConsoleStore& store, const Request& request, const PathNumbers& numbers)
{
    const bool isBrief = WantsBrief(request);
    auto entry = FindEntry(store.Database(), numbers.at(0),
                           isBrief ? LedgerBytes::Without : LedgerBytes::With);
    if (!entry)
        return Refusal(404, QStringLiteral("The ledger has no entry %1.").arg(numbers.at(0)));
    if (isBrief)
        return JsonAnswer(ForPage(store.Database(), *std::move(entry)));
    return JsonAnswer(LedgerWholeEntryJson(*entry) + '\n');
}

} // namespace vantrel::console
