#include "console/LedgerFollower.h"
#include "base/Skip.h"
#include "console/Answer.h"
#include "console/BriefEntry.h"
#include "console/ConsoleStore.h"
#include "console/Stations.h"
#include "ledger/LedgerJson.h"
#include "ledger/LedgerReading.h"
#include <algorithm>
#include <utility>

namespace vantrel::console {

namespace {

/// Entries whose progress is followed; older ones that change are seen when they are looked for.
constexpr qlonglong Followed = 200;
/// Records of one event. Where more came, the newest are told, and that there are others.
constexpr std::size_t MostTold = 40;

QByteArray OneLine(QByteArray json)
{
    // Line ends stand between the elements only, since texts have them as codes.
    return json.replace('\n', ' ').trimmed();
}

} // namespace

QByteArray EventText(const QByteArray& name, const QByteArray& data)
{
    return "event: " + name + "\ndata: " + data + "\n\n";
}

QByteArray LedgerFollower::Look(ConsoleStore& store)
{
    QByteArray news;
    Skip("look at ledger", [&] { LookAtLedger(store, news); });
    return news + TroubleNews(store.Database());
}

void LedgerFollower::LookAtLedger(ConsoleStore& store, QByteArray& news)
{
    const StoreDatabase::State now = store.Database().Now();
    if (!m_begun) {
        Begin(store);
    } else if (!(now == m_state) || store.TakeOwnChange()) {
        // The own connection's changes do not show in the state.
        news += RecordNews(store);
    }
    // What failed before this is looked at again.
    m_state = now;
    m_begun = true;
    news += StationNews(store);
}

void LedgerFollower::Begin(ConsoleStore& store)
{
    StationNews(store);
    for (const LedgerProgress& progress : RecentProgress(store.Database(), 0, Followed)) {
        m_told.insert(progress.Id, progress);
        m_newest = std::max(m_newest, progress.Id);
    }
}

QByteArray LedgerFollower::TroubleNews(const StoreDatabase& database)
{
    const QString trouble = database.Trouble();
    if (std::exchange(m_trouble, trouble) == trouble)
        return {};
    return EventText("trouble", "{\"text\": " + JsonText(trouble) + '}');
}

QByteArray LedgerFollower::RecordNews(ConsoleStore& store)
{
    StoreDatabase& database = store.Database();
    const auto recent = RecentProgress(database, 0, Followed);
    QHash<qlonglong, LedgerProgress> told;
    std::vector<qlonglong> changed;
    for (const LedgerProgress& progress : recent) {
        told.insert(progress.Id, progress);
        const auto before = m_told.constFind(progress.Id);
        // One that is followed only since others were removed has not changed.
        const bool isNews =
            before == m_told.cend() ? progress.Id > m_newest : !(*before == progress);
        if (isNews)
            changed.push_back(progress.Id);
    }
    const bool isCut = changed.size() > MostTold;
    QByteArray json;
    LedgerJsonList list("records", [&json](const QByteArray& part) { json += part; });
    changed.resize(std::min(changed.size(), MostTold));
    std::vector<qlonglong> reprinted;
    const auto tell = [&](qlonglong id) {
        auto entry = FindEntry(database, id, LedgerBytes::Without);
        if (!entry)
            return;
        if (entry->ReprintOf)
            reprinted.push_back(*entry->ReprintOf);
        list.Add(BriefEntryJson(database, *std::move(entry)));
    };
    for (const qlonglong id : changed)
        tell(id);
    // What becomes of a reprint is told of the first one too.
    for (const qlonglong id : std::exchange(reprinted, {})) {
        if (std::find(changed.begin(), changed.end(), id) != changed.end())
            continue;
        changed.push_back(id);
        tell(id);
    }
    list.End();
    m_told = told;
    m_newest = recent.empty() ? m_newest : recent.front().Id;
    if (changed.empty())
        return {};
    return EventText("records", OneLine(json)) + (isCut ? EventText("more", "{}") : QByteArray());
}

QByteArray LedgerFollower::StationNews(ConsoleStore& store)
{
    QByteArray json;
    QByteArray essence;
    LedgerJsonList list("stations", [&json](const QByteArray& part) { json += part; });
    for (StationSeen station : StationsNow(store)) {
        list.Add(StationJson(station));
        // That one has said again that it runs is no news.
        station.Station.Seen = 0;
        essence += StationJson(station);
    }
    list.End();
    if (std::exchange(m_stations, essence) == essence)
        return {};
    return EventText("stations", OneLine(json));
}

} // namespace vantrel::console
